#pragma once

#include <cstdint>
#include <string>

#include "platform/scope.h"

namespace orv {

// The value that names the folder of the install, in the hive of the machine.
inline constexpr const char* kInstallKey = "SOFTWARE\\ZENTHA\\ORV";
inline constexpr const char* kInstallValue = "InstallKey";

/// The registry. Results are codes that callers compare, 0 for success. A handle of 0 is none.
class Registry : public Interface {
public:
    using Handle = std::int32_t;

    // The hives. Services that take a hive as text take its number in decimal.
    static constexpr Handle kLocalMachine = -2147483646;
    static constexpr Handle kCurrentUser = -2147483647;

    virtual std::int32_t RegOpenKeyEx(Handle hive, const std::string& subKey, std::int32_t access, Handle& key) = 0;
    /// `value` receives the text up to its first NUL. A value of `size` bytes or more of the code page is a failure.
    virtual std::int32_t RegQueryValueEx(Handle key, const std::string& name, std::string& value,
                                         std::int32_t size) = 0;
    virtual std::int32_t RegSetValueEx(Handle key, const std::string& name, std::int32_t type, const std::string& value,
                                       std::int32_t byteCount) = 0;
    virtual std::int32_t RegCreateKeyEx(Handle hive, const std::string& subKey, std::int32_t access, Handle& key) = 0;
    virtual std::int32_t RegCloseKey(Handle key) = 0;
};

}  // namespace orv
