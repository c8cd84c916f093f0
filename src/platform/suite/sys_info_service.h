#pragma once

#include <array>
#include <string>

#include "platform/scope.h"
#include "platform/suite/failure_record.h"

namespace orv {

/// Measures the computer. Operations report through `ok`; `SysError` says why one failed.
class SysInfoService : public Interface {
public:
    virtual FailureRecord SysError() const = 0;
    /// `facts` receives OS name, major version, minor version, build and service-pack text.
    virtual void SysGetOsInfo(std::array<std::string, 5>& facts, bool& ok) = 0;
    /// `megabytes` receives the physical memory without a unit.
    virtual void SysGetMemory(std::string& megabytes, bool& ok) = 0;
    /// `drive` is like "C:\". `first` receives the free bytes, `second` the capacity in bytes.
    virtual void SysGetDiskSpace(std::string& drive, std::string& first, std::string& second, bool& ok) = 0;
    virtual void SysGetIpAddress(std::string& address, bool& ok) = 0;
    /// `root` is the decimal text of the root's handle.
    virtual void SysGetRegString(const std::string& key, const std::string& name, const std::string& root,
                                 std::string& value, bool& ok) = 0;
};

}  // namespace orv
