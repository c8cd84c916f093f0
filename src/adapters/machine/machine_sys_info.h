#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/machine/registry.h"
#include "platform/suite/sys_info_service.h"

namespace orv {

struct NetAddress {
    std::string text;
    bool isUp = false;
    bool isLoopback = false;
    bool isIpv4 = false;
};

/// Returns the first address at which others can reach this machine: IPv4 before IPv6, a link-local one last. Empty if
/// there is none.
std::string chooseAddress(const std::vector<NetAddress>& addresses);

/// The part of the measurements that does not depend on the operating system. Each `measure...` returns nothing if the
/// system gives no answer. The codes are "SYSERR:01" to "SYSERR:05", in the order of the operations.
class MachineSysInfo : public SysInfoService {
public:
    explicit MachineSysInfo(Registry& registry) : registry_(registry) {}

    FailureRecord SysError() const final { return failure_; }
    void SysGetOsInfo(std::array<std::string, 5>& facts, bool& ok) final;
    void SysGetMemory(std::string& megabytes, bool& ok) final;
    void SysGetDiskSpace(std::string& drive, std::string& first, std::string& second, bool& ok) final;
    void SysGetIpAddress(std::string& address, bool& ok) final;
    void SysGetRegString(const std::string& key, const std::string& name, const std::string& root, std::string& value,
                         bool& ok) final;

protected:
    using OsFacts = std::array<std::string, 5>;
    struct DiskBytes {
        std::uint64_t free = 0;
        std::uint64_t all = 0;
    };

    virtual std::optional<OsFacts> measureOs() const = 0;
    virtual std::optional<std::uint64_t> measureMemoryBytes() const = 0;
    /// `drive` begins with a letter and a colon and contains no NUL.
    virtual std::optional<DiskBytes> measureDisk(const std::string& drive) const = 0;
    virtual std::vector<NetAddress> measureAddresses() const = 0;

private:
    void report(bool worked, const char* text, const char* code, bool& ok);
    bool readRegistry(const std::string& key, const std::string& name, Registry::Handle root, std::string& value);

    Registry& registry_;
    FailureRecord failure_;
};

}  // namespace orv
