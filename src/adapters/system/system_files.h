#pragma once

#include <map>

#include "adapters/system/system_parts.h"
#include "platform/machine/file_system.h"

namespace orv {

/// Files of an install. Only regular files are read or written, never a folder, a pipe or a device. A photo or log of
/// the office must have only one name. With several, another user could have linked a file that is not open to that
/// user.
class SystemFiles : public FileSystem {
public:
    explicit SystemFiles(const SystemPaths& paths) : paths_(paths) {}

    bool exists(const std::string& path) const override { return findKind(path) == Kind::File; }
    bool folderExists(const std::string& path) const override { return findKind(path) == Kind::Folder; }
    std::uint64_t fileSize(const std::string& path) const override;
    bool canOpen(const std::string& path) const override;
    /// Changes nothing if the target is the file itself or already has the same bytes.
    void copy(const std::string& from, const std::string& to) override;
    FileStream open(const std::string& path) const override { return toStream(openChecked(path)); }
    bool haveSameContent(const std::string& a, const std::string& b) const override;
    void publish(const std::string& from, const std::string& to) override;
    void write(const std::string& path, std::span<const std::uint8_t> bytes) override;
    void remove(const std::string& path) override { place(path).remove(); }
    /// Failure 58 if the target exists.
    void rename(const std::string& from, const std::string& to) override;
    void append(const std::string& path, const std::string& record) override;
    std::string read(const std::string& path, std::size_t limit) const override;
    void workIn(const std::string& folder) override;
    /// Returns "orv" in the user's state folder (XDG_STATE_HOME or ~/.local/state), or in the user's folder for local
    /// application data.
    std::string privateFolder() override;
    std::string programFolder() const override { return paths_.programFolder(); }
    std::string nativePath(const std::string& path) const override;
    std::string systemPath(const std::string& nativePath) const override;

private:
    enum class Kind { Nothing, File, Folder, Other };

    /// Throws if it cannot be determined.
    Kind findKind(const std::string& path) const;
    /// The same. A name that is not possible is failure 52.
    Kind readKind(const std::string& path) const;
    SystemWorkFolder* findWorkFolder(const std::string& path) const;
    SystemPlace place(const std::string& path) const;
    SystemHandle openChecked(const std::string& path) const;

    const SystemPaths& paths_;
    /// The key is the folder's path in capitals.
    mutable std::map<std::string, SystemWorkFolder> work_;
};

}  // namespace orv
