#pragma once

#include "adapters/system/system_adapters.h"

namespace orv {

/// The machine's own files with their native paths.
class NativeFiles : public SystemFiles {
public:
    NativeFiles() : SystemFiles(noInstall()) {}

private:
    static const SystemPaths& noInstall() {
        static const SystemPaths paths(findInstallRoot("/no install/C"), "/no install");
        return paths;
    }
};

/// For those who ask for the native place of a path only.
inline NativeFiles& nativePaths() {
    static NativeFiles paths;
    return paths;
}

}  // namespace orv
