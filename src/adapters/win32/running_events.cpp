#include "adapters/win32/running_events.h"

#include "platform/utf8.h"

namespace orv {
namespace {

/// A name of the system is short and has no backslash, so it contains hashes.
std::wstring eventName(const std::string& place, const std::string& name) {
    return L"Local\\orv-" + std::to_wstring(std::hash<std::string>()(upperCase(place))) + L"-" +
           std::to_wstring(std::hash<std::string>()(name));
}

}  // namespace

/// If the name cannot be reserved at all, the run continues without it.
bool RunningEvents::claim(const std::string& name) {
    if (held_.contains(name)) {
        return true;
    }
    Win32Handle event(::CreateEventW(nullptr, FALSE, FALSE, eventName(place_, name).c_str()));
    if (event && ::GetLastError() == ERROR_ALREADY_EXISTS) {
        // The operator has just started this program, so that it can give its right to the front away.
        ::AllowSetForegroundWindow(ASFW_ANY);
        ::SetEvent(event.get());
        return false;
    }
    if (event) {
        auto watch = watch_(event.get(), called_);
        held_.insert_or_assign(name, Held{std::move(event), std::move(watch)});
    }
    return true;
}

}  // namespace orv
