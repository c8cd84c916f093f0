#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/machine/machine_sys_info.h"
#include "adapters/posix/install_paths.h"

namespace orv {

/// The OS name is the distribution's own. Both version numbers and the build are the first three numbers of the
/// kernel's release, and the service-pack text is the whole release. Of a disk the first figure is the space free for
/// this user, the second the capacity, both of the file system that contains the drive's folder.
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

/// One value of a file of NAME=value lines, its quotes taken off; empty where the name is absent.
std::string osReleaseValue(std::string_view text, std::string_view name);

/// The first three numbers of a kernel's release; what is missing is "0".
std::array<std::string, 3> releaseNumbers(std::string_view release);

}  // namespace orv
