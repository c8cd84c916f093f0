#pragma once

#include <QLocalSocket>
#include <QStringList>
#include <functional>

namespace search {

/// The connection to the program that has started this one.
class SiblingClient {
public:
    /// Connects through the environment variable.
    SiblingClient();

    bool connected() const { return socket_.state() == QLocalSocket::ConnectedState; }
    /// `hungUp` is called when the other side ends the work.
    void onHangUp(std::function<void()> hungUp);
    /// `toFront` is called when the other side asks for this window to be raised.
    void onToFront(std::function<void()> toFront);
    void setText(const QString& handle, const QString& text);
    /// Sends the last line and waits until the other side has disconnected, one minute at most.
    void pressKey(const QString& handle);

private:
    void say(const QString& line);

    QLocalSocket socket_;
};

}  // namespace search
