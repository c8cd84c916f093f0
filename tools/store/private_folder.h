#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace orv {

/// A folder that only this user may enter, with one new file in it that only this user may read. Both are gone with the
/// object; what a killed run has left in the same place goes with the next one.
class PrivateFolder {
public:
    /// Failure: a KeeperFailure.
    explicit PrivateFolder(const std::filesystem::path& parent);
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;
    ~PrivateFolder();

    /// The path of an empty file that the caller writes.
    std::string file() const;
    /// Gives the file that was made here another name, with these rights. One that stands there by then is not
    /// replaced.
    void publish(const std::string& target, ::mode_t rights) const;

private:
    std::filesystem::path path_;
    int folder_ = -1;  // locked as long as the run lives
    int file_ = -1;
};

/// The rights that a new store takes from a file or a folder: without those of everybody, since passwords are in it.
::mode_t rightsLike(const std::filesystem::path& model);

}  // namespace orv
