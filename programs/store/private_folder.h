#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace orv {

/// A folder that only this user can enter, with one new file that only this user can read. The destructor removes both.
/// The next object in the same place removes those of a killed run.
class PrivateFolder {
public:
    /// Throws a KeeperFailure on failure.
    explicit PrivateFolder(const std::filesystem::path& parent);
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;
    ~PrivateFolder();

    /// Returns the path of an empty file for the caller to write.
    std::string file() const;
    /// Gives the file another name, with these permissions. Does not replace a file created there meanwhile.
    void publish(const std::string& target, ::mode_t rights) const;

private:
    std::filesystem::path path_;
    int folder_ = -1;  // locked during the run
    int file_ = -1;
};

/// Returns the permissions for a new store, from a file or folder. Those for all users are removed, because it contains
/// passwords.
::mode_t rightsLike(const std::filesystem::path& model);

}  // namespace orv
