#include "ui_driver.h"

#include <signal.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "adapters/text/cp932.h"
#include "pages/handlers/form_layouts.h"
#include "pages/handlers/page_table.h"

namespace ui_driver {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

/// Far longer than a stalled machine takes. Only a failing wait ever takes so long.
constexpr auto kPatience = 180s;
constexpr auto kPause = 10ms;
constexpr auto kStillTime = 300ms;
// From the package mate-backgrounds.
constexpr const char* kPhoto = "/usr/share/backgrounds/mate/nature/Garden.jpg";
constexpr const char* kNoticeTitle = "会社情報設定";
constexpr const char* kNothingCopied = "nothing has been copied";

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

std::string readFile(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

/// Returns the command that presses the keys, which are separated by blanks.
std::vector<std::string> keyCommand(const std::string& keys) {
    if (keys.empty()) {
        return {};
    }
    std::vector<std::string> command{"key", "--clearmodifiers"};
    std::istringstream words(keys);
    command.insert(command.end(), std::istream_iterator<std::string>(words), std::istream_iterator<std::string>());
    return command;
}

/// Returns the command that runs the program, for a program of another system. Empty if it runs by itself.
std::vector<std::string> runner() {
    const char* given = std::getenv("ORV_RUN_WITH");
    std::istringstream words(given == nullptr ? "" : given);
    return {std::istream_iterator<std::string>(words), std::istream_iterator<std::string>()};
}

/// Makes the folder that a login would have made for the session.
std::string runtimeFolder(const Office& office) {
    const fs::path folder = office.folder() / "runtime";
    fs::create_directories(folder);
    fs::permissions(folder, fs::perms::owner_all);
    return fs::absolute(folder).string();
}

}  // namespace

bool eventually(const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) {
            return false;
        }
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

VirtualDisplay::VirtualDisplay(const std::string& size) {
    const fs::path displayFile = fs::temp_directory_path() / ("orv-display-" + std::to_string(getpid()));
    const std::string command =
        "exec Xvfb -displayfd 3 -screen 0 " + size + "x24 -nolisten tcp -noreset 3>" + displayFile.string();
    server_ = std::make_unique<Process>(std::vector<std::string>{"bash", "-c", command + " 2>/dev/null"});
    const bool up = eventually([&] { return readFile(displayFile).ends_with('\n'); });
    name_ = ":" + readFile(displayFile);
    fs::remove(displayFile);
    if (!up) {
        throw std::runtime_error("no virtual display");
    }
    name_.pop_back();
    const Environment here{{"DISPLAY", name_}};
    windowManager_ = std::make_unique<Process>(std::vector<std::string>{"openbox"}, here);
    if (!eventually([&] { return contains(readOutput({"xprop", "-root", "_NET_SUPPORTING_WM_CHECK"}, here), "#"); })) {
        throw std::runtime_error("no window manager");
    }
}

ServerProcess::ServerProcess(const fs::path& folder) : folder_(folder) {
    fs::create_directories(folder_);
    fs::remove(folder_ / "port");
    process_ =
        std::make_unique<Process>(std::vector<std::string>{SUITE_SERVER, "--port", "0", "--folder", folder_.string()});
    if (!eventually([&] { return !readFile(folder_ / "port").empty(); })) {
        throw std::runtime_error("the server did not start");
    }
    port_ = readFile(folder_ / "port");
    while (port_.ends_with('\n')) {
        port_.pop_back();
    }
}

std::string ServerProcess::log() const { return readFile(folder_ / "requests.log"); }

void ServerProcess::misbehave(const std::string& how) const {
    readOutput({"curl", "-sS", "--data-binary", how, "http://127.0.0.1:" + port_ + "/misbehave"});
}

Office::Office(fs::path folder, const std::string& port) : folder_(std::move(folder)) {
    readOutput({MAKE_OFFICE, folder_.string(), PROGRAM, port});
}

std::string Office::ask(const std::string& sql) const { return readOutput({"sqlite3", store().string(), sql}); }

void Office::change(const std::string& sql) const { ask(sql); }

std::string Office::errLog() const {
    std::string bytes;
    for (const auto& entry : fs::recursive_directory_iterator(drive() / "ORV")) {
        if (entry.path().string().ends_with("_err.log")) {
            bytes += readFile(entry.path());
        }
    }
    return orv::Cp932().decode(bytes);
}

std::string Office::copyPhoto() const {
    const std::string name = "garden.jpg";
    fs::copy_file(kPhoto, drive() / "ORV/PHOTO" / name, fs::copy_options::overwrite_existing);
    return name;
}

int Office::menuStarts() const {
    const std::string log = readFile(drive() / "ORV/LOG/menu_started.log");
    return static_cast<int>(std::count(log.begin(), log.end(), '\n'));
}

Terminal::Terminal(const Office& office, std::string display, std::string computer, const Environment& extra)
    : office_(office),
      environment_{{"DISPLAY", std::move(display)},
                   {"ORV_COMPUTER_NAME", std::move(computer)},
                   {"XDG_RUNTIME_DIR", runtimeFolder(office)},
                   {"QT_QPA_PLATFORM", runner().empty() ? "xcb" : "windows"},
                   {"ORV_SCALE", "1"}} {
    for (const auto& [name, value] : extra) {
        environment_[name] = value;
    }
}

std::vector<std::string> Terminal::program(const std::string& argument) const {
    std::vector<std::string> command = runner();
    if (command.empty()) {
        command.push_back((office_.drive() / "ORV/BIN/KELT_COS.EXE").string());
    }
    command.push_back(argument);
    return command;
}

void Terminal::start(const std::string& argument) {
    process_ = std::make_unique<Process>(program(argument), environment_);
}

void Terminal::startUnprivileged(const std::string& argument) {
    process_ = std::make_unique<Process>(unprivileged(program(argument)), environment_);
}

std::string Terminal::tool(const std::vector<std::string>& arguments) const {
    std::vector<std::string> command{"xdotool"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return readOutput(command, environment_);
}

bool Terminal::findWindow(const std::string& title) {
    window_ = tool({"search", "--onlyvisible", "--name", "^" + title + "$"});
    window_ = window_.substr(0, window_.find('\n'));
    return !window_.empty();
}

bool Terminal::waitForWindow(const std::string& title) {
    return eventually([&] { return findWindow(title); });
}

/// The role of a form's window is the form's name, with " (disabled)" added while the form takes no input. A program
/// for Windows has no roles: its form takes input when its window no longer changes.
bool Terminal::waitForForm(const std::string& form, const std::string& title, bool enabled) {
    form_ = form;
    const std::string role = "\"" + form + (enabled ? "" : " (disabled)") + "\"";
    const auto isReady = [&] {
        return runner().empty() ? contains(readOutput({"xprop", "-id", window_, "WM_WINDOW_ROLE"}, environment_), role)
                                : isPainted();
    };
    return eventually([&] { return findWindow(title) && isReady(); });
}

bool Terminal::isPainted() const {
    constexpr int kFew = 16;
    const auto picture = [this] {
        return readOutput({"bash", "-c", "import -window " + window_ + " miff:- | identify -format '%k %#' -"},
                          environment_);
    };
    const std::string before = picture();
    std::this_thread::sleep_for(kStillTime);
    return !before.empty() && std::stoi(before) > kFew && picture() == before;
}

bool Terminal::waitForPage(int number, bool enabled) {
    const std::string button(orv::kPages.at(static_cast<std::size_t>(number)).name);
    return waitForForm(orv::pageFormName(number), ".* - " + button + "\\*?", enabled);
}

bool Terminal::waitForPasswordDialog() { return waitForForm("frm_ChangePassword", "パスワード変更"); }

bool Terminal::waitForConfirmation() { return waitForForm("frm_ImgCommon", "画像変換確認"); }

bool Terminal::waitForNotice() { return waitForWindow(kNoticeTitle); }

bool Terminal::isWindowGone(const std::string& title) const {
    return eventually([&] { return tool({"search", "--onlyvisible", "--name", "^" + title + "$"}).empty(); });
}

bool Terminal::isNoticeGone() const { return isWindowGone(kNoticeTitle); }

int Terminal::windowProcess() const { return std::stoi(tool({"getwindowpid", window_})); }

void Terminal::bringToFront() const { tool({"windowactivate", "--sync", window_}); }

/// Keys are sent to the window that has the focus, and clicks to the window in front.
void Terminal::waitForFocus() const {
    if (!eventually([&] { return tool({"getwindowfocus"}) == window_; })) {
        throw std::runtime_error("the window of " + form_ + " does not get the focus");
    }
}

void Terminal::minimise() const { tool({"windowminimize", "--sync", window_}); }

int Terminal::coloursShown() const {
    const std::string count =
        readOutput({"bash", "-c", "import -window " + window_ + " miff:- | identify -format %k -"}, environment_);
    return count.empty() ? 0 : std::stoi(count);
}

void Terminal::putOnClipboard(const std::string& text) const {
    const fs::path file = fs::temp_directory_path() / ("orv-clip-" + std::to_string(getpid()));
    std::ofstream(file, std::ios::binary) << text;
    readOutput({"bash", "-c", "xclip -selection clipboard -i '" + file.string() + "' >/dev/null 2>&1"}, environment_);
    fs::remove(file);
    if (!eventually([&] { return clipboard() == text; })) {
        throw std::runtime_error("the clipboard does not take a text");
    }
}

std::string Terminal::clipboard() const { return readOutput({"xclip", "-selection", "clipboard", "-o"}, environment_); }

std::string Terminal::copied() {
    putOnClipboard(kNothingCopied);
    key("ctrl+c");
    std::string text;
    if (!eventually([&] { return (text = clipboard()) != kNothingCopied; })) {
        throw std::runtime_error("nothing can be copied from " + form_);
    }
    return text;
}

std::string Terminal::noticeText() { return copied(); }

std::string Terminal::textOnScreen(const std::string& control, int index) {
    click(control, index);
    key("ctrl+a");
    return copied();
}

void Terminal::click(const std::string& control, int index) { keysAndClick("", control, index); }

void Terminal::keysAndClick(const std::string& keys, const std::string& control, int index) {
    const Spot spot = inWindow(control, index);
    std::vector<std::string> command = keyCommand(keys);
    const std::vector<std::string> press{
        "mousemove", "--window", window_, std::to_string(spot.x), std::to_string(spot.y), "click", "1"};
    command.insert(command.end(), press.begin(), press.end());
    waitForFocus();
    tool(command);
}

Spot Terminal::inWindow(const std::string& control, int index) const {
    const double scale = std::stod(environment_.at("ORV_SCALE"));
    for (const orv::Placement& place : orv::findLayout(form_)) {
        if (place.control == control && place.index == index) {
            return {static_cast<int>(scale * (place.box.x + place.box.width / 2)),
                    static_cast<int>(scale * (place.box.y + place.box.height / 2))};
        }
    }
    throw std::runtime_error("no control " + control + " on " + form_);
}

Spot Terminal::onScreen(const std::string& control, int index) const {
    const std::string facts = readOutput({"xwininfo", "-id", window_}, environment_);
    const auto absolute = [&](const std::string& axis) {
        const std::string label = "Absolute upper-left " + axis + ":";
        return std::stoi(facts.substr(facts.find(label) + label.size()));
    };
    const Spot spot = inWindow(control, index);
    return {absolute("X") + spot.x, absolute("Y") + spot.y};
}

void Terminal::enter(const std::string& control, const std::string& text) {
    click(control);
    putOnClipboard(text);
    key("ctrl+a");
    key("ctrl+v");
    key("ctrl+a");
    if (const std::string entered = copied(); entered != text) {
        throw std::runtime_error(control + " holds \"" + entered + "\" instead of \"" + text + "\"");
    }
    key("End");
}

void Terminal::key(const std::string& keys) {
    waitForFocus();
    tool(keyCommand(keys));
}

void Terminal::keysWhileStopped(const std::string& keys) {
    process_->signal(SIGSTOP);
    key(keys);
    process_->signal(SIGCONT);
}

void Terminal::typeAscii(const std::string& text) {
    waitForFocus();
    tool({"type", "--delay", "15", text});
}

/// Repeats until two pictures in a row are identical, because the window has then been painted.
void Terminal::shot(const fs::path& picture) const {
    std::string before;
    const bool still = eventually([&] {
        readOutput({"import", "-window", window_, picture.string()}, environment_);
        return std::exchange(before, readFile(picture)) == before;
    });
    if (!still) {
        throw std::runtime_error("the window of " + form_ + " is never painted");
    }
}

void Terminal::shotOfScreen(const fs::path& picture) const {
    readOutput({"import", "-window", "root", picture.string()}, environment_);
}

std::optional<int> Terminal::waitForEnd() { return process_->wait(kPatience); }

void Terminal::kill() {
    process_->signal(SIGKILL);
    process_->wait(kPatience);
}

}  // namespace ui_driver
