#pragma once

#include "adapters/machine/machine_sys_info.h"
#include "adapters/win32/drive_paths.h"

namespace orv {

/// The OS name is that of the product, with its bits. The versions are the kernel's own, whatever version the program
/// claims to support. Of a disk the first figure is the space free for this user, the second the capacity.
class Win32SysInfo : public MachineSysInfo {
public:
    Win32SysInfo(Registry& registry, const DrivePaths& paths) : MachineSysInfo(registry), paths_(paths) {}

protected:
    std::optional<OsFacts> measureOs() const override;
    std::optional<std::uint64_t> measureMemoryBytes() const override;
    std::optional<DiskBytes> measureDisk(const std::string& drive) const override;
    std::vector<NetAddress> measureAddresses() const override;

private:
    const DrivePaths& paths_;
};

}  // namespace orv
