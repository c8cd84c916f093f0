#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/design.h"

namespace orv {

class Form;

/// A modal question or notice.
struct Notice {
    enum class Kind { Information, Warning, Critical, Question };

    std::string title;
    std::string text;
    Kind kind = Kind::Information;
    std::vector<std::string> buttons{"OK"};
    /// The button under Enter, and the one that Esc and the close box stand for.
    std::size_t defaultButton = 0;
    std::size_t escapeButton = 0;
};

/// A plain dialog for one file that is there. `filter`: a name and a pattern, parted by "|". `folder`: where it begins,
/// in the form of the machine; where there is no such folder it begins in the operator's own.
struct FileQuestion {
    std::string title;
    std::string filter;
    std::string folder;
};

/// What needs a screen. A window that can't be shown is a RunTimeError.
class WindowSystem {
public:
    WindowSystem() = default;
    WindowSystem(const WindowSystem&) = delete;
    WindowSystem& operator=(const WindowSystem&) = delete;
    virtual ~WindowSystem() = default;

    /// Makes the form's window, once per loading, hidden.
    virtual void open(Form& form) = 0;
    virtual void show(Form& form) = 0;
    virtual void close(Form& form) = 0;
    /// Into the middle of the screen's work area (to its corner when the form is larger), and in front of the others.
    virtual void centre(Form& form) = 0;
    /// Shows the form and returns when it has been unloaded.
    virtual void runModal(Form& form) = 0;
    /// Owned by the active form's window. Returns the place of the button pressed.
    virtual std::size_t showNotice(const Notice& notice) = 0;
    /// Owned by the active form's window. The path in the form of the machine; nothing when the operator cancels.
    virtual std::optional<std::string> openFile(const FileQuestion& question) = 0;
    /// Takes an input-method composition that is still open into its field.
    virtual void commitComposition() = 0;
    /// Says on the active page what the program is doing, and keeps all input from the page until an empty text ends
    /// it. A notice ends it too. While it lasts, `whileWaiting` paints the windows.
    virtual void working(const std::string& what) = 0;
    /// Says on the form's window, which takes no input, that another program's window is to be used, until an empty
    /// text or the form's end. `pressed` is called when the operator presses a mouse button there.
    virtual void pointToSibling(Form& form, const std::string& line, std::function<void()> pressed) = 0;
    /// The hourglass while `busy`.
    virtual void pointer(bool busy) = 0;
    /// Lets what is due be painted, without letting the operator act.
    virtual void repaint() = 0;
};

}  // namespace orv
