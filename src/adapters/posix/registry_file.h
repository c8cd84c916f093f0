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
/// Names without regard to ASCII case; of a name that stands twice the first counts; "@" is a key's default value;
/// blanks around a value go, unless it stands in double quotes. The file is read at each call, and written whole beside
/// itself and put in place by one rename. The type of a value is not kept.
///
/// Codes: 0 done, 2 no such file, key or value, 3 no such folder, 5 no access (or a file that can't be read as one), 6
/// no such handle, 87 a name or value that can't stand on a line, 112 disk full, 234 a value longer than the buffer.
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
