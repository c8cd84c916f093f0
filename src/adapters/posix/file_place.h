#pragma once

#include <sys/stat.h>

#include <memory>
#include <string>

#include "adapters/posix/descriptor.h"
#include "adapters/posix/install_paths.h"

namespace orv {

/// A name in a folder that is held open. Links below the base of the path are not followed, so another user's link
/// cannot redirect an access. Renaming the folder later does not matter either.
class FilePlace {
public:
    /// Failure 76 if a folder is missing. Failure 75 if a folder below the base is a link.
    explicit FilePlace(const NativePath& path);
    /// The same with a path in the system's form.
    FilePlace(const InstallPaths& paths, const std::string& path) : FilePlace(paths.split(path)) {}
    FilePlace(std::shared_ptr<const Descriptor> folder, std::string name);

    int folder() const { return folder_->number(); }
    const char* name() const { return name_.c_str(); }
    /// Returns another name in the same folder.
    FilePlace sibling(std::string name) const { return {folder_, std::move(name)}; }
    /// True if the operator named the file.
    bool isChosen() const { return isChosen_; }

    /// Never waits and never follows a link. `flags` and `rights` are those of open(2).
    Descriptor open(int flags, mode_t rights = 0) const;
    Descriptor openToRead() const;
    /// Like `open`, but returns an empty descriptor and sets errno instead of throwing.
    Descriptor tryOpen(int flags, mode_t rights = 0) const;
    /// Reads the facts of the file with this name, which can be a link. On false, errno holds the reason.
    bool look(struct stat& facts) const;
    /// True for a regular file, false for a link and if nothing is there. Failure 75 for anything else.
    bool holdsFile() const;
    /// On false, errno holds the reason.
    bool unlink() const;
    /// Removes the file. Throws on failure.
    void remove() const;
    /// Failure 58 if the target exists.
    void renameTo(const FilePlace& target) const;

private:
    std::shared_ptr<const Descriptor> folder_;
    std::string name_;
    bool isChosen_ = false;
};

}  // namespace orv
