#pragma once

#include <memory>
#include <string>

#include "adapters/posix/descriptor.h"
#include "adapters/posix/file_place.h"

namespace orv {

/// The working files of this run, inside a folder that several runs and users share. They are in a folder of their own
/// that only this user may enter, held open and locked until the run ends. The files stay; the next run of the user
/// removes them.
class WorkFolder {
public:
    /// `shared`: any place in the shared folder.
    explicit WorkFolder(NativePath shared) : shared_(std::move(shared)) {}

    /// Removes the folders of this user's runs that have ended. Never raises.
    void removeDead() const;
    /// The place of a working file. The first call makes the folder; failure 75 when it would not be private.
    FilePlace place(const std::string& name);
    /// Whether the folder has been made.
    explicit operator bool() const { return folder_ != nullptr; }
    /// Of a working file, when the folder has been made.
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
