#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "adapters/win32/drive_paths.h"
#include "adapters/win32/win32_handle.h"

namespace orv {

/// How to open a file. A file is always shared with programs that read, write, rename or delete it.
struct FileOpening {
    DWORD access = GENERIC_READ;
    DWORD disposition = OPEN_EXISTING;
    SECURITY_ATTRIBUTES* security = nullptr;
    /// For a file that only the keeper of the install or the system writes.
    bool followsLinks = false;
};

/// Opens a file or a folder. The handle is empty on failure; the thread's last
/// error is the reason.
Win32Handle openNative(const std::string& nativePath, const FileOpening& opening);

/// True for a link, or a folder in whose place another folder appears.
bool isLink(HANDLE opened);

/// Opens a folder so that it cannot be renamed or replaced until the handle is closed. A link is failure 75.
Win32Handle holdFolder(const std::string& nativeFolder);

/// A name in a folder. Below the install folder, the folders of the path are held open, so that they cannot be renamed,
/// and none of them is a link. Other users could have put it there.
class HeldPlace {
public:
    /// `path` is in the system's form. Failure 76 if a folder is missing, 75 if a folder below the install folder is a
    /// link.
    HeldPlace(const DrivePaths& paths, const std::string& path);
    /// A name in a folder that the caller has checked.
    HeldPlace(std::string nativeFolder, const std::string& name);

    const std::string& path() const { return path_; }
    std::string folder() const;
    std::string name() const;
    /// Another name in the same folder.
    HeldPlace sibling(const std::string& name) const;
    /// True if the operator or a setting named the file, outside the install folder.
    bool isChosen() const { return isChosen_; }

    /// Throws on failure. A link is failure 75.
    Win32Handle open(const FileOpening& opening) const;
    Win32Handle openToRead() const { return open({}); }
    /// Returns an empty handle on failure; the thread's last error is the reason.
    Win32Handle tryOpen(const FileOpening& opening) const;
    /// True for a regular file, false for a link and if nothing can be opened. Failure 75 for anything else.
    bool holdsFile() const;
    /// Removes the file. Throws on failure.
    void remove() const;
    /// Failure 58 if the target exists.
    void renameTo(const HeldPlace& target) const;

private:
    using Folders = std::vector<Win32Handle>;

    std::string path_;
    std::shared_ptr<const Folders> held_;
    bool isChosen_ = false;
};

/// Calls `act` with each name in the folder except "." and "..". Calls nothing if the folder cannot be read.
void forEachName(const std::string& nativeFolder, const std::function<void(const std::string& name)>& act);

}  // namespace orv
