#pragma once

#include "adapters/system/system_adapters.h"
#include "support/catch_failure.h"
#include "support/temp_folder.h"

namespace orv {

/// A temporary folder with the drives of an office.
class TempOffice : public TempFolder {
public:
    TempOffice() { std::filesystem::create_directories(file("C/ORV/BIN")); }

    std::string root() const { return path().string(); }
    const SystemPaths& paths() const { return paths_; }

private:
    SystemPaths paths_{root(), root() + "/C/ORV/BIN"};
};

}  // namespace orv
