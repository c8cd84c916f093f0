#include <array>
#include <cstring>

#include "adapters/system/measured_system.h"
#include "adapters/win32/wide_text.h"
#include "adapters/win32/windows_api.h"

// After windows.h.
#include <iphlpapi.h>
#include <ws2tcpip.h>

namespace orv {
namespace {

constexpr DWORD kFirstBuildOf11 = 22000;
constexpr const wchar_t* kVersionKey = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";

/// GetVersionEx reports the version that the program's manifest names; this call reports the real one.
std::optional<RTL_OSVERSIONINFOW> kernelVersion() {
    using GetVersion = LONG(WINAPI*)(RTL_OSVERSIONINFOW*);
    const FARPROC found = ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion");
    GetVersion getVersion = nullptr;
    static_assert(sizeof getVersion == sizeof found);
    std::memcpy(&getVersion, &found, sizeof found);
    RTL_OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    return getVersion != nullptr && getVersion(&version) == 0 ? std::optional(version) : std::nullopt;
}

/// Windows 11 still has the product name of Windows 10.
std::string productName(DWORD build) {
    std::array<wchar_t, 256> text{};
    DWORD size = sizeof text;
    if (::RegGetValueW(HKEY_LOCAL_MACHINE, kVersionKey, L"ProductName", RRF_RT_REG_SZ | RRF_SUBKEY_WOW6464KEY, nullptr,
                       text.data(), &size) != ERROR_SUCCESS) {
        return "Windows";
    }
    std::string name = fromWide(text.data());
    const std::size_t ten = name.find("Windows 10");
    return build >= kFirstBuildOf11 && ten != std::string::npos ? name.replace(ten, 10, "Windows 11") : name;
}

std::string formatAddress(const sockaddr& address) {
    std::array<wchar_t, INET6_ADDRSTRLEN> text{};
    const void* bytes = address.sa_family == AF_INET
                            ? static_cast<const void*>(&reinterpret_cast<const sockaddr_in&>(address).sin_addr)
                            : static_cast<const void*>(&reinterpret_cast<const sockaddr_in6&>(address).sin6_addr);
    const wchar_t* shown = ::InetNtopW(address.sa_family, bytes, text.data(), text.size());
    return shown != nullptr ? fromWide(shown) : "";
}

/// The list grows between the two calls if a network is connected, so the call is repeated.
std::vector<unsigned char> adapterList() {
    constexpr ULONG kFlags = GAA_FLAG_SKIP_ANYCAST | GAA_FLAG_SKIP_MULTICAST | GAA_FLAG_SKIP_DNS_SERVER;
    ULONG size = 1U << 14;
    for (int attempt = 0; attempt < 3; ++attempt) {
        std::vector<unsigned char> list(size);
        auto* const first = reinterpret_cast<IP_ADAPTER_ADDRESSES*>(list.data());
        const ULONG result = ::GetAdaptersAddresses(AF_UNSPEC, kFlags, nullptr, first, &size);
        if (result == NO_ERROR) {
            return list;
        }
        if (result != ERROR_BUFFER_OVERFLOW) {
            break;
        }
    }
    return {};
}

}  // namespace

std::optional<MachineSysInfo::OsFacts> MeasuredSystem::measureOs() const {
    const auto version = kernelVersion();
    if (!version) {
        return std::nullopt;
    }
    return OsFacts{productName(version->dwBuildNumber), std::to_string(version->dwMajorVersion),
                   std::to_string(version->dwMinorVersion), std::to_string(version->dwBuildNumber),
                   fromWide(version->szCSDVersion)};
}

std::optional<std::uint64_t> MeasuredSystem::measureMemoryBytes() const {
    MEMORYSTATUSEX memory{};
    memory.dwLength = sizeof memory;
    return ::GlobalMemoryStatusEx(&memory) != 0 ? std::optional<std::uint64_t>(memory.ullTotalPhys) : std::nullopt;
}

std::optional<MachineSysInfo::DiskBytes> MeasuredSystem::measureDisk(const std::string& drive) const {
    const std::wstring folder = toWide(paths_.toNative(drive + "\\"));
    ULARGE_INTEGER free{};
    ULARGE_INTEGER all{};
    if (::GetDiskFreeSpaceExW(folder.c_str(), &free, &all, nullptr) == 0) {
        return std::nullopt;
    }
    return DiskBytes{.free = free.QuadPart, .all = all.QuadPart};
}

std::vector<NetAddress> MeasuredSystem::measureAddresses() const {
    const std::vector<unsigned char> list = adapterList();
    const auto* adapter = list.empty() ? nullptr : reinterpret_cast<const IP_ADAPTER_ADDRESSES*>(list.data());
    std::vector<NetAddress> addresses;
    for (; adapter != nullptr; adapter = adapter->Next) {
        for (const auto* at = adapter->FirstUnicastAddress; at != nullptr; at = at->Next) {
            addresses.push_back({.text = formatAddress(*at->Address.lpSockaddr),
                                 .isUp = adapter->OperStatus == IfOperStatusUp,
                                 .isLoopback = adapter->IfType == IF_TYPE_SOFTWARE_LOOPBACK,
                                 .isIpv4 = at->Address.lpSockaddr->sa_family == AF_INET});
        }
    }
    return addresses;
}

}  // namespace orv
