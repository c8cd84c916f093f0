#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/scope.h"

namespace orv {

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

struct RegistryHive {
    Registry::Handle handle;
    std::string_view name;
};

inline constexpr std::array<RegistryHive, 2> kHives{{
    {Registry::kLocalMachine, "HKEY_LOCAL_MACHINE"},
    {Registry::kCurrentUser, "HKEY_CURRENT_USER"},
}};

/// A value of the registry that the program reads.
struct RegistryValue {
    const RegistryHive& hive;
    const char* key;
    const char* name;
};

inline constexpr RegistryValue kInstallFolder{kHives[0], "SOFTWARE\\ZENTHA\\ORV", "InstallKey"};
inline constexpr RegistryValue kBrowserVersion{kHives[0], "SOFTWARE\\Microsoft\\Internet Explorer", "Version"};
inline constexpr RegistryValue kProxyServer{
    kHives[1], "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Internet Settings", "ProxyServer"};

/// Returns the key with its hive, as a registry file names it.
inline std::string fullKey(const RegistryValue& value) { return std::string(value.hive.name) + "\\" + value.key; }

}  // namespace orv
