#pragma once

#include <string>

namespace orv {

/// Turns the system's paths into absolute ones of the machine, and back. Both have drive letters and backslashes, in
/// UTF-8, or begin with a server's name ("\\server\share").
///
/// A root makes folders into drives, for tests: with the root T:\x, a folder T:\x\C is the drive C.
class DrivePaths {
public:
    /// `programFolder` is absolute. An empty root is none.
    DrivePaths(const std::string& root, const std::string& programFolder);

    /// Accepts a path with or without a drive and one that begins with a server's name. Without a drive it begins in
    /// the program's folder, or on the program's drive if it begins with a separator. No number of ".." leaves the
    /// drive. Failure 52 for an empty path, one with a NUL or a second colon, and a name of more than 255 characters.
    std::string toNative(const std::string& path) const;
    /// A path that is on no drive of the root is returned unchanged.
    std::string toSystem(const std::string& nativePath) const;
    /// Returns another form of a native path, which `toNative` accepts. It begins like no path of a setting.
    static std::string exact(const std::string& nativePath);
    /// The program's folder in the system's form, without a trailing separator.
    const std::string& programFolder() const { return programFolder_; }
    /// Returns the length of the install folder's path at the start of a native path, or 0 if the path is elsewhere.
    /// Other users can create names below that folder. The folders above it are those of the install.
    std::size_t installFolderIn(const std::string& nativePath) const;

private:
    std::string absolute(const std::string& path) const;
    std::string inRoot(const std::string& nativePath) const;

    std::string root_;
    std::string programFolder_;
    std::string installFolder_;
};

/// Returns the native folder of the running program.
std::string runningProgramFolder();

/// Returns "": on this system, drives are drives.
std::string findInstallRoot(const std::string& nativeProgramFolder);

/// Returns the path for the system's own calls. They accept it in any length and do not reinterpret its names.
std::wstring longPath(const std::string& nativePath);

}  // namespace orv
