#include <sys/prctl.h>

#include <csignal>

#include "adapters/machine/own_process.h"

namespace orv {

void keepMemoryPrivate() { ::prctl(PR_SET_DUMPABLE, 0); }

void surviveBrokenConnections() { std::signal(SIGPIPE, SIG_IGN); }

void writeUtf8ToConsole() {}

std::vector<std::string> programArguments(int count, char* arguments[]) {
    return count > 0 ? std::vector<std::string>(arguments + 1, arguments + count) : std::vector<std::string>();
}

}  // namespace orv
