#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "adapters/machine/file_access.h"
#include "adapters/win32/held_place.h"
#include "adapters/win32/win32_handle.h"
#include "platform/machine/file_system.h"
#include "platform/scope.h"

namespace orv {

/// An open regular file, closed by the destructor. Anything else (a folder, a pipe, a device) is failure 75 at once.
class Win32File {
public:
    explicit Win32File(Win32Handle opened);

    HANDLE handle() const { return handle_.get(); }
    std::uint64_t size() const { return size_; }
    /// Reads the next bytes into `buffer`. Returns 0 at the end.
    std::size_t read(char* buffer, std::size_t size) const;
    void writeAll(std::string_view bytes) const;
    /// Writes at the end, whatever other programs have written meanwhile. A write that stopped half-way is undone and
    /// is a failure.
    void append(std::string_view bytes) const;
    /// True if there is something after the last line end.
    bool endsInALine() const;
    /// Waits until the disk has the content.
    void flush() const;
    /// The caller closes the handle.
    HANDLE release() { return handle_.release(); }

private:
    Win32Handle handle_;
    std::uint64_t size_ = 0;
};

/// Opens a file for records that several users write. A new one gets the access list of its folder.
Win32File openLog(const HeldPlace& place);

/// A file with several names in folders is failure 75.
void requireOneName(const Win32Handle& file);

/// Returns an open file as a stream.
FileStream toStream(Win32Handle opened);

/// Takes the lock of an open file until the file is closed. False if another run has it.
bool tryLock(HANDLE file);

/// A file that is written next to its target and then takes the target's name in one step. The destructor removes it
/// unless it was placed. Files that crashed runs left in the folder are removed by the next one created there.
class FileNextTo : NonCopyable {
public:
    FileNextTo(const HeldPlace& target, FileAccess access);
    ~FileNextTo();

    /// Only until the file is placed.
    const Win32File& file() const { return *file_; }
    /// The content is on the disk before the name is.
    void place();
    /// For a file that can be created again if it is lost: complete for every program, but not waited for.
    void placeUnsynced();

private:
    void rename(DWORD flags);

    HeldPlace target_;
    HeldPlace place_;
    std::unique_ptr<Win32File> file_;
    bool placed_ = false;
};

/// Returns the whole file. Content longer than `limit` is failure 7.
std::string readWholeFile(const std::string& nativePath, std::size_t limit);

}  // namespace orv
