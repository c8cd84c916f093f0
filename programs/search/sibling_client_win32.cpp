#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QWinEventNotifier>

#include "adapters/win32/sibling_windows.h"
#include "adapters/win32/win32_handle.h"
#include "sibling_client.h"

namespace search {
namespace {

constexpr UINT kPatience = 60000;  // milliseconds

HWND toWindow(const QString& handle) {
    return reinterpret_cast<HWND>(static_cast<std::intptr_t>(static_cast<std::int32_t>(handle.toUInt())));
}

/// Returns the process of a window, to wait for its end. Empty if the window does not exist.
orv::Win32Handle findProcess(HWND window) {
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    return orv::Win32Handle(process == 0 ? nullptr : ::OpenProcess(SYNCHRONIZE, FALSE, process));
}

void send(const QString& handle, UINT message, WPARAM first, LPARAM second) {
    DWORD_PTR result = 0;
    ::SendMessageTimeoutW(toWindow(handle), message, first, second, SMTO_NORMAL, kPatience, &result);
}

}  // namespace

/// The process of the other program. It ends, or dismisses the windows of this one by a message.
class SiblingClient::Link : public QAbstractNativeEventFilter {
public:
    explicit Link(HWND button) : process_(findProcess(button)) {
        QCoreApplication::instance()->installNativeEventFilter(this);
    }

    bool isThere() const { return static_cast<bool>(process_); }
    void watch(std::function<void()> hungUp) {
        hungUp_ = std::move(hungUp);
        end_ = std::make_unique<QWinEventNotifier>(process_.get());
        QObject::connect(end_.get(), &QWinEventNotifier::activated, end_.get(), [this] {
            end_->setEnabled(false);
            hungUp_();
        });
    }
    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        if (static_cast<const MSG*>(message)->message == dismissed_ && hungUp_) {
            hungUp_();
        }
        return false;
    }

private:
    orv::Win32Handle process_;
    UINT dismissed_ = ::RegisterWindowMessageW(orv::kSiblingDismissed);
    std::function<void()> hungUp_;
    std::unique_ptr<QWinEventNotifier> end_;
};

SiblingClient::SiblingClient(const QString& button) : link_(std::make_unique<Link>(toWindow(button))) {}

SiblingClient::~SiblingClient() = default;

bool SiblingClient::connected() const { return link_->isThere(); }

void SiblingClient::onHangUp(std::function<void()> hungUp) { link_->watch(std::move(hungUp)); }

/// The other side raises the window itself.
void SiblingClient::onToFront(std::function<void()>) {}

void SiblingClient::setText(const QString& handle, const QString& text) {
    send(handle, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.toStdWString().c_str()));
}

void SiblingClient::pressKey(const QString& handle) { send(handle, WM_KEYDOWN, VK_RETURN, 0); }

}  // namespace search
