#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>

#include "platform/scope.h"

class QApplication;
class QTranslator;

namespace orv {

class InputOrder;

/// The toolkit, set up identically on every machine. It does not receive the command line.
class Application : NonCopyable {
public:
    /// Ends the program with a message on the error output if there is no display.
    explicit Application(const char* programName);
    ~Application();

    /// Runs the event loop until the last form is unloaded.
    int run() const;

private:
    std::string name_;
    std::string option_ = "-platform";
    std::string platforms_ = "xcb;offscreen";
    std::array<char*, 4> arguments_;
    int count_;
    std::unique_ptr<QApplication> application_;
    std::unique_ptr<InputOrder> inputOrder_;
    std::unique_ptr<QTranslator> words_;
};

/// Calls `readable` from the application's event loop whenever the descriptor can be read. Releasing the result ends
/// the watch; `readable` itself can do that.
std::shared_ptr<void> watchDescriptor(int descriptor, std::function<void()> readable);

}  // namespace orv
