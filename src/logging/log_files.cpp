#include "logging/log_files.h"

namespace orv {

LogFiles& logFiles() {
    static LogFiles theLogFiles;
    return theLogFiles;
}

}  // namespace orv
