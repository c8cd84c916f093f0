#pragma once

#include <functional>
#include <string>

#include "platform/machine/file_system.h"
#include "platform/machine/profile_reader.h"
#include "platform/machine/window_system.h"
#include "platform/suite/help_service.h"

namespace orv {

/// Shows what the help file says of a control in a small window: a section for each group, a line for each control,
/// "page,name,text". What can't be shown is told by codes HELP0001 (no help file) and HELP0002 (it has no such line).
class HelpFile : public HelpService {
public:
    using Path = std::function<std::string()>;

    /// `path` is asked each time. Everything handed in must outlive the service.
    HelpFile(WindowSystem& windows, const FileSystem& files, const ProfileReader& profiles, Path path)
        : windows_(windows), files_(files), profiles_(profiles), path_(std::move(path)) {}

    FailureRecord ErrorInfo() const override { return failure_; }
    bool ShowHelp(const std::string& controlName, const std::string& group) override;

private:
    bool show(const std::string& controlName, const std::string& group);

    WindowSystem& windows_;
    const FileSystem& files_;
    const ProfileReader& profiles_;
    Path path_;
    FailureRecord failure_;
};

}  // namespace orv
