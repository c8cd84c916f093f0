#pragma once

#include <map>
#include <vector>

#include "adapters/win32/windows_api.h"
#include "platform/machine/code_page.h"
#include "platform/machine/registry.h"

namespace orv {

/// The registry of Windows. A key of HKEY_LOCAL_MACHINE is looked up in the 64-bit view and then in the 32-bit view. A
/// new key is created in the 32-bit view, where the 32-bit programs of the suite find it.
class Win32Registry : public Registry {
public:
    explicit Win32Registry(const CodePage& codePage) : codePage_(codePage) {}
    ~Win32Registry() override;

    std::int32_t RegOpenKeyEx(Handle hive, const std::string& subKey, std::int32_t access, Handle& key) override;
    std::int32_t RegQueryValueEx(Handle key, const std::string& name, std::string& value, std::int32_t size) override;
    std::int32_t RegSetValueEx(Handle key, const std::string& name, std::int32_t type, const std::string& value,
                               std::int32_t byteCount) override;
    std::int32_t RegCreateKeyEx(Handle hive, const std::string& subKey, std::int32_t access, Handle& key) override;
    std::int32_t RegCloseKey(Handle key) override;

private:
    /// One key of the system for each view that has it.
    using Views = std::vector<HKEY>;

    Handle handleFor(Views views);
    std::int32_t query(HKEY key, const std::string& name, std::string& value, std::int32_t size) const;

    const CodePage& codePage_;
    std::map<Handle, Views> open_;
    Handle lastHandle_ = 0;
};

}  // namespace orv
