#include "adapters/posix/posix_sys_info.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/statvfs.h>
#include <sys/sysinfo.h>
#include <sys/utsname.h>

#include <charconv>
#include <memory>
#include <optional>

#include "adapters/posix/ascii.h"
#include "adapters/posix/native_file.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr std::size_t kLargestOsRelease = std::size_t{1} << 20;
constexpr std::int32_t kQueryAccess = 1;
constexpr std::int32_t kValueBuffer = 1024;
constexpr std::uint64_t kMegabyte = std::uint64_t{1} << 20;

std::string distributionName() {
    for (const char* file : {"/etc/os-release", "/usr/lib/os-release"}) {
        try {
            const std::string name = osReleaseValue(readWholeFile(file, kLargestOsRelease), "PRETTY_NAME");
            if (!name.empty()) {
                return name;
            }
        } catch (const RunTimeError&) {
            continue;  // the next place may have it
        }
    }
    return {};
}

std::string textOf(const sockaddr& address) {
    std::array<char, INET6_ADDRSTRLEN> text{};
    const void* bytes = address.sa_family == AF_INET
                            ? static_cast<const void*>(&reinterpret_cast<const sockaddr_in&>(address).sin_addr)
                            : static_cast<const void*>(&reinterpret_cast<const sockaddr_in6&>(address).sin6_addr);
    const char* shown = ::inet_ntop(address.sa_family, bytes, text.data(), static_cast<socklen_t>(text.size()));
    return shown != nullptr ? shown : "";
}

std::vector<NetAddress> machineAddresses() {
    ifaddrs* list = nullptr;
    if (::getifaddrs(&list) != 0) {
        return {};
    }
    const std::unique_ptr<ifaddrs, void (*)(ifaddrs*)> owner(list, &::freeifaddrs);
    std::vector<NetAddress> addresses;
    for (const ifaddrs* at = list; at != nullptr; at = at->ifa_next) {
        if (at->ifa_addr != nullptr && (at->ifa_addr->sa_family == AF_INET || at->ifa_addr->sa_family == AF_INET6)) {
            addresses.push_back({textOf(*at->ifa_addr), (at->ifa_flags & IFF_UP) != 0,
                                 (at->ifa_flags & IFF_LOOPBACK) != 0, at->ifa_addr->sa_family == AF_INET});
        }
    }
    return addresses;
}

/// 0: best. Addresses of the link only (169.254., fe80:) mean that no network gave one.
int rankOf(const NetAddress& address) {
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

std::string osReleaseValue(std::string_view text, std::string_view name) {
    while (!text.empty()) {
        const auto line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        if (line.starts_with(name) && line.substr(name.size()).starts_with('=')) {
            auto value = trimBlanks(line.substr(name.size() + 1));
            const bool quoted = value.size() >= 2 && (value[0] == '"' || value[0] == '\'') && value.back() == value[0];
            return std::string(quoted ? value.substr(1, value.size() - 2) : value);
        }
    }
    return {};
}

std::array<std::string, 3> releaseNumbers(std::string_view release) {
    std::array<std::string, 3> numbers{"0", "0", "0"};
    for (auto& number : numbers) {
        const auto end = std::min(release.find_first_not_of("0123456789"), release.size());
        if (end == 0) {
            break;
        }
        number = release.substr(0, end);
        release.remove_prefix(end);
        if (!release.starts_with('.')) {
            break;
        }
        release.remove_prefix(1);
    }
    return numbers;
}

std::string chooseAddress(const std::vector<NetAddress>& addresses) {
    const NetAddress* best = nullptr;
    for (const auto& address : addresses) {
        const bool usable = address.isUp && !address.isLoopback && !address.text.empty();
        if (usable && (best == nullptr || rankOf(address) < rankOf(*best))) {
            best = &address;
        }
    }
    return best != nullptr ? best->text : "";
}

void PosixSysInfo::report(bool worked, const char* text, const char* code, bool& ok) {
    failure_ = worked ? FailureRecord{} : FailureRecord{text, code};
    ok = worked;
}

void PosixSysInfo::SysGetOsInfo(std::array<std::string, 5>& facts, bool& ok) {
    utsname kernel{};
    const bool worked = ::uname(&kernel) == 0;
    if (worked) {
        const std::string name = distributionName();
        const auto [major, minor, build] = releaseNumbers(kernel.release);
        facts = {name.empty() ? kernel.sysname : name, major, minor, build, kernel.release};
    }
    report(worked, "ＯＳの情報を取得できませんでした。", "SYSERR:01", ok);
}

void PosixSysInfo::SysGetMemory(std::string& megabytes, bool& ok) {
    struct sysinfo facts {};
    const bool worked = ::sysinfo(&facts) == 0;
    if (worked) {
        megabytes = std::to_string(std::uint64_t{facts.totalram} * facts.mem_unit / kMegabyte);
    }
    report(worked, "メモリの容量を取得できませんでした。", "SYSERR:02", ok);
}

void PosixSysInfo::SysGetDiskSpace(std::string& drive, std::string& first, std::string& second, bool& ok) {
    struct statvfs facts {};
    const bool isDrive = drive.size() >= 2 && drive[1] == ':' && drive.find('\0') == std::string::npos;
    const bool worked = isDrive && ::statvfs(paths_.toNative(drive).c_str(), &facts) == 0;
    if (worked) {
        first = std::to_string(std::uint64_t{facts.f_bavail} * facts.f_frsize);
        second = std::to_string(std::uint64_t{facts.f_blocks} * facts.f_frsize);
    }
    report(worked, "ディスクの容量を取得できませんでした。", "SYSERR:03", ok);
}

void PosixSysInfo::SysGetIpAddress(std::string& address, bool& ok) {
    const std::string found = chooseAddress(machineAddresses());
    if (!found.empty()) {
        address = found;
    }
    report(!found.empty(), "ＩＰアドレスを取得できませんでした。", "SYSERR:04", ok);
}

void PosixSysInfo::SysGetRegString(const std::string& key, const std::string& name, const std::string& root,
                                   std::string& value, bool& ok) {
    const auto hive = handleIn(root);
    const bool worked = hive && readRegistry(key, name, *hive, value);
    report(worked, "レジストリの値を取得できませんでした。", "SYSERR:05", ok);
}

bool PosixSysInfo::readRegistry(const std::string& key, const std::string& name, Registry::Handle root,
                                std::string& value) {
    Registry::Handle handle = 0;
    if (registry_.RegOpenKeyEx(root, key, kQueryAccess, handle) != 0) {
        return false;
    }
    const bool found = registry_.RegQueryValueEx(handle, name, value, kValueBuffer) == 0;
    return registry_.RegCloseKey(handle) == 0 && found;
}

}  // namespace orv
