#pragma once

#include <string>

#include "adapters/win32/held_place.h"
#include "adapters/win32/win32_handle.h"

namespace orv {

/// The working files of this run, in a folder that several runs and users share. They are in a folder of their own that
/// only this user can open, and that is locked and not renamed until the run ends. The files remain; the next run of
/// the user removes them.
class RunFolder {
public:
    /// `shared` is the path of the shared folder.
    RunFolder(const DrivePaths& paths, const std::string& shared) : paths_(paths), shared_(paths.toNative(shared)) {}

    /// Removes the folders of this user's ended runs. Never throws.
    void removeDead() const;
    /// Returns the place of a working file. Creates the folder at the first call; failure 75 if it is not private.
    HeldPlace place(const std::string& name);
    /// True if the folder has been created.
    bool isMade() const { return !folder_.empty(); }
    std::string nativePath(const std::string& name) const { return folder_ + "\\" + name; }

private:
    void make();
    bool tryToMake(const std::string& folder);

    const DrivePaths& paths_;
    std::string shared_;
    std::string folder_;
    Win32Handle lock_;
    Win32Handle held_;
};

}  // namespace orv
