#include "adapters/win32/sibling_windows.h"

#include <utility>

namespace orv {
namespace {

struct WindowSearch {
    DWORD process = 0;
    std::function<void(HWND)> act;
};

BOOL CALLBACK actIfOfProcess(HWND window, LPARAM argument) {
    const auto& search = *reinterpret_cast<const WindowSearch*>(argument);
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    if (process == search.process && ::IsWindowVisible(window) != 0) {
        search.act(window);
    }
    return TRUE;
}

void forEachWindow(HANDLE process, std::function<void(HWND)> act) {
    WindowSearch search{::GetProcessId(process), std::move(act)};
    ::EnumWindows(&actIfOfProcess, reinterpret_cast<LPARAM>(&search));
}

}  // namespace

SiblingWindows::SiblingWindows(const Win32Starter& programs, HandleWatch watch)
    : programs_(programs), watch_(std::move(watch)) {
    useControlHandles(&controls_);
}

SiblingWindows::~SiblingWindows() {
    dismiss();
    useControlHandles(nullptr);
}

void SiblingWindows::start(const std::string& commandLine, SiblingCalls calls) {
    dismiss();
    process_ = programs_.startProcess(commandLine);
    controls_.onText = std::move(calls.setText);
    controls_.onKey = std::move(calls.pressKey);
    gone_ = std::move(calls.gone);
    end_ = watch_(process_.get(), [this] { handleEnd(); });
}

void SiblingWindows::bringToFront() {
    if (process_) {
        forEachWindow(process_.get(), [](HWND window) {
            if (::IsIconic(window) != 0) {
                ::ShowWindow(window, SW_RESTORE);
            }
            ::SetForegroundWindow(window);
        });
    }
}

void SiblingWindows::dismiss() {
    controls_.onText = nullptr;
    controls_.onKey = nullptr;
    gone_ = nullptr;
    end_.reset();
    if (const Win32Handle process = std::exchange(process_, Win32Handle())) {
        const UINT dismissed = ::RegisterWindowMessageW(kSiblingDismissed);
        forEachWindow(process.get(), [dismissed](HWND window) { ::PostMessageW(window, dismissed, 0, 0); });
    }
}

/// The last messages of a program that has ended can still be in the queue.
void SiblingWindows::handleEnd() {
    controls_.handlePosted();
    if (const auto gone = std::exchange(gone_, nullptr)) {
        dismiss();
        gone();
    }
}

}  // namespace orv
