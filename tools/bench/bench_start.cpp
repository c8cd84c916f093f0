#include <filesystem>
#include <stdexcept>

#include "bench.h"
#include "ui_driver.h"

namespace bench {

Result measureStart(const std::string& folder) {
    const ui_driver::VirtualDisplay display;
    const ui_driver::Office office(folder + "/start-office", "1");
    const std::string program = (office.drive() / "ORV/BIN/START.EXE").string();
    std::filesystem::copy_file(START_OURS, program, std::filesystem::copy_options::overwrite_existing);
    const ui_driver::Environment environment{
        {"DISPLAY", display.name()}, {"QT_QPA_PLATFORM", "xcb"}, {"ORV_SCALE", "1"}};
    const auto ended = [&](const std::vector<std::string>& command) {
        if (ui_driver::Process(command, environment).wait(std::chrono::seconds(20)) != 0) {
            throw std::runtime_error(command.front() + " did not show its first page");
        }
    };
    return alternately(
        41,
        [&] {
            ended({program, "000004601,1,0"});
        },
        [&] { ended({START_PEER}); },
        // A session releases its lock when it ends properly, but the program is ended here at its first page.
        [&] { office.change("delete from TBL_LOCK where USER_ID = '000004601'"); });
}

}  // namespace bench
