#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "adapters/machine/file_access.h"
#include "adapters/posix/descriptor.h"
#include "adapters/posix/file_place.h"
#include "platform/machine/file_system.h"
#include "platform/scope.h"

namespace orv {

/// Throws the RunTimeError for an errno. No other function converts errno values.
[[noreturn]] void raiseErrno(int error);
/// Like the other overload, but distinguishes a missing folder from a missing file.
[[noreturn]] void raiseErrno(int error, const std::string& nativePath);

/// An open regular file, closed when destroyed. Failure 75 for anything else (a folder, a pipe, a device).
class NativeFile {
public:
    explicit NativeFile(Descriptor opened);
    /// `flags` are those of open(2). Links are followed, so this is for files that only the administrator or the system
    /// writes.
    NativeFile(const std::string& path, int flags);

    std::uint64_t size() const { return static_cast<std::uint64_t>(facts_.st_size); }
    /// Reads the next bytes into `buffer`. Returns 0 at the end.
    std::size_t read(char* buffer, std::size_t size) const;
    void writeAll(std::string_view bytes) const;
    /// Writes at the end of the file in one call. If only a part could be written, removes it and throws.
    void append(std::string_view bytes) const;
    /// Gives a file that this run has created the permissions of its folder.
    void copyRightsFrom(int folder) const;
    /// True if text follows the last line end.
    bool endsInALine() const;
    void sync() const;

private:
    Descriptor descriptor_;
    struct stat facts_ {};
};

/// Opens a file for records that several users write. A new one gets its folder's permissions.
NativeFile openLog(const FilePlace& place);

/// A file with several names in folders is failure 75.
void requireOneName(const Descriptor& file);

/// Returns an open file as a stream.
FileStream toStream(Descriptor file);

/// Locks the file until it is closed. False if another run has locked it or the lock fails.
bool tryLock(const Descriptor& file);
/// Waits for the lock. False if the file has lost its name meanwhile.
bool waitForLock(const Descriptor& file);

/// Returns the permissions of a shared file in that folder. A user who can read or write the folder can do the same
/// with the file.
mode_t sharedRights(int folder);

/// Calls `act` with each name in the folder, in any order. Calls nothing if the folder cannot be read.
void forEachName(int folder, const std::function<void(const std::string& name)>& act);

/// A file that is written next to its target and then renamed over it. It is removed unless it was placed. Creating one
/// also removes those that crashed runs have left in the folder.
class ReplacementFile : NonCopyable {
public:
    ReplacementFile(FilePlace target, FileAccess access);
    ~ReplacementFile();

    const NativeFile& file() const { return *file_; }
    /// Writes the bytes to the disk before the rename.
    void place();
    /// Does not wait for the disk. For a file that can be created again if it is lost. Other programs still see it
    /// complete.
    void placeUnsynced();

private:
    void rename();

    FilePlace target_;
    FilePlace place_;
    FileAccess access_;
    std::unique_ptr<NativeFile> file_;
    bool placed_ = false;
};

/// Returns the whole file. Failure 7 if it is longer than `limit`.
std::string readWholeFile(const std::string& nativePath, std::size_t limit);

}  // namespace orv
