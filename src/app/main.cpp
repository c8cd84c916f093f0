#include <sys/prctl.h>

#include <csignal>
#include <span>
#include <string>

#include "adapters/posix/install_paths.h"
#include "adapters/qt/application.h"
#include "app/compose.h"
#include "app/tie_system.h"
#include "core/flow/start.h"
#include "platform/services.h"

namespace {

/// What stands behind the program's name, as one text. No option of the toolkit is taken out of it.
std::string commandTail(std::span<char*> arguments) {
    std::string tail;
    for (const char* argument : arguments.subspan(1)) {
        tail += tail.empty() ? argument : std::string(" ") + argument;
    }
    return tail;
}

}  // namespace

int main(int argc, char* argv[]) {
    // What the program holds in memory, passwords too, is for no core file.
    ::prctl(PR_SET_DUMPABLE, 0);
    // A connection or an output that breaks while it is written to is a failure like others, not the end.
    std::signal(SIGPIPE, SIG_IGN);
    const orv::Application application(argv[0]);
    const orv::Composition composition(orv::runningProgramFolder());
    orv::services().commandTail = commandTail({argv, static_cast<std::size_t>(argc)});
    orv::tieSystem();
    orv::Main();
    return orv::services().forms->forms().empty() ? 0 : application.run();
}
