#pragma once

#include <map>

#include "adapters/win32/drive_paths.h"
#include "adapters/win32/held_place.h"
#include "adapters/win32/run_folder.h"
#include "adapters/win32/win32_file.h"
#include "platform/machine/file_system.h"

namespace orv {

/// Files of an install. Only regular files count: a folder, a pipe or a device is never read or written. An office's
/// photo or log has one name only, because another user can add a name for a file that is closed to that user.
class Win32Files : public FileSystem {
public:
    explicit Win32Files(const DrivePaths& paths) : paths_(paths) {}

    bool exists(const std::string& path) const override;
    bool folderExists(const std::string& path) const override;
    std::uint64_t fileSize(const std::string& path) const override;
    bool canOpen(const std::string& path) const override;
    /// A target that is the file itself, or already has the same bytes, is not changed.
    void copy(const std::string& from, const std::string& to) override;
    FileStream open(const std::string& path) const override;
    bool same(const std::string& a, const std::string& b) const override;
    void publish(const std::string& from, const std::string& to) override;
    void write(const std::string& path, std::span<const std::uint8_t> bytes) override;
    void remove(const std::string& path) override;
    /// An existing target is failure 58.
    void rename(const std::string& from, const std::string& to) override;
    void append(const std::string& path, const std::string& record) override;
    std::string read(const std::string& path, std::size_t limit) const override;
    void workIn(const std::string& folder) override;
    /// "orv" in the user's folder for local application data.
    std::string privateFolder() override;
    std::string programFolder() const override { return paths_.programFolder(); }
    std::string nativePath(const std::string& path) const override;
    std::string systemPath(const std::string& nativePath) const override;

private:
    RunFolder* findRunFolder(const std::string& path) const;
    HeldPlace place(const std::string& path) const;
    Win32File opened(const std::string& path) const;
    DWORD readAttributes(const std::string& path) const;

    const DrivePaths& paths_;
    /// By the folder's path in capitals.
    mutable std::map<std::string, RunFolder> runs_;
};

}  // namespace orv
