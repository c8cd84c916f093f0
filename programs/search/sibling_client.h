#pragma once

#include <QString>
#include <functional>
#include <memory>

namespace search {

/// The connection to the program that has started this one. Handles are those of the command line.
class SiblingClient {
public:
    /// `button` belongs to the other program.
    explicit SiblingClient(const QString& button);
    ~SiblingClient();

    bool connected() const;
    /// `hungUp` is called when the other side ends the work.
    void onHangUp(std::function<void()> hungUp);
    /// `bringToFront` is called when the other side asks for this window to be raised.
    void onToFront(std::function<void()> bringToFront);
    void setText(const QString& handle, const QString& text);
    /// Sends the last message and waits until the other side has received it, one minute at most.
    void pressKey(const QString& handle);

private:
    class Link;

    std::unique_ptr<Link> link_;
};

}  // namespace search
