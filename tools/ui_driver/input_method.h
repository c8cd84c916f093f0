#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "process.h"

namespace desk {

enum class InputMethodKind { Fcitx, Ibus };

/// A Japanese input method with mozc on a display, with a session bus and a home folder of its own. As root it runs
/// under an unprivileged user id, since mozc refuses to run as root. All its processes end with the object.
class InputMethod {
public:
    InputMethod(InputMethodKind kind, const std::string& display, const std::filesystem::path& folder);
    InputMethod(const InputMethod&) = delete;
    InputMethod& operator=(const InputMethod&) = delete;
    ~InputMethod();

    /// What a program needs in its environment to work with it.
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

}  // namespace desk
