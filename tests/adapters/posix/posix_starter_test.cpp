#include "adapters/posix/posix_starter.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <chrono>
#include <thread>

#include "support/temp_office.h"

namespace orv {
namespace {

class PosixStarterTest : public testing::Test {
protected:
    /// Installs a program of the suite that writes each argument in brackets to <root>/out.
    void installEcho(const std::string& place) const {
        const std::string out = office.root() + "/out";
        ::chmod(
            office.write(place, "#!/bin/sh\nprintf '[%s]' \"$@\" > " + out + ".new\nmv " + out + ".new " + out + "\n")
                .c_str(),
            0755);
    }

    /// Waits for the started program's output and returns it.
    std::string output() const {
        using namespace std::chrono_literals;
        for (int tries = 0; tries < 18000 && !office.has("out"); ++tries) std::this_thread::sleep_for(10ms);
        const std::string bytes = office.readBytes("out");
        std::filesystem::remove(office.root() + "/out");
        return bytes;
    }

    TempOffice office;
    PosixStarter starter{office.paths()};
};

TEST_F(PosixStarterTest, PartsTheCommandLine) {
    installEcho("C/ORV/BIN/KELT_MENU.EXE");
    installEcho("C/My Suite/bin/tool.exe");
    const std::pair<const char*, const char*> cases[] = {
        {"C:\\ORV\\BIN\\KELT_MENU.EXE COS", "[COS]"},
        {"KELT_MENU.EXE \"000004601,1,0\" \"\" x\" y \"z", "[000004601,1,0][][x y z]"},
        {"\"C:\\My Suite\\BIN\\TOOL\" \"C:\\A\\\" 港区", "[C:\\A\\][港区]"},
        {"C:\\My Suite\\BIN\\TOOL.EXE 1 2", "[1][2]"},
        {"KELT_MENU.EXE $(id) `id` ;id", "[$(id)][`id`][;id]"},
    };
    for (const auto& [commandLine, expected] : cases) {
        starter.start(commandLine);
        EXPECT_EQ(output(), expected) << commandLine;
    }
}

TEST_F(PosixStarterTest, AnUnusableProgramIsFailure53) {
    ::chmod(office.write("C/ORV/BIN/NOSHELL.EXE", "#!/no/such/shell\n").c_str(), 0755);
    office.write("C/ORV/BIN/NORIGHTS.EXE", "#!/bin/sh\n");
    const std::string commandLines[] = {"",         "\"\"",    "NO.EXE", "C:\\NO\\A.EXE COS",
                                        "NORIGHTS", "NOSHELL", "C:\\",   std::string(100'000, 'x')};
    for (const auto& commandLine : commandLines) {
        EXPECT_EQ(catchFailure([&] { starter.start(commandLine); }), 53) << commandLine.substr(0, 80);
    }
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
}

}  // namespace
}  // namespace orv
