#pragma once

#include <optional>
#include <string>

#include "adapters/win32/drive_paths.h"
#include "adapters/win32/win32_handle.h"
#include "platform/machine/program_starter.h"

namespace orv {

/// Starts the other programs of the suite. They continue when this program ends and inherit no handle of it. Arguments
/// are passed as they are written.
class Win32Starter : public ProgramStarter {
public:
    explicit Win32Starter(const DrivePaths& paths) : paths_(paths) {}

    void start(const std::string& commandLine) override { static_cast<void>(startProcess(commandLine)); }
    /// The same. Returns the process, whose handle is signalled when it has ended.
    Win32Handle startProcess(const std::string& commandLine) const;

private:
    std::optional<std::string> fileAt(const std::string& path) const;

    const DrivePaths& paths_;
};

}  // namespace orv
