#include "adapters/win32/control_windows.h"

#include <vector>

#include "adapters/win32/wide_text.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr const wchar_t* kClass = L"OrvControl";

/// The system guarantees that the handle of a window fits into 32 bits.
std::uint32_t toNumber(HWND window) { return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(window)); }

HWND findWindow(std::uint32_t handle) {
    return reinterpret_cast<HWND>(static_cast<std::intptr_t>(static_cast<std::int32_t>(handle)));
}

}  // namespace

ControlWindows::~ControlWindows() {
    for (const HWND window : windows_) {
        ::DestroyWindow(window);
    }
}

/// A window of a wide class: the system converts the text of a program that uses the code page.
std::uint32_t ControlWindows::allocate() {
    WNDCLASSEXW shape{};
    shape.cbSize = sizeof shape;
    shape.lpfnWndProc = &ControlWindows::receive;
    shape.hInstance = ::GetModuleHandleW(nullptr);
    shape.lpszClassName = kClass;
    ::RegisterClassExW(&shape);  // fails if it is registered
    const HWND window =
        ::CreateWindowExW(0, kClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, shape.hInstance, nullptr);
    if (window == nullptr) {
        throw RunTimeError(Failure::OutOfMemory);
    }
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    windows_.insert(window);
    return toNumber(window);
}

void ControlWindows::release(std::uint32_t handle) {
    if (windows_.erase(findWindow(handle)) > 0) {
        ::DestroyWindow(findWindow(handle));
    }
}

void ControlWindows::handlePosted() const {
    const std::vector<HWND> windows(windows_.begin(), windows_.end());
    for (const HWND window : windows) {
        MSG message{};
        while (::PeekMessageW(&message, window, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE) != 0) {
            ::DispatchMessageW(&message);
        }
    }
}

LRESULT CALLBACK ControlWindows::receive(HWND window, UINT message, WPARAM first, LPARAM second) {
    const auto* const self = reinterpret_cast<const ControlWindows*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self != nullptr && message == WM_SETTEXT) {
        return self->text(window, reinterpret_cast<const wchar_t*>(second)) ? TRUE : FALSE;
    }
    if (self != nullptr && message == WM_KEYDOWN) {
        self->key(window, static_cast<int>(first));
        return 0;
    }
    return ::DefWindowProcW(window, message, first, second);
}

/// A call can replace the receivers.
bool ControlWindows::text(HWND window, const wchar_t* text) const {
    const auto receiver = onText;
    return receiver && receiver(toNumber(window), text != nullptr ? fromWide(text) : std::string());
}

bool ControlWindows::key(HWND window, int key) const {
    const auto receiver = onKey;
    return receiver && receiver(toNumber(window), key);
}

}  // namespace orv
