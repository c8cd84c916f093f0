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
    /// `shared` is any place in the shared folder.
    explicit WorkFolder(NativePath shared) : shared_(std::move(shared)) {}

    /// Removes the folders of this user's ended runs. Never throws.
    void removeDead() const;
    /// Returns the place of a working file. The first call creates the folder. Failure 75 if it would not be private.
    FilePlace place(const std::string& name);
    /// True if the folder has been created.
    explicit operator bool() const { return folder_ != nullptr; }
    /// Returns the path of a working file. The folder must have been created.
    std::string nativePath(const std::string& name) const;

private:
    void make();
    bool tryToMake(const FilePlace& place);

    NativePath shared_;
    std::string name_;
    std::shared_ptr<const Descriptor> folder_;
    Descriptor lock_;
};

}  // namespace orv
