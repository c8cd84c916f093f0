#pragma once

#include <string>

namespace orv {

/// A native path in two parts. `base` is a folder named by the install, a setting or the operator, who are responsible
/// for links in it. The names in `below` can have been created by any user with access to the base.
struct NativePath {
    std::string base;
    std::string below;
    /// True if the operator named the file itself. `below` is its name then.
    bool chosen = false;
};

/// Returns a path that the operator or the program itself has named completely.
NativePath chosenPath(const std::string& nativePath);

/// Converts the system's own paths to native ones and back.
///
/// The root of an install is a native folder with one sub-folder per drive letter: C:\ORV\SYS\system.ini is
/// <root>/C/ORV/SYS/system.ini. Names are found in any case. A name that does not exist keeps its spelling, so that it
/// can be created. ".." never leads out of the drive.
class InstallPaths {
public:
    /// Both folders must be absolute. A program folder outside the drives keeps its native form.
    InstallPaths(const std::string& nativeRoot, const std::string& nativeProgramFolder);

    /// Accepts a path with a drive, one without a drive (below the program's folder) and a native absolute path, which
    /// is returned unchanged. Failure 52 for an empty path or one that contains a NUL.
    std::string toNative(const std::string& path) const;
    /// Like `toNative`, but returns the two parts.
    NativePath split(const std::string& path) const;
    /// A path that is not on a drive of the install keeps its native form.
    std::string toSystem(const std::string& nativePath) const;
    /// Returns the program's folder in the system's form, without a trailing separator.
    const std::string& programFolder() const { return programFolder_; }

private:
    std::string withPlace(const std::string& path) const;
    std::string onDrive(char letter, std::string_view path) const;

    std::string root_;
    std::string programFolder_;
};

/// Returns the native folder that contains the running program.
std::string runningProgramFolder();

/// Returns the root of the install to which a program's folder belongs. The nearest parent folder whose name is one
/// capital letter is the drive, and the root is its parent. Without such a folder, the root is the parent of the
/// program's folder.
std::string findInstallRoot(const std::string& nativeProgramFolder);

}  // namespace orv
