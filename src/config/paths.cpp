#include "config/paths.h"

#include "validation/text/text_bytes.h"

namespace orv {

std::string P_AddBackslash(const std::string& path) {
    if (path.empty() || PF_RightB(path, 1) == "\\") {
        return path;
    }
    return path + "\\";
}

}  // namespace orv
