#pragma once

#include <functional>
#include <memory>
#include <string>

#include "adapters/qt/manual/manual_window.h"
#include "platform/machine/file_system.h"
#include "platform/suite/help_service.h"

namespace orv {

/// Shows the section of a control in the manual. Failures have the codes HELP0001 (no manual) and HELP0002 (no section
/// of that control).
class ManualHelp : public HelpService {
public:
    using Folder = std::function<std::string()>;

    /// `folder` is called when the manual is first shown and again for each picture. Its result ends in a separator.
    /// The pages are in its subfolder `manual`, the pictures in `pictures`. `version` is that of the program. `files`
    /// must outlive the service.
    ManualHelp(const FileSystem& files, Folder folder, std::string version)
        : files_(files), folder_(std::move(folder)), version_(std::move(version)) {}

    FailureRecord ErrorInfo() const override { return failure_; }
    bool ShowHelp(const std::string& controlName, const std::string& group) override;

private:
    bool show(const std::string& controlName, const std::string& group);
    bool haveWindow();

    const FileSystem& files_;
    Folder folder_;
    std::string version_;
    std::unique_ptr<ManualWindow> window_;
    FailureRecord failure_;
};

}  // namespace orv
