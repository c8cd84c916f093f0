#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "adapters/system/system_adapters.h"
#include "support/temp_office.h"

namespace orv {
namespace {

class StarterContract : public testing::Test {
protected:
    void install(const std::string& place) const {
        std::filesystem::create_directories(std::filesystem::path(office.file(place)).parent_path());
        std::filesystem::copy_file(ECHO_PROGRAM, office.file(place));
    }
    /// Waits for the program's output in that folder and returns it.
    std::string output(const std::string& folder) const {
        using namespace std::chrono_literals;
        for (int tries = 0; tries < 18000 && !office.has(folder + "/out"); ++tries) std::this_thread::sleep_for(10ms);
        const std::string bytes = office.readBytes(folder + "/out");
        std::filesystem::remove(office.file(folder + "/out"));
        return bytes;
    }

    TempOffice office;
    SystemStarter starter{office.paths()};
};

TEST_F(StarterContract, FindsTheProgramAndPassesTheArguments) {
    install("C/ORV/BIN/KELT_MENU.EXE");
    install("C/My Suite/bin/tool.exe");
    const struct {
        const char *folder, *commandLine, *arguments;
    } cases[] = {
        {"C/ORV/BIN", "C:\\ORV\\BIN\\KELT_MENU.EXE COS", "[COS]"},
        {"C/ORV/BIN", "KELT_MENU.EXE \"000004601,1,0\" \"\" x\" y \"z", "[000004601,1,0][][x y z]"},
        {"C/My Suite/bin", "\"C:\\My Suite\\BIN\\TOOL\" C:\\A\\ 12,13", "[C:\\A\\][12,13]"},
        {"C/My Suite/bin", "C:\\My Suite\\BIN\\TOOL.EXE 1 2", "[1][2]"},
        {"C/ORV/BIN", "KELT_MENU.EXE $(id) `id` ;id", "[$(id)][`id`][;id]"},
    };
    for (const auto& c : cases) {
        starter.start(c.commandLine);
        EXPECT_EQ(output(c.folder), c.arguments) << c.commandLine;
    }
}

TEST_F(StarterContract, AProgramThatCannotStartIsFailure53) {
    office.write("C/ORV/BIN/NOPROG.EXE", "text");
    for (const std::string& commandLine :
         {std::string(), std::string("\"\""), std::string("NO.EXE"), std::string("C:\\NO\\A.EXE COS"),
          std::string("NOPROG"), std::string("C:\\"), std::string(100'000, 'x')}) {
        EXPECT_EQ(catchFailure([&] { starter.start(commandLine); }), 53) << commandLine.substr(0, 80);
    }
}

}  // namespace
}  // namespace orv
