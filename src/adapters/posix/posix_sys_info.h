#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "adapters/posix/install_paths.h"
#include "platform/machine/registry.h"
#include "platform/suite/sys_info_service.h"

namespace orv {

/// The OS name is the distribution's own; both version numbers and the build are the first three numbers of the
/// kernel's release, and the service-pack text is that release whole. Of a disk the first figure is what is free for
/// this user, the second the whole, both of the file system that the drive's folder lies on. Codes "SYSERR:01" to
/// "SYSERR:05", in the order of the operations.
class PosixSysInfo : public SysInfoService {
public:
    PosixSysInfo(Registry& registry, const InstallPaths& paths) : registry_(registry), paths_(paths) {}

    FailureRecord SysError() const override { return failure_; }
    void SysGetOsInfo(std::array<std::string, 5>& facts, bool& ok) override;
    void SysGetMemory(std::string& megabytes, bool& ok) override;
    void SysGetDiskSpace(std::string& drive, std::string& first, std::string& second, bool& ok) override;
    void SysGetIpAddress(std::string& address, bool& ok) override;
    void SysGetRegString(const std::string& key, const std::string& name, const std::string& root, std::string& value,
                         bool& ok) override;

private:
    void report(bool worked, const char* text, const char* code, bool& ok);
    bool readRegistry(const std::string& key, const std::string& name, Registry::Handle root, std::string& value);

    Registry& registry_;
    const InstallPaths& paths_;
    FailureRecord failure_;
};

/// One value of a file of NAME=value lines, its quotes taken off; empty where the name is absent.
std::string osReleaseValue(std::string_view text, std::string_view name);

/// The first three numbers of a kernel's release; what is missing is "0".
std::array<std::string, 3> releaseNumbers(std::string_view release);

struct NetAddress {
    std::string text;
    bool isUp = false;
    bool isLoopback = false;
    bool isIpv4 = false;
};

/// The first address that others can reach this machine by, IPv4 before IPv6, one of the link only last; empty: none.
std::string chooseAddress(const std::vector<NetAddress>& addresses);

}  // namespace orv
