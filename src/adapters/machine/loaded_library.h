#pragma once

#include <string>

namespace orv {

/// A library that is loaded when it is first needed, so that the program starts without it. It stays loaded.
class LoadedLibrary {
public:
    /// `version` is the part of the file's name that some systems add. Without the file, no function is found.
    LoadedLibrary(const std::string& name, const std::string& version);

    /// Null if the machine does not have the library or the library does not have the function.
    void* find(const char* function) const;
    /// The name of the file, for messages.
    const std::string& file() const { return file_; }

private:
    std::string file_;
    void* library_ = nullptr;
};

}  // namespace orv
