#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/statvfs.h>
#include <sys/sysinfo.h>
#include <sys/utsname.h>

#include <memory>
#include <optional>

#include "adapters/posix/native_file.h"
#include "adapters/system/measured_system.h"
#include "platform/ascii.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr std::size_t kLargestOsRelease = std::size_t{1} << 20;

/// Returns a value from a file of NAME=value lines, without its quotes. Empty if the name is missing.
std::string osReleaseValue(std::string_view text, std::string_view name) {
    while (!text.empty()) {
        const auto line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        if (line.starts_with(name) && line.substr(name.size()).starts_with('=')) {
            return std::string(withoutQuotes(trimmed(line.substr(name.size() + 1), kBlanksAndTabs)));
        }
    }
    return {};
}

/// Returns the first three numbers of a kernel's release. A missing number is "0".
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

std::string formatAddress(const sockaddr& address) {
    std::array<char, INET6_ADDRSTRLEN> text{};
    const void* bytes = address.sa_family == AF_INET
                            ? static_cast<const void*>(&reinterpret_cast<const sockaddr_in&>(address).sin_addr)
                            : static_cast<const void*>(&reinterpret_cast<const sockaddr_in6&>(address).sin6_addr);
    const char* shown = ::inet_ntop(address.sa_family, bytes, text.data(), static_cast<socklen_t>(text.size()));
    return shown != nullptr ? shown : "";
}

}  // namespace

std::optional<MachineSysInfo::OsFacts> MeasuredSystem::measureOs() const {
    utsname kernel{};
    if (::uname(&kernel) != 0) {
        return std::nullopt;
    }
    const std::string name = distributionName();
    const auto [major, minor, build] = releaseNumbers(kernel.release);
    return OsFacts{name.empty() ? kernel.sysname : name, major, minor, build, kernel.release};
}

std::optional<std::uint64_t> MeasuredSystem::measureMemoryBytes() const {
    struct sysinfo facts {};
    return ::sysinfo(&facts) == 0 ? std::optional(std::uint64_t{facts.totalram} * facts.mem_unit) : std::nullopt;
}

std::optional<MachineSysInfo::DiskBytes> MeasuredSystem::measureDisk(const std::string& drive) const {
    struct statvfs facts {};
    if (::statvfs(paths_.toNative(drive).c_str(), &facts) != 0) {
        return std::nullopt;
    }
    return DiskBytes{.free = std::uint64_t{facts.f_bavail} * facts.f_frsize,
                     .all = std::uint64_t{facts.f_blocks} * facts.f_frsize};
}

std::vector<NetAddress> MeasuredSystem::measureAddresses() const {
    ifaddrs* list = nullptr;
    if (::getifaddrs(&list) != 0) {
        return {};
    }
    const std::unique_ptr<ifaddrs, void (*)(ifaddrs*)> owner(list, &::freeifaddrs);
    std::vector<NetAddress> addresses;
    for (const ifaddrs* at = list; at != nullptr; at = at->ifa_next) {
        if (at->ifa_addr != nullptr && (at->ifa_addr->sa_family == AF_INET || at->ifa_addr->sa_family == AF_INET6)) {
            addresses.push_back({formatAddress(*at->ifa_addr), (at->ifa_flags & IFF_UP) != 0,
                                 (at->ifa_flags & IFF_LOOPBACK) != 0, at->ifa_addr->sa_family == AF_INET});
        }
    }
    return addresses;
}

}  // namespace orv
