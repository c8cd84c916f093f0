#include "adapters/machine/machine_sys_info.h"

#include <charconv>

#include "adapters/machine/path_names.h"

namespace orv {
namespace {

constexpr std::int32_t kQueryAccess = 1;
constexpr std::int32_t kValueBuffer = 1024;
constexpr std::uint64_t kMegabyte = std::uint64_t{1} << 20;

/// Returns 0 for the best. Link-local addresses (169.254., fe80:) mean that no network gave one.
int rankAddress(const NetAddress& address) {
    const bool linkOnly = address.text.starts_with("169.254.") || address.text.starts_with("fe80:");
    return (linkOnly ? 2 : 0) + (address.isIpv4 ? 0 : 1);
}

std::optional<Registry::Handle> handleIn(const std::string& text) {
    Registry::Handle handle = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, handle);
    return error == std::errc() && stop == end ? std::optional(handle) : std::nullopt;
}

}  // namespace

std::string chooseAddress(const std::vector<NetAddress>& addresses) {
    const NetAddress* best = nullptr;
    for (const auto& address : addresses) {
        const bool usable = address.isUp && !address.isLoopback && !address.text.empty();
        if (usable && (best == nullptr || rankAddress(address) < rankAddress(*best))) {
            best = &address;
        }
    }
    return best != nullptr ? best->text : "";
}

void MachineSysInfo::report(bool worked, const char* text, const char* code, bool& ok) {
    failure_ = worked ? FailureRecord{} : FailureRecord{text, code};
    ok = worked;
}

void MachineSysInfo::SysGetOsInfo(std::array<std::string, 5>& facts, bool& ok) {
    const auto measured = measureOs();
    facts = measured.value_or(facts);
    report(measured.has_value(), "ＯＳの情報を取得できませんでした。", "SYSERR:01", ok);
}

void MachineSysInfo::SysGetMemory(std::string& megabytes, bool& ok) {
    const auto measured = measureMemoryBytes();
    if (measured) {
        megabytes = std::to_string(*measured / kMegabyte);
    }
    report(measured.has_value(), "メモリの容量を取得できませんでした。", "SYSERR:02", ok);
}

void MachineSysInfo::SysGetDiskSpace(std::string& drive, std::string& first, std::string& second, bool& ok) {
    const bool isDrive = hasDrive(drive) && drive.find('\0') == std::string::npos;
    const auto measured = isDrive ? measureDisk(drive) : std::nullopt;
    if (measured) {
        first = std::to_string(measured->free);
        second = std::to_string(measured->all);
    }
    report(measured.has_value(), "ディスクの容量を取得できませんでした。", "SYSERR:03", ok);
}

void MachineSysInfo::SysGetIpAddress(std::string& address, bool& ok) {
    const std::string found = chooseAddress(measureAddresses());
    if (!found.empty()) {
        address = found;
    }
    report(!found.empty(), "ＩＰアドレスを取得できませんでした。", "SYSERR:04", ok);
}

void MachineSysInfo::SysGetRegString(const std::string& key, const std::string& name, const std::string& root,
                                     std::string& value, bool& ok) {
    const auto hive = handleIn(root);
    const bool worked = hive && readRegistry(key, name, *hive, value);
    report(worked, "レジストリの値を取得できませんでした。", "SYSERR:05", ok);
}

bool MachineSysInfo::readRegistry(const std::string& key, const std::string& name, Registry::Handle root,
                                  std::string& value) {
    Registry::Handle handle = 0;
    if (registry_.RegOpenKeyEx(root, key, kQueryAccess, handle) != 0) {
        return false;
    }
    const bool found = registry_.RegQueryValueEx(handle, name, value, kValueBuffer) == 0;
    return registry_.RegCloseKey(handle) == 0 && found;
}

}  // namespace orv
