#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "platform/scope.h"

namespace orv {

/// A folder that only this user can enter, with one new file that only this user can read. The destructor removes both.
/// The next object in the same place removes those of a killed run.
class PrivateFolder : NonCopyable {
public:
    /// Throws on failure.
    explicit PrivateFolder(const std::filesystem::path& parent);
    ~PrivateFolder();

    /// Returns the path of an empty file for the caller to write.
    std::string file() const;
    /// Gives the file another name. Does not replace a file created there meanwhile. The file gets the permissions of
    /// the file `rightsFrom`, or of its new folder if that is named. Those for all users are left out, because a store
    /// contains passwords. On Windows, it gets all that the folder passes on to its files. If `rightsFrom` is empty,
    /// only this user can open the file.
    void publish(const std::string& target, const std::filesystem::path& rightsFrom) const;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace orv
