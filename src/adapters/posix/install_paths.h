#pragma once

#include <string>

namespace orv {

/// A native path in two parts. `base` is a folder that the install, a setting or the operator has named: links on the
/// way to it are theirs. What is `below` has names that anybody with access to the base can have made.
struct NativePath {
    std::string base;
    std::string below;
    /// The operator has named the file itself: `below` is its name.
    bool chosen = false;
};

/// A path that the operator or the program itself has named as a whole.
NativePath chosenPath(const std::string& nativePath);

/// Turns the system's own paths into native ones and back.
///
/// The root of an install is a native folder with one sub-folder per drive letter: C:\ORV\SYS\system.ini lies at
/// <root>/C/ORV/SYS/system.ini. Names are found whatever their case; one that is not there yet stays as written, so
/// that it can be created. No number of ".." leads out of the drive.
class InstallPaths {
public:
    /// Both folders absolute. Where the program lies outside the drives, its folder keeps its native form.
    InstallPaths(const std::string& nativeRoot, const std::string& nativeProgramFolder);

    /// Accepts a drive path, a path below the program's folder (no drive), and a native absolute path, which passes as
    /// it is. An empty path, or one with a NUL in it, is failure 52.
    std::string toNative(const std::string& path) const;
    /// The same in its parts.
    NativePath split(const std::string& path) const;
    /// What lies on no drive of the install keeps its native form.
    std::string toSystem(const std::string& nativePath) const;
    /// The program's folder in the system's form, without a trailing separator.
    const std::string& programFolder() const { return programFolder_; }

private:
    std::string withPlace(const std::string& path) const;
    std::string onDrive(char letter, std::string_view path) const;

    std::string root_;
    std::string programFolder_;
};

/// The native folder that the running program lies in.
std::string runningProgramFolder();

/// The root of the install that a program's folder belongs to. The nearest folder upwards with one capital letter as
/// its name is the drive, and the root is what holds it; where there is none, the root is what holds the program's
/// folder.
std::string findInstallRoot(const std::string& nativeProgramFolder);

}  // namespace orv
