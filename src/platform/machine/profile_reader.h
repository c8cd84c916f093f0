#pragma once

#include <string>

namespace orv {

/// Reads one value of an INI file as Windows does, in bytes of the system code page.
class ProfileReader {
public:
    ProfileReader() = default;
    ProfileReader(const ProfileReader&) = delete;
    ProfileReader& operator=(const ProfileReader&) = delete;
    virtual ~ProfileReader() = default;

    /// Returns the value, at most 511 bytes of the code page, or "" if file, section or key is missing. A bare file
    /// name is looked up in the Windows folder. Throws a RunTimeError only if an existing file cannot be read.
    virtual std::string GetPrivateProfileString(const std::string& section, const std::string& key,
                                                const std::string& file) const = 0;
};

}  // namespace orv
