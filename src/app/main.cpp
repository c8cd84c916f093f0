#include <sys/prctl.h>

#include <csignal>
#include <span>
#include <string>

#include "adapters/qt/application.h"
#include "adapters/system/system_adapters.h"
#include "app/compose.h"
#include "app/tie_system.h"
#include "core/flow/start.h"
#include "platform/services.h"

namespace {

/// Joins the arguments of the program into one text. Options of the toolkit are not removed from it.
std::string commandTail(std::span<char*> arguments) {
    std::string tail;
    for (const char* argument : arguments.subspan(1)) {
        tail += tail.empty() ? argument : std::string(" ") + argument;
    }
    return tail;
}

}  // namespace

int main(int argc, char* argv[]) {
    // Never write the program's memory, which can contain passwords, to a core file.
    ::prctl(PR_SET_DUMPABLE, 0);
    // Handle a broken connection or output like other failures, instead of being ended by the signal.
    std::signal(SIGPIPE, SIG_IGN);
    const orv::Application application(argv[0]);
    const orv::Composition composition(orv::runningProgramFolder());
    orv::services().commandTail = commandTail({argv, static_cast<std::size_t>(argc)});
    orv::tieSystem();
    orv::Main();
    return orv::services().forms->forms().empty() ? 0 : application.run();
}
