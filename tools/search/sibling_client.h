#pragma once

#include <QLocalSocket>
#include <QStringList>
#include <functional>

namespace search {

/// The line to the program that has started this one.
class SiblingClient {
public:
    /// Finds it by the environment.
    SiblingClient();

    bool connected() const { return socket_.state() == QLocalSocket::ConnectedState; }
    /// `hungUp` is called when the other side ends the work.
    void onHangUp(std::function<void()> hungUp);
    /// `toFront` is called when the other side wants this program's window in front.
    void onToFront(std::function<void()> toFront);
    void setText(const QString& handle, const QString& text);
    /// The last word: waits until the other side has taken it and hung up, one minute at most.
    void pressKey(const QString& handle);

private:
    void say(const QString& line);

    QLocalSocket socket_;
};

}  // namespace search
