#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace orv {

/// The one place where an errno becomes a RunTimeError. `nativePath` tells a missing file from a missing folder.
[[noreturn]] void raiseErrno(int error, const std::string& nativePath);

/// An open regular file, closed when it goes. Anything else (a folder, a pipe, a device) is failure 75 at once.
class NativeFile {
public:
    /// `flags` as of open(2).
    NativeFile(std::string path, int flags);
    NativeFile(const NativeFile&) = delete;
    NativeFile& operator=(const NativeFile&) = delete;
    ~NativeFile();

    const struct stat& facts() const { return facts_; }
    /// The next bytes into `buffer`; 0 at the end.
    std::size_t read(char* buffer, std::size_t size) const;
    void writeAll(std::string_view bytes) const;
    /// One write at the end. A write that stopped half-way is taken back and is a failure.
    void append(std::string_view bytes) const;
    /// Whoever may read or write the file's folder may do so with the file. A file of another user stays as it is.
    void takeRightsOfFolder() const;
    /// Whether something stands behind its last line end.
    bool endsInALine() const;
    void sync() const;
    /// Takes the file's lock for as long as the file is open here; false when another run has it, or can't be had.
    bool lock() const;
    /// Waits for the lock. False when the file has lost its name meanwhile.
    bool waitForLock() const;

private:
    std::string path_;
    int descriptor_;
    struct stat facts_ {};
};

/// A file of this user alone that grows beside its target and takes its place by one rename. It removes itself unless
/// it was placed; those that runs which died have left in the folder are removed by the next one made there.
class FileBeside {
public:
    explicit FileBeside(std::string target);
    FileBeside(const FileBeside&) = delete;
    FileBeside& operator=(const FileBeside&) = delete;
    ~FileBeside();

    const NativeFile& file() const { return *file_; }
    /// The bytes are on the disk before the name is.
    void place();
    /// For a file that is made again when it is lost: whole to every program, but nothing is waited for.
    void placeUnsynced();

private:
    void rename();

    std::string target_;
    std::string path_;
    std::unique_ptr<NativeFile> file_;
    bool placed_ = false;
};

/// The whole file; longer than `limit` is failure 7.
std::string readWholeFile(const std::string& nativePath, std::size_t limit);

}  // namespace orv
