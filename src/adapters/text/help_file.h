#pragma once

#include <functional>
#include <string>

#include "platform/machine/file_system.h"
#include "platform/machine/profile_reader.h"
#include "platform/machine/window_system.h"
#include "platform/suite/help_service.h"

namespace orv {

/// Shows the help file's text about a control in a small window. The file has a section for each group and a line
/// "page,name,text" for each control. Failures have the codes HELP0001 (no help file) and HELP0002 (no such line).
class HelpFile : public HelpService {
public:
    using Path = std::function<std::string()>;

    /// `path` is called each time. All arguments must outlive the service.
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
