#include <filesystem>

#include "bench.h"
#include "desk.h"

namespace bench {

Result start(const std::string& folder) {
    const desk::VirtualDisplay display;
    const desk::Office office(folder + "/start-office", "1");
    const std::string program = (office.drive() / "ORV/BIN/START.EXE").string();
    std::filesystem::copy_file(START_OURS, program, std::filesystem::copy_options::overwrite_existing);
    const desk::Environment environment{{"DISPLAY", display.name()}, {"QT_QPA_PLATFORM", "xcb"}, {"ORV_SCALE", "1"}};
    const auto ended = [&](const std::vector<std::string>& command) {
        desk::Process process(command, environment);
        process.wait(std::chrono::seconds(20));
    };
    return alternately(
        25,
        [&] {
            ended({program, "000004601,1,0"});
        },
        [&] { ended({START_PEER}); });
}

}  // namespace bench
