#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/design.h"
#include "platform/scope.h"

namespace orv {

class Form;

/// A modal question or message.
struct Notice {
    enum class Kind { Information, Warning, Critical, Question };

    std::string title;
    std::string text;
    Kind kind = Kind::Information;
    std::vector<std::string> buttons{"OK"};
    /// The button for Enter, and the one for Esc and the close box.
    std::size_t defaultButton = 0;
    std::size_t escapeButton = 0;
};

/// A dialog for choosing one existing file. `filter` is a name and a pattern separated by "|". `folder` is the initial
/// folder in the machine's form; if it does not exist, the operator's own folder is used.
struct FileQuestion {
    std::string title;
    std::string filter;
    std::string folder;
};

/// Everything that needs a screen. A window that cannot be shown is a RunTimeError.
class WindowSystem : public Interface {
public:
    /// Creates the form's hidden window. Called once per load.
    virtual void open(Form& form) = 0;
    virtual void show(Form& form) = 0;
    virtual void close(Form& form) = 0;
    /// Moves the form to the middle of the screen's work area, or to its corner if it is larger, and raises it.
    virtual void centre(Form& form) = 0;
    /// Shows the form and returns after it has been unloaded.
    virtual void runModal(Form& form) = 0;
    /// Shows a message owned by the active form's window. Returns the index of the button pressed.
    virtual std::size_t showNotice(const Notice& notice) = 0;
    /// Shows a file dialog owned by the active form's window. Returns a path in the machine's form, or nothing on
    /// cancel.
    virtual std::optional<std::string> openFile(const FileQuestion& question) = 0;
    /// Commits an open composition of the input method to its field.
    virtual void commitComposition() = 0;
    /// Shows on the active page which work is running, and blocks all input to the page until called with an empty
    /// text. A message or a modal form ends this too. Meanwhile `whileWaiting` paints the windows.
    virtual void showWork(const std::string& what) = 0;
    /// Shows on the disabled form's window that another program's window must be used, until called with an empty text
    /// or the form closes. Calls `pressed` when the operator presses a mouse button there.
    virtual void pointToSibling(Form& form, const std::string& line, std::function<void()> pressed) = 0;
    /// Makes the short alert sound of the desktop.
    virtual void beep() = 0;
    /// Shows the hourglass pointer while `busy`.
    virtual void showPointer(bool busy) = 0;
    /// Paints pending updates without handling input.
    virtual void repaint() = 0;
};

}  // namespace orv
