#pragma once

#include <sys/stat.h>

#include <memory>
#include <string>

#include "adapters/posix/descriptor.h"
#include "adapters/posix/install_paths.h"

namespace orv {

/// A name in a folder that is held open. No link is followed below the base of the path, so that a link that somebody
/// has put there leads nowhere, and renaming the folder afterwards changes nothing.
class FilePlace {
public:
    /// Failure 76: a folder is missing. Failure 75: a folder below the base is a link.
    explicit FilePlace(const NativePath& path);
    FilePlace(std::shared_ptr<const Descriptor> folder, std::string name);

    int folder() const { return folder_->number(); }
    const char* name() const { return name_.c_str(); }
    /// Another name in the same folder.
    FilePlace sibling(std::string name) const { return {folder_, std::move(name)}; }

    /// Never waits and never follows a link; `flags` and `rights` as of open(2).
    Descriptor open(int flags, mode_t rights = 0) const;
    /// The same; an empty descriptor and errno instead of a failure.
    Descriptor tryOpen(int flags, mode_t rights = 0) const;
    /// Reads the facts of what has the name, which can be a link. False: errno says why not.
    bool look(struct stat& facts) const;
    /// False: errno says why not.
    bool unlink() const;

private:
    std::shared_ptr<const Descriptor> folder_;
    std::string name_;
};

}  // namespace orv
