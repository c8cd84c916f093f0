#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "process.h"
#include "screen_probe.h"

namespace ui_driver {

/// An X display without a screen, with a window manager. Both run while the object exists.
class VirtualDisplay {
public:
    explicit VirtualDisplay(const std::string& size = "1280x800");

    const std::string& name() const { return name_; }

private:
    std::string name_;
    std::unique_ptr<Process> server_;
    std::unique_ptr<Process> windowManager_;
};

/// Runs the suite's server on a free port, with its own folder.
class ServerProcess {
public:
    explicit ServerProcess(const std::filesystem::path& folder);

    const std::string& port() const { return port_; }
    const std::filesystem::path& folder() const { return folder_; }
    /// Returns the server's log, which has one line per request.
    std::string log() const;
    void misbehave(const std::string& how) const;
    void stop() { process_.reset(); }

private:
    std::filesystem::path folder_;
    std::string port_;
    std::unique_ptr<Process> process_;
};

/// A copy of the sample office that contains the program.
class Office {
public:
    Office(std::filesystem::path folder, const std::string& port);
    /// Returns an office that has been made before.
    static Office existing(std::filesystem::path folder) { return Office(std::move(folder)); }

    const std::filesystem::path& folder() const { return folder_; }
    std::filesystem::path drive() const { return folder_ / "C"; }
    std::filesystem::path store() const { return drive() / "ORV/MDB/ORVESTATE.MDB"; }
    /// Returns the rows of a select, with columns separated by "|" and rows by line breaks.
    std::string ask(const std::string& sql) const;
    void change(const std::string& sql) const;
    /// Returns the err logs of all days as UTF-8, from the folder that the settings name.
    std::string errLog() const;
    /// Copies a real photo to the folder where the open dialog begins, and returns its name. The photo is larger than
    /// the limit for registration.
    std::string copyPhoto() const;
    /// Returns the number of times that the menu was started.
    int menuStarts() const;

private:
    explicit Office(std::filesystem::path folder) : folder_(std::move(folder)) {}

    std::filesystem::path folder_;
};

/// The program running in an office, in a real window, operated with real key and mouse events. The environment
/// variable ORV_RUN_WITH replaces the program by another command, such as one that runs a program for Windows.
class Terminal {
public:
    /// `extra` is added to the program's environment.
    Terminal(const Office& office, std::string display, std::string computer, const Environment& extra = {});

    void start(const std::string& argument);
    /// Starts the program as a user without special rights, even if the caller is root. The office must be open to all
    /// users.
    void startUnprivileged(const std::string& argument);
    /// Waits for the window with that title. False if it does not appear. The keys are sent to this window afterwards.
    [[nodiscard]] bool waitForWindow(const std::string& title);
    /// Waits until the page takes input, or with `enabled` false until it is shown and takes none.
    [[nodiscard]] bool waitForPage(int number, bool enabled = true);
    [[nodiscard]] bool waitForPasswordDialog();
    /// Waits for the dialog that fits a photo, until its buttons can be clicked.
    [[nodiscard]] bool waitForConfirmation();
    /// Waits for a question or notice of the program.
    [[nodiscard]] bool waitForNotice();
    [[nodiscard]] bool isWindowGone(const std::string& title) const;
    [[nodiscard]] bool isNoticeGone() const;
    /// Returns the process of the window that was last waited for.
    int windowProcess() const;
    /// Brings that window to the front, even if it is minimised.
    void bringToFront() const;
    void minimise() const;
    /// Returns the title of the window that has the keyboard focus.
    std::string frontTitle() const { return tool({"getactivewindow", "getwindowname"}); }
    /// Returns the number of colours that the window shows now. There are few before it has been painted.
    int coloursShown() const;
    /// Returns the text of the notice on the screen.
    std::string noticeText();

    /// Returns the text of a field on the screen, copied by keys.
    std::string textOnScreen(const std::string& control, int index = -1);

    /// Clicks the middle of a control of the page on the screen. This function and the following ones first wait for
    /// the focus.
    void click(const std::string& control, int index = -1);
    /// Presses the keys directly before such a click.
    void keysAndClick(const std::string& keys, const std::string& control, int index = -1);
    /// Returns the position of the middle of a control of the page.
    Spot onScreen(const std::string& control, int index = -1) const;
    /// Replaces the content of a field by a text, which is pasted and read back for comparison.
    void enter(const std::string& control, const std::string& text);
    /// Presses keys one after the other. Their names are separated by blanks.
    void key(const std::string& keys);
    /// Presses keys while the program is stopped, so that it then reads all of them at once.
    void keysWhileStopped(const std::string& keys);
    void typeAscii(const std::string& text);
    void shot(const std::filesystem::path& picture) const;
    /// Takes a picture of the whole display.
    void shotOfScreen(const std::filesystem::path& picture) const;

    bool running() { return process_ && process_->running(); }
    std::optional<int> waitForEnd();
    void signal(int number) { process_->signal(number); }
    void kill();

private:
    [[nodiscard]] bool findWindow(const std::string& title);
    [[nodiscard]] bool waitForForm(const std::string& form, const std::string& title, bool enabled = true);
    /// True if the window has been painted and does not change.
    bool isPainted() const;
    void waitForFocus() const;
    Spot inWindow(const std::string& control, int index) const;
    void putOnClipboard(const std::string& text) const;
    std::string clipboard() const;
    /// Returns the selected text.
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

}  // namespace ui_driver
