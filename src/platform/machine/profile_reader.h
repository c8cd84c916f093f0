#pragma once

#include <string>

namespace orv {

/// Reads one value of an INI file as Windows does, on bytes of the system code page.
class ProfileReader {
public:
    ProfileReader() = default;
    ProfileReader(const ProfileReader&) = delete;
    ProfileReader& operator=(const ProfileReader&) = delete;
    virtual ~ProfileReader() = default;

    /// The value, at most 511 bytes of the code page, or empty where file, section or key is absent. A bare file
    /// name means the Windows folder. Raises a RunTimeError only when a file that is there can't be read.
    virtual std::string GetPrivateProfileString(const std::string& section, const std::string& key,
                                                const std::string& file) const = 0;
};

}  // namespace orv
