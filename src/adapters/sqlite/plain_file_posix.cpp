#include <sys/stat.h>

#include "adapters/sqlite/plain_file.h"

namespace orv {

bool isPlainOrMissing(const char* path) {
    struct stat facts {};
    return ::lstat(path, &facts) != 0 || (S_ISREG(facts.st_mode) && facts.st_nlink == 1);
}

}  // namespace orv
