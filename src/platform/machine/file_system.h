#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <span>
#include <string>

#include "platform/scope.h"

namespace orv {

struct CloseStream {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using FileStream = std::unique_ptr<std::FILE, CloseStream>;

/// Accesses files by the system's own paths: drive letter, backslashes, case-insensitive names. A failure throws a
/// RunTimeError (53, 57, 61, 70, 75, 76) and leaves the target unchanged.
class FileSystem : public Interface {
public:
    /// True for a file, including hidden, system and read-only ones; false for a folder. Throws if it cannot be
    /// determined (no rights, I/O error), so that callers do not mistake it for a missing file.
    virtual bool exists(const std::string& path) const = 0;
    /// The same for a folder.
    virtual bool folderExists(const std::string& path) const = 0;
    virtual std::uint64_t fileSize(const std::string& path) const = 0;
    /// True if the file can be opened for reading. Never throws.
    virtual bool canOpen(const std::string& path) const = 0;
    /// Opens the file for reading. Like every operation below except `read`, this follows no link, because other users
    /// can create links among the office's files. A link is failure 75.
    virtual FileStream open(const std::string& path) const = 0;
    /// True if both files have the same content. A file that cannot be read counts as different.
    virtual bool haveSameContent(const std::string& a, const std::string& b) const = 0;
    /// Creates the copy next to the target and renames it, so that no reader sees a partial file. Only this user can
    /// read the copy.
    virtual void copy(const std::string& from, const std::string& to) = 0;
    /// The same, but the copy gets its folder's permissions.
    virtual void publish(const std::string& from, const std::string& to) = 0;
    /// The same with bytes. Does not flush to the disk, so use it only for a file that can be created again.
    virtual void write(const std::string& path, std::span<const std::uint8_t> bytes) = 0;
    virtual void remove(const std::string& path) = 0;
    virtual void rename(const std::string& from, const std::string& to) = 0;
    /// Appends a record in one write. A missing file is created with its folder's permissions; a missing folder is not
    /// created. If a crashed run left an unfinished record, that is ended first. Failure 75 if this user cannot write
    /// the file, it has other hard links, or it is not a file.
    virtual void append(const std::string& path, const std::string& record) = 0;
    /// Returns the content as bytes. A content longer than `limit` is failure 7.
    virtual std::string read(const std::string& path, std::size_t limit) const = 0;
    /// Makes the names in this folder, whose path ends in a separator, private to this run. Other runs do not see these
    /// files, and other users cannot open them. Files of this user's ended runs are removed. `systemPath` leaves
    /// native paths in the folder unchanged. Never throws.
    virtual void workIn(const std::string& /*folder*/) {}
    /// Returns this user's private folder without a trailing separator, and creates it if missing. It remains when the
    /// run ends.
    virtual std::string privateFolder() = 0;
    /// Returns the folder of the running program in the system's form, without a trailing separator.
    virtual std::string programFolder() const = 0;
    /// Returns the path in the machine's form, for the libraries used by adapters.
    virtual std::string nativePath(const std::string& path) const = 0;
    /// The reverse. A path outside the system's drives is returned unchanged, and the other operations accept it.
    virtual std::string systemPath(const std::string& nativePath) const = 0;
};

}  // namespace orv
