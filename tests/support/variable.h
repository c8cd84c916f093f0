#pragma once

#include <cstdlib>
#include <string>

#include "platform/scope.h"

namespace orv {

/// An environment variable of this process that is set while in scope.
class Variable : NonCopyable {
public:
    Variable(std::string name, const std::string& value) : name_(std::move(name)) { set(value); }
    ~Variable() { set(before_); }

private:
    /// An empty value removes the variable.
    void set(const std::string& value) const {
#ifdef _WIN32
        ::_putenv_s(name_.c_str(), value.c_str());
#else
        value.empty() ? ::unsetenv(name_.c_str()) : ::setenv(name_.c_str(), value.c_str(), 1);
#endif
    }
    static std::string valueOf(const std::string& name) {
        const char* value = std::getenv(name.c_str());
        return value == nullptr ? "" : value;
    }

    std::string name_;
    std::string before_ = valueOf(name_);
};

}  // namespace orv
