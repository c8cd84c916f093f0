#pragma once

#include <array>
#include <memory>
#include <string>

class QApplication;
class QTranslator;

namespace orv {

/// The toolkit, set up the same on every machine. The command line is not passed to it.
class Application {
public:
    /// Without a display it says so on the error output and ends the program.
    explicit Application(const char* programName);
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;
    ~Application();

    /// Runs events until the last form is gone.
    int run() const;

private:
    std::string name_;
    std::string option_ = "-platform";
    std::string platforms_ = "xcb;offscreen";
    std::array<char*, 4> arguments_;
    int count_;
    std::unique_ptr<QApplication> application_;
    std::unique_ptr<QTranslator> words_;
};

}  // namespace orv
