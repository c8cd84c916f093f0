#pragma once

#include <memory>
#include <string>

class QApplication;
class QTranslator;

namespace orv {

/// The toolkit, set up the same on every machine. It takes no options: what stands on the command line is the system's.
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
    int count_ = 1;
    std::string name_;
    char* arguments_[2];
    std::unique_ptr<QApplication> application_;
    std::unique_ptr<QTranslator> words_;
};

}  // namespace orv
