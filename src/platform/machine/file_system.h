#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <span>
#include <string>

namespace orv {

struct CloseStream {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using FileStream = std::unique_ptr<std::FILE, CloseStream>;

/// Files by the system's own paths: a drive letter, backslashes, names without regard to case. A failure raises a
/// RunTimeError (53, 57, 61, 70, 75, 76) and leaves whatever stood at the target as it was.
class FileSystem {
public:
    FileSystem() = default;
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;
    virtual ~FileSystem() = default;

    /// Whether a file stands there; hidden, system and read-only ones count, folders do not. Where that can't be told,
    /// for want of rights or by a broken disk, it is a failure: such a file must not pass for one that has gone.
    virtual bool exists(const std::string& path) const = 0;
    /// The same for a folder.
    virtual bool folderExists(const std::string& path) const = 0;
    virtual std::uint64_t sizeOf(const std::string& path) const = 0;
    /// Whether the file can be opened for reading. Never raises.
    virtual bool canOpen(const std::string& path) const = 0;
    /// The file for reading. Like every operation below but `read`, it follows no link that somebody can have put among
    /// the files of the office; that is failure 75.
    virtual FileStream open(const std::string& path) const = 0;
    /// Whether both files hold the same bytes. A file that can't be read has none.
    virtual bool same(const std::string& a, const std::string& b) const = 0;
    /// Made beside the target and put in place by one rename, so that no reader sees half a file. Only this user may
    /// read the copy.
    virtual void copy(const std::string& from, const std::string& to) = 0;
    /// The same for a copy that has the permissions of its folder.
    virtual void publish(const std::string& from, const std::string& to) = 0;
    /// The same with bytes. Nothing is written through to the disk: for a file that is made again when it is lost.
    virtual void write(const std::string& path, std::span<const std::uint8_t> bytes) = 0;
    virtual void remove(const std::string& path) = 0;
    virtual void rename(const std::string& from, const std::string& to) = 0;
    /// Opens, appends in one write, closes; a missing file is created with the permissions of its folder, a missing
    /// folder is not. A record that a dying run has left half gets its line end first. Failure 75: this user may not
    /// write the file, or it has other names, or is no file.
    virtual void append(const std::string& path, const std::string& record) = 0;
    /// The whole file as bytes; longer than `limit` is failure 7.
    virtual std::string read(const std::string& path, std::size_t limit) const = 0;
    /// From now on the names in this folder, whose path ends in a separator, are the run's own: other runs do not see
    /// these files, and other users can't get at them. What ended runs of this user have left in it is removed. Files
    /// in the folder itself keep their native path. Never raises.
    virtual void workIn(const std::string& /*folder*/) {}
    /// A folder of this user alone that stays when the run ends, without a trailing separator. Made when missing.
    virtual std::string privateFolder() = 0;
    /// The folder of the running program, in the system's form, without a trailing separator.
    virtual std::string programFolder() const = 0;
    /// The same place in the form of the machine, for the libraries behind the interfaces.
    virtual std::string nativePath(const std::string& path) const = 0;
    /// The way back; a place on no drive of the system keeps its form, and is understood all the same.
    virtual std::string systemPath(const std::string& nativePath) const = 0;
};

}  // namespace orv
