#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "adapters/office_store/office_store.h"
#include "adapters/store/store_failure.h"
#include "store_tool/store_tool_fixture.h"

namespace orv {
namespace {

using StoreFiles = StoreTool;
namespace fs = std::filesystem;

constexpr const char* kNobody = "setpriv --reuid=65534 --regid=65534 --clear-groups ";

std::string bigEndian(std::uint32_t number) {
    std::string bytes;
    for (const unsigned shift : {24U, 16U, 8U, 0U}) {
        bytes += static_cast<char>(number >> shift & 0xFFU);
    }
    return bytes;
}

/// What a killed writer would leave, with nothing in it to put back but the name of a super-journal.
std::string journalNaming(const std::string& super, std::uint32_t pages) {
    const std::string sign = "\xd9\xd5\x05\xf9\x20\xa1\x63\xd7";
    std::string head = sign + bigEndian(0) + bigEndian(0) + bigEndian(pages) + bigEndian(512) + bigEndian(4096);
    head.resize(512, '\0');
    std::uint32_t sum = 0;
    for (const char c : super) {
        sum += static_cast<std::uint32_t>(static_cast<signed char>(c));
    }
    return head + bigEndian(0) + super + bigEndian(static_cast<std::uint32_t>(super.size())) + bigEndian(sum) + sign;
}

::mode_t modeOf(const std::string& path) {
    struct stat facts {};
    return ::lstat(path.c_str(), &facts) == 0 ? facts.st_mode & 07777U : 07777U;
}

TEST_F(StoreFiles, AForeignJournalDeletesNothing) {
    const std::string good = readFile(office);
    writeFile(folder.file("letter"), "mine");
    const auto pages = static_cast<std::uint32_t>(good.size() / 4096);
    const std::string forged = journalNaming(folder.file("letter"), pages);
    const auto plant = [&] {
        writeFile(office, good);
        writeFile(folder.file("office-journal"), forged);
    };
    for (const std::string arguments :
         {"check office --json", "backup office copy --json", "restore other office --json", "copy office copy --json",
          "unlock office FRONT-PC02 --yes --json"}) {
        plant();
        const Outcome run = tool(arguments);
        EXPECT_EQ(run.ending, 3) << arguments;
        EXPECT_TRUE(matches(run, "DBFILE10")) << arguments << run.out << run.err;
        EXPECT_EQ(readFile(folder.file("letter")), "mine") << arguments;
        EXPECT_FALSE(folder.has("copy") || folder.has("other")) << arguments;
    }
    const auto codeOfOpening = [&] {
        try {
            officeStore()(office, StoreAccess::ReadWrite);
            return std::string();
        } catch (const StoreFailure& failure) {
            return failure.code();
        }
    };
    plant();
    EXPECT_EQ(codeOfOpening(), "DBFILE10");
    EXPECT_EQ(readFile(folder.file("letter")), "mine");
    // An own journal is put back and goes, but not by who only looks.
    const std::string own = forged.substr(0, 512);
    writeFile(folder.file("office-journal"), own);
    EXPECT_TRUE(matches(tool("check office"), "DB776"));
    EXPECT_EQ(readFile(folder.file("office-journal")), own);
    EXPECT_EQ(codeOfOpening(), "");
    EXPECT_FALSE(folder.has("office-journal"));
    // A second name of a file of the user's.
    fs::create_hard_link(folder.file("letter"), folder.file("office-journal"));
    EXPECT_EQ(codeOfOpening(), "DBFILE10");
    EXPECT_EQ(readFile(folder.file("letter")), "mine");
}

TEST_F(StoreFiles, WhatHoldsPasswordsIsNotForEverybody) {
    onServer("served", "sample");
    makeJet(4);
    fs::create_directory(folder.file("group"));
    ASSERT_EQ(::chmod(folder.file("group").c_str(), 02775), 0);
    ASSERT_EQ(::chmod(office.c_str(), 0640), 0);
    struct Case {
        std::string arguments, made;
        ::mode_t mode;
    };
    for (const Case& row :
         {Case{"create group/new", "group/new", 0660}, Case{"backup office bak", "bak", 0640},
          Case{"backup served group/bak", "group/bak", 0660}, Case{"restore group/back bak", "group/back", 0660},
          Case{"copy office copy", "copy", 0640}, Case{"import old.mdb home", "home", 0640}}) {
        EXPECT_LT(tool(row.arguments, "umask 0; ").ending, 2) << row.arguments;
        EXPECT_EQ(modeOf(folder.file(row.made)), row.mode) << row.arguments;
    }
}

TEST_F(StoreFiles, ALinkInTheWayIsNotWrittenThrough) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "no second user here: only root can plant what another user cannot remove";
    }
    // In a folder where nobody can remove what others have made.
    ASSERT_EQ(::chmod(folder.path().c_str(), 01777), 0);
    ASSERT_EQ(::chmod(office.c_str(), 0644), 0);
    for (const char* victim : {"letter", "letter-journal"}) {
        writeFile(folder.file(victim), "");
        ASSERT_EQ(::chown(folder.file(victim).c_str(), 65534, 65534), 0);
    }
    fs::create_symlink(folder.file("letter"), folder.file("new.partial"));
    fs::create_symlink(folder.file("letter-journal"), folder.file("new.partial-journal"));
    const Outcome run = tool("backup office new", kNobody);
    EXPECT_EQ(run.ending, 0) << run.err;
    EXPECT_EQ(readFile(folder.file("letter")), "");
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(folder.file("new"))));
    EXPECT_EQ(json("check new")["tables"]["TBL_CUSTOMER_INFO"], 6);
}

