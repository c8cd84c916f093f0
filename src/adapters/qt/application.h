#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>

#include "platform/scope.h"

class QApplication;
class QObject;
class QTranslator;

namespace orv {

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
    std::string platforms_;
    std::array<char*, 4> arguments_;
    int count_;
    std::unique_ptr<QApplication> application_;
    std::unique_ptr<QObject> inputOrder_;
    std::unique_ptr<QTranslator> words_;
};

/// A handle of the system that can be waited for: a descriptor that can be read, or an object of Windows.
#ifdef _WIN32
using WaitHandle = void*;
#else
using WaitHandle = int;
#endif

/// Calls `ready` from the application's event loop whenever the handle is ready. Releasing the result ends the watch;
/// `ready` itself can do that.
std::shared_ptr<void> watchHandle(WaitHandle handle, std::function<void()> ready);

}  // namespace orv
