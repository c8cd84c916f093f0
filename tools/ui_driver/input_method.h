#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "platform/scope.h"
#include "process.h"

namespace ui_driver {

enum class InputMethodKind { Fcitx, Ibus };

/// A Japanese input method with mozc on a display, with its own session bus and home folder. If the caller is root, it
/// runs under an unprivileged user id, because mozc refuses to run as root. All its processes end with the object.
class InputMethod : orv::NonCopyable {
public:
    InputMethod(InputMethodKind kind, const std::string& display, const std::filesystem::path& folder);
    ~InputMethod();

    /// Returns the environment variables that a program needs to use the input method.
    const Environment& environment() const { return environment_; }

private:
    void writeSettings() const;
    void startBus();
    void startFcitx();
    void startIbus();

    std::filesystem::path home_;
    Environment environment_;
    std::unique_ptr<Process> bus_;
    std::unique_ptr<Process> daemon_;
};

}  // namespace ui_driver
