#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/machine/code_page.h"
#include "platform/machine/registry.h"

namespace orv {

/// The registry as a text file of the install, in UTF-8, that a person can edit:
///
///     ; a comment
///     [HKEY_LOCAL_MACHINE\SOFTWARE\ZENTHA\ORV]
///     InstallKey=C:\ORV
///
/// Names are compared without regard to ASCII case. If a name occurs twice, the first one is used. "@" is a key's
/// default value. Blanks around a value are removed unless it is in double quotes. The file is read at each call. It is
/// written completely to a new file, which then replaces the old one by a rename. The type of a value is not stored.
///
/// Codes:
///   0    done
///   2    no such file, key or value
///   3    no such folder
///   5    no access, or the file cannot be read
///   6    no such handle
///   87   a name or value that does not fit on a line
///   112  disk full
///   234  a value longer than the buffer
class RegistryFile : public Registry {
public:
    RegistryFile(std::string nativePath, const CodePage& codePage)
        : nativePath_(std::move(nativePath)), codePage_(codePage) {}

    std::int32_t RegOpenKeyEx(Handle hive, const std::string& subKey, std::int32_t access, Handle& key) override;
    std::int32_t RegQueryValueEx(Handle key, const std::string& name, std::string& value, std::int32_t size) override;
    std::int32_t RegSetValueEx(Handle key, const std::string& name, std::int32_t type, const std::string& value,
                               std::int32_t byteCount) override;
    std::int32_t RegCreateKeyEx(Handle hive, const std::string& subKey, std::int32_t access, Handle& key) override;
    std::int32_t RegCloseKey(Handle key) override;

private:
    std::optional<std::string> findName(Handle key) const;
    std::optional<std::string> nameBelow(Handle hive, const std::string& subKey) const;
    Handle handleFor(std::string name);

    std::string nativePath_;
    const CodePage& codePage_;
    std::map<Handle, std::string> open_;
    Handle lastHandle_ = 0;
};

}  // namespace orv
