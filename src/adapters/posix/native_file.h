#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "adapters/posix/descriptor.h"
#include "adapters/posix/file_place.h"

namespace orv {

/// The one place where an errno becomes a RunTimeError.
[[noreturn]] void raiseErrno(int error);
/// The same; tells a missing folder from a missing file.
[[noreturn]] void raiseErrno(int error, const std::string& nativePath);

/// An open regular file, closed when it goes. Anything else (a folder, a pipe, a device) is failure 75 at once.
class NativeFile {
public:
    explicit NativeFile(Descriptor opened);
    /// `flags` as of open(2). Links are followed: for files that only the keeper of the install or the system writes.
    NativeFile(const std::string& path, int flags);

    const struct stat& facts() const { return facts_; }
    /// The next bytes into `buffer`; 0 at the end.
    std::size_t read(char* buffer, std::size_t size) const;
    void writeAll(std::string_view bytes) const;
    /// One write at the end. A write that stopped half-way is taken back and is a failure.
    void append(std::string_view bytes) const;
    /// Gives a file that this run has made the permissions of the folder that it is in.
    void copyRightsFrom(int folder) const;
    /// Whether something stands behind its last line end.
    bool endsInALine() const;
    void sync() const;

private:
    Descriptor descriptor_;
    struct stat facts_ {};
};

/// Takes the file's lock for as long as the file is open; false when another run has it, or it can't be had.
bool tryLock(const Descriptor& file);
/// Waits for the lock. False when the file has lost its name meanwhile.
bool waitForLock(const Descriptor& file);

/// The permissions that a shared file in that folder has: who may read or write the folder may do so with the file.
mode_t sharedRights(int folder);

/// Calls `act` with each name in the folder, in no order; with none when the folder can't be read.
void forEachName(int folder, const std::function<void(const std::string& name)>& act);

/// A file of this user alone that grows beside its target and takes its place by one rename. It removes itself unless
/// it was placed; those that runs which died have left in the folder are removed by the next one made there.
class ReplacementFile {
public:
    explicit ReplacementFile(FilePlace target);
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;
    ~ReplacementFile();

    const NativeFile& file() const { return *file_; }
    /// The bytes are on the disk before the name is.
    void place();
    /// For a file that is made again when it is lost: whole to every program, but nothing is waited for.
    void placeUnsynced();

private:
    void rename();

    FilePlace target_;
    FilePlace place_;
    std::unique_ptr<NativeFile> file_;
    bool placed_ = false;
};

/// The whole file; longer than `limit` is failure 7.
std::string readWholeFile(const std::string& nativePath, std::size_t limit);

}  // namespace orv
