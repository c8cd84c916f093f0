#pragma once

#include <memory>
#include <string>

#include "adapters/posix/descriptor.h"
#include "adapters/posix/file_place.h"

namespace orv {

/// The working files of this run, in a folder shared by several runs and users. They are in a folder of their own that
/// only this user can enter. It is held open and locked until the run ends. The files remain; the user's next run
/// removes them.
class WorkFolder {
public:
    /// `shared` is the path of the shared folder, with its separator.
    WorkFolder(const InstallPaths& paths, const std::string& shared) : shared_(paths.split(shared + "any")) {}

    /// Removes the folders of this user's ended runs. Never throws.
    void removeDead() const;
    /// Returns the place of a working file. The first call creates the folder. Failure 75 if it would not be private.
    FilePlace place(const std::string& name);
    /// True if the folder has been created.
    bool isMade() const { return folder_ != nullptr; }
    /// Returns the path of a working file. The folder must have been created.
    std::string nativePath(const std::string& name) const;

private:
    void make();
    bool tryToMake(const FilePlace& place);

    NativePath shared_;  // any place in the shared folder
    std::string name_;
    std::shared_ptr<const Descriptor> folder_;
    Descriptor lock_;
};

}  // namespace orv
