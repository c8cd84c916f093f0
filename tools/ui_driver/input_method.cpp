#include "input_method.h"

#include <signal.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <thread>

#include "ui_driver.h"

namespace ui_driver {
namespace {

namespace fs = std::filesystem;

// The bus starts no services, because only the input method is needed, not a whole desktop.
constexpr const char* kBusSettings = R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=SOCKET</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

constexpr const char* kFcitxProfile = R"([Groups/0]
Name=Default
Default Layout=jp
DefaultIM=mozc

[Groups/0/Items/0]
Name=keyboard-jp
Layout=

[Groups/0/Items/1]
Name=mozc
Layout=

[GroupOrder]
0=Default
)";

void write(const fs::path& file, const std::string& text) {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
}

void killProcesses(const std::string& home) {
    const std::string mark = "HOME=" + home + '\0';
    for (const auto& entry : fs::directory_iterator("/proc")) {
        std::ifstream stream(entry.path() / "environ", std::ios::binary);
        const std::string environment{std::istreambuf_iterator<char>(stream), {}};
        if (environment.find(mark) != std::string::npos) {
            ::kill(std::stoi(entry.path().filename()), SIGKILL);
        }
    }
}

void require(const std::function<bool()>& condition, const std::string& what) {
    if (!eventually(condition)) {
        throw std::runtime_error("not at work: " + what);
    }
}

}  // namespace

InputMethod::InputMethod(InputMethodKind kind, const std::string& display, const fs::path& folder)
    : home_(folder / "home") {
    const bool fcitx = kind == InputMethodKind::Fcitx;
    environment_ = {{"DISPLAY", display},
                    {"HOME", home_},
                    {"XDG_CONFIG_HOME", home_ / ".config"},
                    {"XDG_CACHE_HOME", home_ / ".cache"},
                    {"XDG_RUNTIME_DIR", home_ / "run"},
                    {"DBUS_SESSION_BUS_ADDRESS", "unix:path=" + (home_ / "run/bus").string()},
                    {"LANG", "C.UTF-8"},
                    {"QT_IM_MODULE", fcitx ? "fcitx" : "ibus"}};
    writeSettings();
    readOutput({"setxkbmap", "-display", display, "-layout", "jp"});
    startBus();
    fcitx ? startFcitx() : startIbus();
}

InputMethod::~InputMethod() { killProcesses(home_); }

void InputMethod::writeSettings() const {
    std::string bus = kBusSettings;
    bus.replace(bus.find("SOCKET"), 6, home_ / "run/bus");
    write(home_ / "bus.conf", bus);
    write(home_ / ".config/fcitx5/profile", kFcitxProfile);
    fs::create_directories(home_ / "run");
    fs::create_directories(home_ / ".cache");
    fs::permissions(home_ / "run", fs::perms::owner_all);
    giveToUnprivileged(home_);
}

void InputMethod::startBus() {
    bus_ = std::make_unique<Process>(
        unprivileged({"dbus-daemon", "--nofork", "--config-file=" + (home_ / "bus.conf").string()}), environment_);
    require([&] { return fs::exists(home_ / "run/bus"); }, "the session bus");
}

void InputMethod::startFcitx() {
    daemon_ = std::make_unique<Process>(unprivileged({"fcitx5", "--disable=wayland,waylandim"}), environment_);
    require([&] { return !readOutput(unprivileged({"fcitx5-remote"}), environment_).empty(); }, "fcitx5");
}

void InputMethod::startIbus() {
    daemon_ = std::make_unique<Process>(
        unprivileged({"ibus-daemon", "--panel=disable", "--config=disable", "--emoji-extension=disable"}),
        environment_);
    require(
        [&] {
            readOutput(unprivileged({"ibus", "engine", "mozc-jp"}), environment_);
            return readOutput(unprivileged({"ibus", "engine"}), environment_) == "mozc-jp";
        },
        "ibus");
}

}  // namespace ui_driver
