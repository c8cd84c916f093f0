#include "adapters/system/system_registry.h"

#include <utility>

namespace orv {

const SystemKey* SystemRegistry::find(Handle key) const {
    const auto found = open_.find(key);
    return found == open_.end() ? nullptr : &found->second;
}

std::int32_t SystemRegistry::keep(std::int32_t code, SystemKey opened, Handle& key) {
    key = code == Done ? ++lastHandle_ : 0;
    if (code == Done) {
        open_[key] = std::move(opened);
    }
    return code;
}

std::int32_t SystemRegistry::RegOpenKeyEx(Handle hive, const std::string& subKey, std::int32_t access, Handle& key) {
    SystemKey opened;
    const std::int32_t code = open(hive, subKey, access, opened);
    return keep(code, std::move(opened), key);
}

std::int32_t SystemRegistry::RegCreateKeyEx(Handle hive, const std::string& subKey, std::int32_t access, Handle& key) {
    SystemKey created;
    const std::int32_t code = create(hive, subKey, access, created);
    return keep(code, std::move(created), key);
}

std::int32_t SystemRegistry::RegQueryValueEx(Handle key, const std::string& name, std::string& value,
                                             std::int32_t size) {
    const SystemKey* const opened = find(key);
    std::string text;
    const std::int32_t code = opened == nullptr ? NoHandle : read(*opened, name, text);
    if (code != Done) {
        return code;
    }
    if (std::cmp_greater_equal(codePage_.encode(text).size(), size)) {
        return TooLong;
    }
    value = std::move(text);
    return Done;
}

std::int32_t SystemRegistry::RegSetValueEx(Handle key, const std::string& name, std::int32_t type,
                                           const std::string& value, std::int32_t byteCount) {
    const SystemKey* const opened = find(key);
    return opened == nullptr ? NoHandle : write(*opened, name, type, value, byteCount);
}

std::int32_t SystemRegistry::RegCloseKey(Handle key) { return open_.erase(key) == 1 ? Done : NoHandle; }

}  // namespace orv
