#include "adapters/posix/posix_starter.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cerrno>
#include <chrono>
#include <thread>
#include <utility>

#include "temp_office.h"

namespace orv {
namespace {

class PosixStarterTest : public testing::Test {
protected:
    /// A program of the suite that writes each argument in brackets to <root>/out.
    void install(const std::string& place, const std::string& body) const {
        const std::string out = office.root() + "/out";
        ::chmod(office.write(place, "#!/bin/sh\n{ " + body + "; } > " + out + ".new\nmv " + out + ".new " + out + "\n")
                    .c_str(),
                0755);
    }
    void installEcho(const std::string& place) const { install(place, "printf '[%s]' \"$@\""); }

    /// What the started program has written, once it has.
    std::string output() const {
        using namespace std::chrono_literals;
        for (int tries = 0; tries < 1000 && !office.has("out"); ++tries) {
            std::this_thread::sleep_for(10ms);
        }
        const std::string bytes = office.bytesOf("out");
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
        {"  c:\\orv\\bin\\kelt_menu\t a  b ", "[a][b]"},
        {"KELT_MENU.EXE \"000004601,1,0\" \"\" x\" y \"z", "[000004601,1,0][][x y z]"},
        {"\"C:\\My Suite\\BIN\\TOOL\" \"C:\\A\\\" 港区", "[C:\\A\\][港区]"},
        {"C:\\My Suite\\BIN\\TOOL.EXE 1 2", "[1][2]"},
        {"\"C:\\ORV\\BIN\\KELT_MENU.EXE\"COS \"open", "[COS][open]"},
        {"KELT_MENU.EXE $(id) `id` ;id", "[$(id)][`id`][;id]"},
    };
    for (const auto& [commandLine, expected] : cases) {
        starter.start(commandLine);
        EXPECT_EQ(output(), expected) << commandLine;
    }
}

TEST_F(PosixStarterTest, ProgramIsOnItsOwn) {
    install("C/ORV/BIN/A.EXE", "cut -d' ' -f6 /proc/$$/stat; ls /proc/$$/fd; readlink /proc/$$/fd/0");
    const int inherited = ::open("/dev/null", O_RDONLY);  // not marked close-on-exec, as a library may forget
    const int high = ::dup2(inherited, 77);
    starter.start("A");
    ::close(high);
    ::close(inherited);
    const std::string seen = output();
    EXPECT_NE(std::stoi(seen), ::getsid(0));
    EXPECT_EQ(seen.find("\n77\n"), std::string::npos) << seen;
    EXPECT_NE(seen.find("/dev/null\n"), std::string::npos) << seen;
}

TEST_F(PosixStarterTest, NeitherWaitsNorLeavesAZombie) {
    install("C/ORV/BIN/A.EXE", "while [ ! -e " + office.root() + "/go ]; do sleep 0.05; done; echo done");
    starter.start("A");
    EXPECT_FALSE(office.has("out"));
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
    office.write("go", "");
    EXPECT_EQ(output(), "done\n");
}

TEST_F(PosixStarterTest, WhatCannotRunIsFailure53) {
    office.write("C/ORV/BIN/NORIGHTS.EXE", "#!/bin/sh\n");
    ::chmod(office.write("C/ORV/BIN/GARBAGE.EXE", "\x01\x02\x03").c_str(), 0755);
    ::chmod(office.write("C/ORV/BIN/NOSHELL.EXE", "#!/no/such/shell\n").c_str(), 0755);
    std::filesystem::create_directories(office.root() + "/C/ORV/BIN/FOLDER.EXE");
    installEcho("C/ORV/BIN/LONG.EXE");
    installEcho("C/ORV/BIN/DOTTED.COM.EXE");
    const std::string commandLines[] = {"",
                                        "\"",
                                        "\"\"",
                                        "NO.EXE",
                                        "DOTTED.COM",
                                        "C:\\NO\\A.EXE COS",
                                        "NORIGHTS.EXE",
                                        "GARBAGE",
                                        "NOSHELL",
                                        "FOLDER",
                                        "FOLDER.EXE x",
                                        std::string(1, '\0'),
                                        std::string(100'000, 'x'),
                                        "LONG " + std::string(5'000'000, 'x')};
    for (const auto& commandLine : commandLines) {
        EXPECT_EQ(failureOf([&] { starter.start(commandLine); }), 53) << commandLine.substr(0, 80);
    }
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
}

}  // namespace
}  // namespace orv
