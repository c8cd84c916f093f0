#pragma once

#include <functional>
#include <set>
#include <string>

#include "adapters/win32/windows_api.h"
#include "platform/controls/control_handles.h"

namespace orv {

/// Gives each control that other programs address a hidden window of this process. The window receives WM_SETTEXT, in
/// the code page or wide, and WM_KEYDOWN.
class ControlWindows : public ControlHandles {
public:
    ControlWindows() = default;
    ~ControlWindows() override;

    /// Throws failure 7 if the system has no window left.
    std::uint32_t allocate() override;
    void release(std::uint32_t handle) override;

    /// The receivers of the messages. False: the message is refused. Without a receiver it is ignored.
    std::function<bool(std::uint32_t handle, const std::string& text)> onText;
    std::function<bool(std::uint32_t handle, int key)> onKey;

    /// Handles the messages that have been posted to the windows until now.
    void handlePosted() const;

private:
    static LRESULT CALLBACK receive(HWND window, UINT message, WPARAM first, LPARAM second);
    bool text(HWND window, const wchar_t* text) const;
    bool key(HWND window, int key) const;

    std::set<HWND> windows_;
};

}  // namespace orv