TEST_F(StoreFiles, WhatIsNoRowOfTheOfficeIsToldAndOnlyRowsAreBackedUp) {
    const std::string extra =
        "CREATE TRIGGER SPY AFTER UPDATE ON TBL_CUSTOMER_INFO BEGIN SELECT 1; END;"
        "CREATE VIEW LOOK AS SELECT 1; CREATE VIRTUAL TABLE SEARCH USING fts5(T);"
        "CREATE TABLE OTHERS (A TEXT); INSERT INTO OTHERS VALUES ('kept'); CREATE INDEX QUICK ON OTHERS (A);"
        "ALTER TABLE TBL_LOCK ADD COLUMN ROOM TEXT";
    runSql(office, extra);
    onServer("spied", "sample");
    server().sql(
        "spied",
        "CREATE VIEW LOOK AS SELECT 1; CREATE TABLE OTHERS (A TEXT); ALTER TABLE TBL_LOCK ADD COLUMN ROOM TEXT;"
        "CREATE FUNCTION SPY() RETURNS trigger AS 'BEGIN RETURN NEW; END' LANGUAGE plpgsql;"
        "CREATE TRIGGER SPY AFTER UPDATE ON TBL_LOCK EXECUTE FUNCTION SPY();"
        "CREATE RULE LATE AS ON DELETE TO OTHERS DO NOTHING");
    const auto told = [&](const std::string& store, const std::string& what) {
        return matches(tool("check " + store), what + " that the schema does not have");
    };
    for (const char* what : {"SPY: trigger", "LOOK: view", "SEARCH: virtual table", "OTHERS: table", "QUICK: index",
                             "TBL_LOCK.ROOM: column"}) {
        EXPECT_TRUE(told("office", what)) << what;
    }
    for (const char* what :
         {"spy: trigger", "spy: function", "look: view", "others: table", "late: rule", "TBL_LOCK.room: column"}) {
        EXPECT_TRUE(told("spied", what)) << what << tool("check spied").out;
    }
    ASSERT_EQ(tool("backup office bak").ending, 0);
    writeFile(folder.file("handed"), readFile(office));
    ASSERT_EQ(tool("restore back handed").ending, 0);
    for (const char* copy : {"bak", "back"}) {
        for (const char* what : {"SPY", "LOOK", "SEARCH: "}) {
            EXPECT_FALSE(told(copy, what)) << copy;
        }
        EXPECT_TRUE(told(copy, "OTHERS: table")) << "rows are kept, whoever put them there";
    }
}

