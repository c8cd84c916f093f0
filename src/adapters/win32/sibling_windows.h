#pragma once

#include <memory>

#include "adapters/win32/control_windows.h"
#include "adapters/win32/running_events.h"
#include "adapters/win32/win32_starter.h"
#include "platform/machine/sibling_programs.h"

namespace orv {

/// The name of the message that a sibling program's windows get when its work is no longer wanted. A program that does
/// not know it ignores it.
inline constexpr const wchar_t* kSiblingDismissed = L"OrvSiblingDismissed";

/// Receives a sibling program's results through the windows of the controls. The program has ended when its process
/// has.
class SiblingWindows : public SiblingPrograms {
public:
    /// While in scope, the handles of all controls are those of windows.
    SiblingWindows(const Win32Starter& programs, HandleWatch watch);
    ~SiblingWindows() override;

    void start(const std::string& commandLine, SiblingCalls calls) override;
    void bringToFront() override;
    void dismiss() override;

private:
    void handleEnd();

    const Win32Starter& programs_;
    ControlWindows controls_;
    HandleWatch watch_;
    Win32Handle process_;
    std::shared_ptr<void> end_;
    std::function<void()> gone_;
};

}  // namespace orv
