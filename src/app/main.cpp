#include <string>
#include <vector>

#include "adapters/machine/own_process.h"
#include "adapters/qt/application.h"
#include "adapters/system/system_adapters.h"
#include "app/compose.h"
#include "app/tie_system.h"
#include "core/flow/start.h"
#include "platform/services.h"

namespace {

/// Joins the arguments of the program into one text. Options of the toolkit are not removed from it.
std::string commandTail(const std::vector<std::string>& arguments) {
    std::string tail;
    for (const std::string& argument : arguments) {
        tail += tail.empty() ? argument : " " + argument;
    }
    return tail;
}

}  // namespace

int main(int argc, char* argv[]) {
    orv::keepMemoryPrivate();
    orv::surviveBrokenConnections();
    const orv::Application application(argv[0]);
    const orv::Composition composition(orv::runningProgramFolder());
    orv::services().commandTail = commandTail(orv::programArguments(argc, argv));
    orv::tieSystem();
    orv::Main();
    return orv::services().forms->forms().empty() ? 0 : application.run();
}
