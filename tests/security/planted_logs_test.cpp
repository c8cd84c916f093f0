#include <sys/stat.h>

#include "another_user.h"
#include "logging/write_log.h"
#include "support/fixture.h"
#include "support/variable.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPrivate = "alias ls=ls\n";

/// A log folder that all users of the office can write.
class PlantedLogs : public SystemTest {
protected:
    PlantedLogs() { fs::permissions(folder, fs::perms::all); }

    fs::perms readRights(const fs::path& file) { return fs::status(file).permissions(); }
    std::string kept() { return state.has("orv") ? codePage.decode(state.readBytes("orv/260504_err.log")) : ""; }

    TempFolder state;
    const Variable stateHome{"XDG_STATE_HOME", state.path().string()};
    const fs::path folder = office.root() + "/C/ORV/LOG/ERR";
    const fs::path log = folder / "260504_err.log";
    const fs::path owned = office.folder.write("home/.bashrc", kPrivate);
};

TEST_F(PlantedLogs, NothingButAPlainFileOfOneNameIsWritten) {
    const fs::path home = owned.parent_path();
    const std::vector<std::pair<const char*, std::function<void()>>> plants{
        {"a link", [&] { fs::create_symlink(owned, log); }},
        {"a link to a file that is not there", [&] { fs::create_symlink(home / "new", log); }},
        {"another name of the file", [&] { fs::create_hard_link(owned, log); }},
        {"a folder", [&] { fs::create_directory(log); }},
        {"a pipe", [&] { ::mkfifo(log.c_str(), 0666); }},
        {"a link for the folder", [&] {
             fs::remove_all(folder);
             fs::create_directory_symlink(home, folder);
         }}};
    fs::permissions(owned, fs::perms{0600});
    for (const auto& [what, plant] : plants) {
        fs::remove_all(log);
        plant();
        messages.shown.clear();
        theContext = {};
        logError("1", what);
        logError("2", what);
        EXPECT_EQ(readFile(owned), kPrivate) << what;
        EXPECT_EQ(readRights(owned), fs::perms{0600}) << what;
        EXPECT_EQ(office.folder.countIn("home"), 1) << what;
        EXPECT_TRUE(kept().ends_with(record("1", what) + record("2", what))) << what << ": " << kept();
        expectShown("LOG00001", {com().LogErrFile(), state.file("orv") + "\\260504_err.log"});
    }
    EXPECT_EQ(readRights(state.path() / "orv"), fs::perms{0700});
}

TEST_F(PlantedLogs, TheRightsOfALogThatIsThereStayAsTheyAre) {
    writeFile(log, "");
    fs::permissions(log, fs::perms{0620});
    logError("1", "text");
    EXPECT_EQ(readRights(log), fs::perms{0620});
    EXPECT_EQ(readFile(log).size(), record("1", "text").size());
}

TEST_F(PlantedLogs, AnotherClerksLogIsWrittenWhereItMayBeAndElseReplaced) {
    if (!canBeAnotherUser()) {
        GTEST_SKIP() << "a second user can only be had by root";
    }
    fs::permissions(state.path(), fs::perms::all);
    logError("1", "of the first clerk");
    const std::string first = readFile(log);
    for (const auto& [rights, isWritten] : {std::pair{0622U, true}, {0600U, false}}) {
        fs::permissions(log, fs::perms{rights});
        EXPECT_EQ(asAnotherUser([] { return PF_WriteLog("ERR", {"", "2", ""}); }), 1);
        EXPECT_EQ(readFile(log), first + ",2,\r\n") << rights;
        EXPECT_EQ(kept(), isWritten ? "" : ",2,\r\n") << rights;
        EXPECT_EQ(readRights(log), fs::perms{rights});
    }
}

}  // namespace
}  // namespace orv
