#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/machine/machine_sys_info.h"
#include "adapters/posix/install_paths.h"

namespace orv {

/// The OS name is the distribution's. The two version numbers and the build number are the first three numbers of the
/// kernel's release; the service-pack text is the whole release. The figures of a disk are the space available to this
/// user and the whole size. Both are those of the file system that contains the drive's folder.
class PosixSysInfo : public MachineSysInfo {
public:
    PosixSysInfo(Registry& registry, const InstallPaths& paths) : MachineSysInfo(registry), paths_(paths) {}

protected:
    std::optional<OsFacts> measureOs() const override;
    std::optional<std::uint64_t> measureMemoryBytes() const override;
    std::optional<DiskBytes> measureDisk(const std::string& drive) const override;
    std::vector<NetAddress> measureAddresses() const override;

private:
    const InstallPaths& paths_;
};

/// Returns a value from a file of NAME=value lines, without its quotes. Empty if the name is missing.
std::string osReleaseValue(std::string_view text, std::string_view name);

/// Returns the first three numbers of a kernel's release. A missing number is "0".
std::array<std::string, 3> releaseNumbers(std::string_view release);

}  // namespace orv
