// Runs the program from its start to its first page on the screen, with the argument of the program.
#include <QApplication>

#include "adapters/posix/install_paths.h"
#include "adapters/qt/application.h"
#include "app/compose.h"
#include "app/tie_system.h"
#include "core/flow/start.h"
#include "first_paint.h"
#include "platform/services.h"

int main(int, char* argv[]) {
    const orv::Application application(argv[0]);
    EndAtFirstPaint filter;
    qApp->installEventFilter(&filter);
    const orv::Composition composition(orv::runningProgramFolder());
    orv::services().commandTail = argv[1];
    orv::tieSystem();
    orv::Main();
    return application.run();
}
