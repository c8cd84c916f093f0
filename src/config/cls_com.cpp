#include "config/cls_com.h"

#include "config/settings.h"
#include "logging/setting_trap.h"
#include "logging/trap.h"
#include "platform/machine/file_system.h"
#include "platform/machine/registry.h"
#include "platform/scope.h"
#include "platform/services.h"
#include "platform/utf8.h"
#include "validation/text/conversions.h"

namespace orv {
namespace {

constexpr std::int32_t kQueryValue = 1;
constexpr std::int32_t kSetValueAndCreate = 6;
constexpr std::int32_t kOpenForWriting = 131078;
constexpr std::int32_t kValueSize = 1024;
constexpr std::int32_t kTypeNumber = 4;
constexpr std::int32_t kNumberBytes = 4;

/// An open key, closed when it leaves scope.
class OpenKey : NonCopyable {
public:
    explicit OpenKey(Registry::Handle key) : key_(key) {}
    ~OpenKey() {
        if (open_) {
            static_cast<void>(caught([this] { close(); }));  // the first failure is reported
        }
    }

    std::int32_t close() {
        open_ = false;
        return services().registry->RegCloseKey(key_);
    }

private:
    Registry::Handle key_;
    bool open_ = true;
};

/// Returns the size of the text in its two-byte form.
std::int32_t wideByteCount(const std::string& text) {
    std::int32_t count = 0;
    for (const char32_t character : toCharacters(text)) {
        count += character > 0xFFFF ? 4 : 2;
    }
    return count;
}

/// Returns the folder of the install from the registry, or nothing if it cannot be read.
std::optional<std::string> readInstallFolder(const cls_Com& settings) {
    std::string folder;
    const std::string hive = std::to_string(kInstallFolder.hive.handle);
    const bool found = settings.P_GetRegQueryString(kInstallFolder.key, kInstallFolder.name, hive, folder);
    return found ? std::optional(folder) : std::nullopt;
}

std::string programFolder() { return P_AddBackslash(services().fileSystem->programFolder()); }

}  // namespace

bool cls_Com::P_GetRegQueryString(const std::string& subKey, const std::string& valueName, const std::string& hive,
                                  std::string& value) const {
    const std::string label = "[ P_GetRegQueryString ] ";
    return trapped(label, [&] {
        Registry& registry = *services().registry;
        Registry::Handle handle = 0;
        if (registry.RegOpenKeyEx(toLong(hive), subKey, kQueryValue, handle) != 0) {
            return fail(label + "レジストリファイルをオープンできませんでした。", "EDLL50002");
        }
        OpenKey key(handle);
        std::string read;
        if (registry.RegQueryValueEx(handle, valueName, read, kValueSize) != 0) {
            return fail(label + "レジストリ内容を取得できませんでした。", "EDLL50003");
        }
        value = read.substr(0, read.find('\0'));
        if (key.close() != 0) {
            return fail(label + "レジストリファイルをクローズできませんでした。", "EDLL50004");
        }
        return true;
    });
}

bool cls_Com::P_SetRegQueryString(const std::string& subKey, const std::string& valueName, const std::string& hive,
                                  const std::string& value, std::int32_t valueType) const {
    const std::string label = "[ P_SetRegQueryString ] ";
    return trapped(label, [&] {
        const Registry::Handle handle = fOpenRegSubKey(toLong(hive), subKey, kOpenForWriting);
        const OpenKey key(handle);
        const std::int32_t byteCount = valueType == kTypeNumber ? kNumberBytes : wideByteCount(value);
        if (services().registry->RegSetValueEx(handle, valueName, valueType, value, byteCount) != 0) {
            return fail(label + "レジストリに値をセットできませんでした。", "EDLL50003");
        }
        return true;
    });
}

std::int32_t cls_Com::fOpenRegSubKey(std::int32_t hive, const std::string& subKey, std::int32_t /*access*/) const {
    return trappedOr<std::int32_t>("[ fOpenRegSubKey ] ", 0, [&] {
        Registry::Handle handle = 0;
        services().registry->RegCreateKeyEx(hive, subKey, kSetValueAndCreate, handle);
        return handle;
    });
}

bool cls_Com::P_ResolveIniPath(std::string& path) const {
    return trapped("[ P_ResolveIniPath ] ", [&] {
        if (systemIni_.empty()) {
            const std::optional<std::string> install = readInstallFolder(*this);
            systemIni_ = (install ? P_AddBackslash(*install) : programFolder() + "..\\") + "SYS\\system.ini";
        }
        path = systemIni_;
    });
}

std::string cls_Com::P_GetInstallFolderPath() const {
    return setting([&] {
        const std::optional<std::string> install = readInstallFolder(*this);
        return install ? *install : programFolder();
    });
}

}  // namespace orv
