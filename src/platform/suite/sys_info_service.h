#pragma once

#include <array>
#include <string>

#include "platform/suite/failure_record.h"

namespace orv {

/// Measures the computer that the program runs on. Each operation reports by `ok`; `SysError` tells why one failed.
class SysInfoService {
public:
    SysInfoService() = default;
    SysInfoService(const SysInfoService&) = delete;
    SysInfoService& operator=(const SysInfoService&) = delete;
    virtual ~SysInfoService() = default;

    virtual FailureRecord SysError() const = 0;
    /// OS name, major version, minor version, build, service-pack text.
    virtual void SysGetOsInfo(std::array<std::string, 5>& facts, bool& ok) = 0;
    /// Physical memory in megabytes, without unit.
    virtual void SysGetMemory(std::string& megabytes, bool& ok) = 0;
    /// `drive` is like "C:\"; both capacities are counts of bytes: what is free, then the whole.
    virtual void SysGetDiskSpace(std::string& drive, std::string& first, std::string& second, bool& ok) = 0;
    virtual void SysGetIpAddress(std::string& address, bool& ok) = 0;
    /// `root` is the decimal text of the root's handle.
    virtual void SysGetRegString(const std::string& key, const std::string& name, const std::string& root,
                                 std::string& value, bool& ok) = 0;
};

}  // namespace orv
