#pragma once

#include <string>

#include "platform/scope.h"

namespace orv {

/// Reads one value of an INI file as Windows does, in bytes of the system code page.
class ProfileReader : public Interface {
public:
    /// Returns the value, at most 511 bytes of the code page, or "" if file, section or key is missing. A bare file
    /// name is looked up in the Windows folder. Throws a RunTimeError only if an existing file cannot be read.
    virtual std::string GetPrivateProfileString(const std::string& section, const std::string& key,
                                                const std::string& file) const = 0;
};

}  // namespace orv