TEST_F(StoreFiles, WordsOfTheStoreDoNothingToATerminal) {
    const std::string evil = "\x1b[2Jx\xe2\x80\xae\xc2\x9b\n2";
    runSql(office,
           "UPDATE TBL_LOCK SET LOCAL_INFO = 'PC' || char(27, 10, 8238, 155) || 'x', USER_ID = char(27) || 'z'");
    runSql(office, "CREATE TRIGGER T BEFORE DELETE ON TBL_LOCK BEGIN SELECT RAISE(ABORT, '" + evil + "'); END");
    onServer("loud", "sample");
    server().sql("loud", "CREATE FUNCTION LOUD() RETURNS trigger AS 'BEGIN RAISE EXCEPTION ''" + evil +
                             "''; END' LANGUAGE plpgsql;"
                             "CREATE TRIGGER T BEFORE DELETE ON TBL_LOCK FOR EACH ROW EXECUTE FUNCTION LOUD()");
    std::string all;
    for (const std::string arguments : {"check office", "check office --json", "unlock loud FRONT-PC02 --yes",
                                        "unlock office PC --yes", "copy office loud --replace", "check \x1b[2J"}) {
        const Outcome run = tool(arguments);
        all += run.out + run.err;
    }
    EXPECT_NE(all.find("x  "), std::string::npos) << all;
    for (const std::string bad : {"\x1b", "\xe2\x80\xae", "\xc2\x9b", "\n2"}) {
        EXPECT_EQ(all.find(bad), std::string::npos) << all;
    }
}

TEST_F(StoreFiles, TheCheckSaysWhatOfAnOfficeIsTooOpen) {
    const std::string base = "srv/C/ORV/";
    for (const char* name : {"BIN/KELT_COS.EXE", "SYS/system.ini", "HLP/help.hlp", "MDB/other", "IMG/1/a.jpg",
                             "LOG/ERR/261125_err.log", "TMP/x"}) {
        folder.write(base + name, "");
    }
    folder.write("srv/registry.txt", "");
    const std::string store = base + "MDB/ORVESTATE.MDB";
    fs::copy_file(office, folder.file(store));
    // As the manual says.
    ASSERT_EQ(std::system(("cd '" + folder.file("srv") +
                           "' && find . -type d -exec chmod 2750 {} + && find . -type f -exec chmod 0640 {} + &&"
                           "cd C/ORV && chmod 0750 BIN/*.EXE && find MDB IMG TMP LOG -type d -exec chmod 2770 {} + &&"
                           "chmod 0660 MDB/ORVESTATE.MDB")
                              .c_str()),
              0);
    const auto open = [&] { return tool("check " + store).out; };
    EXPECT_EQ(open().find("chmod"), std::string::npos) << open();
    struct Case {
        std::string path;
        ::mode_t mode;
        const char* told;
    };
    for (const Case& row :
         {Case{"srv", 02770, "chmod go-w"}, Case{base + "BIN", 02770, "chmod go-w"},
          Case{base + "SYS/system.ini", 0660, "chmod go-w"}, Case{base + "LOG/ERR/261125_err.log", 0644, "chmod o="},
          Case{base + "LOG", 02771, "chmod o="}, Case{store, 0664, "chmod o="}}) {
        const ::mode_t before = modeOf(folder.file(row.path));
        ASSERT_EQ(::chmod(folder.file(row.path).c_str(), row.mode), 0);
        const std::string line = folder.file(row.path) + ": ";
        const std::string out = open();
        const std::size_t at = out.find(line);
        ASSERT_NE(at, std::string::npos) << row.path << "\n" << out;
        EXPECT_NE(out.substr(at, out.find('\n', at) - at).find(row.told), std::string::npos) << out;
        ASSERT_EQ(::chmod(folder.file(row.path).c_str(), before), 0);
    }
}

TEST_F(StoreFiles, NoOtherProcessOfTheUserLooksIntoTheTool) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "no second user here: everything belongs to the one that asks";
    }
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    ASSERT_EQ(::chmod(office.c_str(), 0666), 0);
    ASSERT_EQ(::mkfifo(folder.file("answer").c_str(), 0666), 0);
    // It waits for an answer meanwhile. The owner of its files in /proc may look into a process.
    const std::string command = "cd '" + folder.path().string() + "' && exec " + kNobody +
                                "'" STORE_TOOL
                                "' unlock office "
                                "FRONT-PC02 <answer >/dev/null 2>asked";
    const ::pid_t child = ::fork();
    if (child == 0) {
        ::execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
        ::_exit(127);
    }
    const int answer = ::open(folder.file("answer").c_str(), O_WRONLY | O_CLOEXEC);
    for (int tries = 0; tries < 6000 && readFile(folder.file("asked")).find("[y/N]") == std::string::npos; ++tries) {
        ::usleep(10000);
    }
    struct stat facts {};
    EXPECT_EQ(::stat(("/proc/" + std::to_string(child) + "/environ").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_uid, 0U);
    ::close(answer);
    ::waitpid(child, nullptr, 0);
}

}  // namespace
}  // namespace orv
