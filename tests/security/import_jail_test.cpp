#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <functional>

#include "jet_file.h"
#include "keeper.h"
#include "programs/store/store_tool_fixture.h"
#include "reader_jail.h"

namespace orv {
namespace {

/// Returns the signal that ends a jailed process after `act`, or 0 if it is not ended.
int runToEnd(const std::function<void()>& act, int output) {
    const ::pid_t child = ::fork();
    if (child == 0) {
        const bool isLocked = lockUp(output);
        if (isLocked) {
            act();
        }
        ::_exit(isLocked ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status);
}

TEST(ImportJail, TheReaderCanDoNothingButReadAndAnswer) {
    const TempFolder folder;
    const int file = ::open(folder.write("file", "x").c_str(), O_RDWR | O_CLOEXEC);
    const int output = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    struct Case {
        const char* what;
        std::function<void()> act;
    };
    for (const Case& row : {
             Case{"open", [] { ::open("/etc/passwd", O_RDONLY); }},
             Case{"connect", [] { ::socket(AF_INET, SOCK_STREAM, 0); }},
             Case{"start", [] { ::execl("/bin/true", "true", nullptr); }},
             Case{"fork", [] { ::fork(); }},
             Case{"signal", [] { ::kill(::getppid(), 0); }},
             Case{"write elsewhere", [&] { static_cast<void>(!::write(file, "y", 1)); }},
             Case{"new code", [] { ::mmap(nullptr, 4096, PROT_READ | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0); }},
             Case{"rename", [&] { ::rename(folder.file("file").c_str(), folder.file("gone").c_str()); }},
             Case{"be looked into", [] { ::prctl(PR_SET_DUMPABLE, 1); }},
         }) {
        EXPECT_EQ(runToEnd(row.act, output), SIGSYS) << row.what;
    }
    EXPECT_EQ(folder.readBytes("file"), "x");
    char byte = 0;
    EXPECT_EQ(runToEnd(
                  [&] {
                      const std::string much(10'000'000, 'x');
                      static_cast<void>(!::pread(file, &byte, 1, 0));
                      static_cast<void>(!::write(output, much.data(), much.size()));
                  },
                  output),
              0);
    ::close(file);
    ::close(output);
}

TEST(ImportJail, AStalledReaderIsEnded) {
    const TempFolder folder;
    ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);  // has no writer
    EXPECT_THROW(readJetFile(folder.file("pipe"), {"T"}, std::chrono::milliseconds(100)), KeeperFailure);
}

using HostileImport = StoreTool;

TEST_F(HostileImport, ADamagedOrHostileFileEndsInATextAndFillsNothing) {
    runSql(office, "UPDATE TBL_CUSTOMER_ADD SET CPU = replace(hex(zeroblob(9000)), '0', '長い')");
    makeJet(4, "old.mdb");
    makeJet(4, "loop.mdb", "--loop");
    const std::string whole = readFile(folder.file("old.mdb"));
    writeFile(folder.file("cut.mdb"), whole.substr(0, whole.rfind("\x01\x01")));
    writeFile(folder.file("head.mdb"), whole.substr(0, 4096));
    writeFile(folder.file("noise.mdb"), whole.substr(0, 4096) + std::string(100'000, '\x02'));
    writeFile(folder.file("open.mdb"), whole);
    writeFile(folder.file("open.ldb"), "");
    runSql(folder.file("other.mdb"), "CREATE TABLE T (A TEXT)");
    const auto before = names();
    for (const char* bad :
         {"loop.mdb", "cut.mdb", "head.mdb", "noise.mdb", "open.mdb", "other.mdb", "office", "missing"}) {
        const Outcome run = tool(std::string("import ") + bad + " home");
        EXPECT_EQ(run.ending, 3) << bad << run.out;
        EXPECT_NE(run.err.find("orv_store: "), std::string::npos) << run.err;
        EXPECT_EQ(names(), before) << bad;
    }
    EXPECT_EQ(tool("import cut.mdb home --salvage").ending, 1);
    EXPECT_TRUE(matches(tool("import cut.mdb --salvage"), "MST_CORP: damaged: 0 of 7 rows can be read"));
    EXPECT_EQ(json("check home")["tables"]["TBL_CUSTOMER_INFO"], 6);
}

}  // namespace
}  // namespace orv
