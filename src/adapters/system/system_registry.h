#pragma once

#include <map>
#include <string>

#include "adapters/system/system_parts.h"
#include "platform/machine/code_page.h"
#include "platform/machine/registry.h"

namespace orv {

/// The registry of Windows. A key of HKEY_LOCAL_MACHINE is looked up in the 64-bit view and then in the 32-bit view. A
/// new key is created in the 32-bit view, where the 32-bit programs of the suite find it.
///
/// On other systems, a text file of the install, in UTF-8, that a person can edit:
///
///     ; a comment
///     [HKEY_LOCAL_MACHINE\SOFTWARE\ZENTHA\ORV]
///     InstallKey=C:\ORV
///
/// Names are compared without regard to ASCII case. If a name occurs twice, the first one is used. "@" is a key's
/// default value. Blanks around a value are removed unless it is in double quotes. The file is read at each call. It is
/// written completely to a new file, which then replaces the old one by a rename. The type of a value is not stored.
class SystemRegistry : public Registry {
public:
    /// The numbers of Windows.
    enum Code : std::int32_t {
        Done = 0,
        NotFound = 2,  // no such file, key or value
        NoFolder = 3,
        NoAccess = 5,  // or the file cannot be read
        NoHandle = 6,
        Unsuitable = 87,  // a name or value that does not fit on a line
        DiskFull = 112,
        TooLong = 234,  // a value longer than the buffer
    };

    /// The file is registry.txt in the root of the install.
    SystemRegistry(std::string root, const CodePage& codePage) : root_(std::move(root)), codePage_(codePage) {}

    std::int32_t RegOpenKeyEx(Handle hive, const std::string& subKey, std::int32_t access, Handle& key) override;
    std::int32_t RegQueryValueEx(Handle key, const std::string& name, std::string& value, std::int32_t size) override;
    std::int32_t RegSetValueEx(Handle key, const std::string& name, std::int32_t type, const std::string& value,
                               std::int32_t byteCount) override;
    std::int32_t RegCreateKeyEx(Handle hive, const std::string& subKey, std::int32_t access, Handle& key) override;
    std::int32_t RegCloseKey(Handle key) override;

private:
    // Of each system.
    std::int32_t open(Handle hive, const std::string& subKey, std::int32_t access, SystemKey& opened) const;
    std::int32_t create(Handle hive, const std::string& subKey, std::int32_t access, SystemKey& created) const;
    std::int32_t read(const SystemKey& key, const std::string& name, std::string& value) const;
    std::int32_t write(const SystemKey& key, const std::string& name, std::int32_t type, const std::string& value,
                       std::int32_t byteCount) const;

    const SystemKey* find(Handle key) const;
    /// Sets the handle to 0 if the code is a failure.
    std::int32_t keep(std::int32_t code, SystemKey opened, Handle& key);

    std::string root_;
    const CodePage& codePage_;
    std::map<Handle, SystemKey> open_;
    Handle lastHandle_ = 0;
};

}  // namespace orv
