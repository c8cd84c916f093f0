#pragma once

#include "adapters/machine/machine_sys_info.h"
#include "adapters/system/system_parts.h"

namespace orv {

/// The OS name is that of the product or distribution. The two version numbers and the build number are the kernel's
/// own. The figures of a disk are the space available to this user and the whole size.
class MeasuredSystem : public MachineSysInfo {
public:
    MeasuredSystem(Registry& registry, const SystemPaths& paths) : MachineSysInfo(registry), paths_(paths) {}

protected:
    std::optional<OsFacts> measureOs() const override;
    std::optional<std::uint64_t> measureMemoryBytes() const override;
    std::optional<DiskBytes> measureDisk(const std::string& drive) const override;
    std::vector<NetAddress> measureAddresses() const override;

private:
    const SystemPaths& paths_;
};

}  // namespace orv
