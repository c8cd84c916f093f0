#pragma once

#include "adapters/posix/posix_files.h"

namespace orv {

/// The machine's own files with their native paths.
class NativeFiles : public PosixFiles {
public:
    NativeFiles() : PosixFiles(noInstall()) {}

private:
    static const InstallPaths& noInstall() {
        static const InstallPaths paths("/no install", "/no install");
        return paths;
    }
};

/// For those who ask for the native place of a path only.
inline NativeFiles& nativePaths() {
    static NativeFiles paths;
    return paths;
}

}  // namespace orv
