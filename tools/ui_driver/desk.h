#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "process.h"
#include "screen_probe.h"

namespace desk {

/// An X display that nobody sees, with a window manager, as long as the object lives.
class VirtualDisplay {
public:
    explicit VirtualDisplay(const std::string& size = "1280x800");

    const std::string& name() const { return name_; }

private:
    std::string name_;
    std::unique_ptr<Process> server_;
    std::unique_ptr<Process> windowManager_;
};

/// The suite's server, on a free port, with its own folder.
class ServerDesk {
public:
    explicit ServerDesk(const std::filesystem::path& folder);

    const std::string& port() const { return port_; }
    const std::filesystem::path& folder() const { return folder_; }
    /// Its log, a line a request.
    std::string log() const;
    void misbehave(const std::string& how) const;
    void stop() { process_.reset(); }

private:
    std::filesystem::path folder_;
    std::string port_;
    std::unique_ptr<Process> process_;
};

/// A copy of the sample office with the program in it.
class Office {
public:
    Office(std::filesystem::path folder, const std::string& port);
    /// One that has been made before.
    static Office standing(std::filesystem::path folder) { return Office(std::move(folder)); }

    const std::filesystem::path& folder() const { return folder_; }
    std::filesystem::path drive() const { return folder_ / "C"; }
    std::filesystem::path store() const { return drive() / "ORV/MDB/ORVESTATE.MDB"; }
    /// What the store answers to a select: columns parted by "|", rows by line breaks.
    std::string ask(const std::string& sql) const;
    void change(const std::string& sql) const;
    /// The err logs of all days, wherever the settings have put them, as UTF-8.
    std::string errLog() const;
    /// Lays a real photo, larger than what can be registered, where the open dialog begins; gives its name.
    std::string layPhoto() const;
    /// How often the menu was started.
    int menuStarts() const;

private:
    explicit Office(std::filesystem::path folder) : folder_(std::move(folder)) {}

    std::filesystem::path folder_;
};

/// The program at work in an office, in a real window, worked by real key and mouse events.
class Terminal {
public:
    /// `extra`: more of the program's environment.
    Terminal(const Office& office, std::string display, std::string computer, const Environment& extra = {});

    void start(const std::string& argument);
    /// The same as a user whom rights bind, whoever runs this. The office must be open to all.
    void startUnprivileged(const std::string& argument);
    /// Waits for the window of that title; false if it does not come. Keys go to this window from now on.
    [[nodiscard]] bool waitForWindow(const std::string& title);
    /// Waits until the page takes input, or until it is shown and takes none.
    [[nodiscard]] bool waitForPage(int number, bool enabled = true);
    [[nodiscard]] bool waitForPasswordDialog();
    /// The dialog that fits a photo; its buttons can be clicked then.
    [[nodiscard]] bool waitForConfirmation();
    /// A question or notice of the program.
    [[nodiscard]] bool waitForNotice();
    [[nodiscard]] bool windowGone(const std::string& title) const;
    [[nodiscard]] bool noticeGone() const;
    /// The process of the window that has been waited for last.
    int windowProcess() const;
    /// Brings that window in front of the others, also a minimised one.
    void toFront() const;
    void minimise() const;
    /// The title of the window that has the keyboard.
    std::string titleInFront() const { return tool({"getactivewindow", "getwindowname"}); }
    /// How many colours that window shows at present: few before it has been painted.
    int coloursShown() const;
    /// What the notice on the screen says.
    std::string noticeText();

    /// Returns the text of a field on the screen, copied by keys.
    std::string textOnScreen(const std::string& control, int index = -1);

    /// Clicks the middle of a control of the page on the screen. This and all that follows waits for the focus first.
    void click(const std::string& control, int index = -1);
    /// The same with those keys pressed directly before it.
    void keysAndClick(const std::string& keys, const std::string& control, int index = -1);
    /// Where the middle of a control of the page is.
    Spot onScreen(const std::string& control, int index = -1) const;
    /// Replaces the content of a field by a text, which is pasted and read back.
    void enter(const std::string& control, const std::string& text);
    /// One key after the other; they are separated by blanks.
    void key(const std::string& keys);
    void typeAscii(const std::string& text);
    void shot(const std::filesystem::path& picture) const;
    /// Of everything on the display.
    void shotOfScreen(const std::filesystem::path& picture) const;

    bool running() { return process_ && process_->running(); }
    std::optional<int> waitForEnd();
    void signal(int number) { process_->signal(number); }
    void kill();

private:
    [[nodiscard]] bool findWindow(const std::string& title);
    [[nodiscard]] bool waitForForm(const std::string& form, const std::string& title, bool enabled = true);
    void waitForFocus() const;
    Spot inWindow(const std::string& control, int index) const;
    void putOnClipboard(const std::string& text) const;
    std::string clipboard() const;
    /// The selected text.
    std::string copied();
    std::vector<std::string> program(const std::string& argument) const;
    std::string tool(const std::vector<std::string>& arguments) const;

    const Office& office_;
    Environment environment_;
    std::unique_ptr<Process> process_;
    std::string form_ = "frm_CompInp0";
    std::string window_;
};

/// Waits until `condition` holds; false if it does not within three minutes.
[[nodiscard]] bool eventually(const std::function<bool()>& condition);

}  // namespace desk
