#pragma once

#include "adapters/posix/install_paths.h"
#include "platform/machine/file_system.h"
#include "platform/suite/file_service.h"

namespace orv {

/// Files of an install. Only regular files count: a folder, a pipe or a device is never read or written.
class PosixFiles : public FileSystem {
public:
    explicit PosixFiles(const InstallPaths& paths) : paths_(paths) {}

    bool exists(const std::string& path) const override;
    bool folderExists(const std::string& path) const override;
    std::uint64_t sizeOf(const std::string& path) const override;
    bool canOpen(const std::string& path) const override;
    /// A target that is the file itself, or holds the same bytes already, stays as it is.
    void copy(const std::string& from, const std::string& to) override;
    void share(const std::string& path) override;
    void remove(const std::string& path) override;
    /// A target that is there is failure 58.
    void rename(const std::string& from, const std::string& to) override;
    void append(const std::string& path, const std::string& record) override;
    std::string read(const std::string& path, std::size_t limit) const override;
    std::string programFolder() const override { return paths_.programFolder(); }
    std::string nativePath(const std::string& path) const override { return paths_.toNative(path); }
    std::string systemPath(const std::string& nativePath) const override { return paths_.toSystem(nativePath); }

private:
    bool isOfType(const std::string& path, unsigned type) const;

    const InstallPaths& paths_;
};

/// Deletes by a FileSystem, and tells the operator which file could not go and why.
class PosixFileService : public FileService {
public:
    explicit PosixFileService(FileSystem& files) : files_(files) {}

    void FileDelete(const std::string& path, bool& ok) override;
    FailureRecord FileError() const override { return failure_; }

private:
    FileSystem& files_;
    FailureRecord failure_;
};

}  // namespace orv
