#include <sys/stat.h>

#include <atomic>
#include <csignal>
#include <numeric>
#include <thread>

#include "adapters/sqlite/sqlite_database.h"
#include "adapters/sqlite/sqlite_files.h"
#include "another_user.h"
#include "app/office_store.h"
#include "programs/store/store_tool_fixture.h"
#include "store_code.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

constexpr const char* kNobody = "setpriv --reuid=65534 --regid=65534 --clear-groups ";

class StoreFiles : public StoreTool {
protected:
    /// Excludes the files with which the tool is operated.
    std::map<std::string, std::string> files() const {
        auto all = folder.contents();
        std::erase_if(
            all, [](const auto& file) { return file.first == "in" || file.first == "out" || file.first == "err"; });
        return all;
    }
    std::string catchOpening() const {
        return catchCode([&] { officeStore()(office, StoreAccess::ReadWrite); });
    }
    void setMode(const std::string& name, ::mode_t mode) const {
        ASSERT_EQ(::chmod(folder.file(name).c_str(), mode), 0) << name;
    }
    ::mode_t readMode(const std::string& name) const {
        struct stat facts {};
        return ::lstat(folder.file(name).c_str(), &facts) == 0 ? facts.st_mode & 07777U : 07777U;
    }
    /// True if the check of the store reports it.
    bool isReported(const std::string& store, const std::string& what) const {
        return matches(tool("check " + store), what);
    }
};

std::string bigEndian(std::uint32_t number) {
    const auto byte = [&](unsigned shift) { return static_cast<char>(number >> shift & 0xFFU); };
    return {byte(24), byte(16), byte(8), byte(0)};
}

/// The journal of a killed writer that contains no pages, only the name of a super-journal.
std::string journalNaming(const std::string& super, std::uint32_t pages) {
    const std::string sign = "\xd9\xd5\x05\xf9\x20\xa1\x63\xd7";
    std::string head = sign + bigEndian(0) + bigEndian(0) + bigEndian(pages) + bigEndian(512) + bigEndian(4096);
    head.resize(512, '\0');
    const auto sum = std::accumulate(super.begin(), super.end(), 0U,
                                     [](unsigned all, char c) { return all + static_cast<unsigned>(int{c}); });
    return head + bigEndian(0) + super + bigEndian(static_cast<std::uint32_t>(super.size())) + bigEndian(sum) + sign;
}

TEST_F(StoreFiles, AForeignJournalDeletesNothing) {
    const std::string good = readFile(office);
    writeFile(folder.file("letter"), "mine");
    const std::string forged = journalNaming(folder.file("letter"), static_cast<std::uint32_t>(good.size() / 4096));
    for (const std::string arguments : {"check office", "backup office copy", "restore other office",
                                        "copy office copy", "unlock office FRONT-PC02 --yes", ""}) {
        writeFile(office, good);
        writeFile(folder.file("office-journal"), forged);
        const auto code = [&] { return json(arguments)["failure"]["code"].get<std::string>(); };
        EXPECT_EQ(arguments.empty() ? catchOpening() : code(), "DBFILE10") << arguments;
        EXPECT_EQ(readFile(folder.file("letter")), "mine") << arguments;
        EXPECT_FALSE(folder.has("copy") || folder.has("other")) << arguments;
    }
    // The store's own journal is rolled back, but not next to a store that is only read.
    const std::string own = forged.substr(0, 512);
    writeFile(folder.file("office-journal"), own);
    EXPECT_EQ(json("check office")["tables"]["TBL_CUSTOMER_INFO"], 6);
    EXPECT_EQ(readFile(folder.file("office-journal")), own);
    EXPECT_EQ(catchOpening(), "");
    EXPECT_FALSE(folder.has("office-journal"));
    // A second name of a user's file, into which the engine would write.
    for (const std::string name : {"office-journal", "office-wal", "office-shm"}) {
        fs::create_hard_link(folder.file("letter"), folder.file(name));
        EXPECT_EQ(catchOpening(), "DBFILE10") << name;
        EXPECT_EQ(readFile(folder.file("letter")), "mine") << name;
        fs::remove(folder.file(name));
        runSql(office, "PRAGMA journal_mode = WAL");
    }
}

TEST_F(StoreFiles, AreReadWithTheirJournalsAndNothingIsMadeNextToThem) {
    struct Case {
        std::string script;
        int companies;
        std::vector<std::string> stores;
    };
    const TempFolder made;
    for (const Case& row :
         {Case{"PRAGMA cache_size = 1; BEGIN; DELETE FROM TBL_LOCK;"
               "UPDATE TBL_CUSTOMER_INFO SET USER_ID = USER_ID || 'x', GROUP_NAME = hex(zeroblob(9000))",
               6,
               {"begun"}},
          Case{"PRAGMA journal_mode = WAL; INSERT INTO TBL_CUSTOMER_INFO (USER_ID) VALUES ('000004699')",
               7,
               {"logged", "office"}}}) {
        SqliteDatabase terminal(office, StoreAccess::ReadWrite, {});
        terminal.runScript(row.script);
        // The files of a computer that is switched off at this moment.
        for (const std::string ending : {"", "-journal", "-wal"}) {
            if (folder.has("office" + ending)) {
                fs::copy_file(office + ending, folder.file(row.stores[0] + ending));
            }
        }
        const auto before = files();
        for (const std::string& store : row.stores) {
            const std::string place = made.file(store);
            for (const std::string& arguments :
                 {"check " + store, "backup " + store + " " + place + "1", "restore " + place + "2 " + store,
                  "copy " + store + " " + place + "3"}) {
                EXPECT_LT(tool(arguments).ending, 2) << arguments;
                EXPECT_TRUE(files() == before) << arguments;
            }
            for (const std::string& copy : {store, place + "1", place + "2", place + "3"}) {
                const auto tables = json("check " + copy)["tables"];
                EXPECT_EQ(tables["TBL_CUSTOMER_INFO"], row.companies) << copy;
                EXPECT_EQ(tables["TBL_LOCK"], 1) << copy;
            }
        }
    }
}

TEST_F(StoreFiles, AreCopiedAsTheyAreAtOneMomentWhileATerminalWrites) {
    // A save changes the first and the last page of a file that takes longer to copy than a save.
    runSql(
        office,
        "CREATE TABLE LONG (A); INSERT INTO LONG SELECT randomblob(900000) FROM TBL_CUSTOMER_INFO, TBL_CUSTOMER_ADD;"
        "CREATE TABLE LAST (SAVE INTEGER); INSERT INTO LAST VALUES (0); UPDATE TBL_CUSTOMER_INFO SET GROUP_NAME = 0");
    for (const std::string mode : {"DELETE", "WAL"}) {
        std::atomic<bool> isDone{false};
        std::thread terminal([&] {
            SqliteDatabase store(office, StoreAccess::ReadWrite, {.busy = std::chrono::minutes(3)});
            store.runScript("PRAGMA journal_mode = " + mode + "; PRAGMA wal_autocheckpoint = 20");
            for (int save = 1; !isDone; ++save) {
                store.runScript(
                    "BEGIN IMMEDIATE; UPDATE TBL_CUSTOMER_INFO SET GROUP_NAME = GROUP_NAME + 1;"
                    "UPDATE LAST SET SAVE = SAVE + 1; COMMIT");
                std::this_thread::sleep_for(std::chrono::milliseconds(save % 20 == 0 ? 300 : 0));
            }
        });
        for (int copy = 0; copy < 4; ++copy) {
            const std::string name = mode + std::to_string(copy);
            const Outcome run = tool("backup office " + name);
            if (mode == "WAL" && matches(run, "[DB5]")) {
                continue;  // the log never rested
            }
            ASSERT_EQ(run.ending, 0) << run.err;
            EXPECT_EQ(readRows(folder.file(name), "SELECT DISTINCT GROUP_NAME - SAVE FROM TBL_CUSTOMER_INFO, LAST"),
                      std::vector<std::string>{"0"})
                << name;
            fs::remove(folder.file(name));
        }
        isDone = true;
        terminal.join();
    }
}

TEST_F(StoreFiles, AStoreThatClaimsMoreThanTheDiskHasIsNotCopied) {
    fs::resize_file(office, std::uintmax_t{8} << 40U);
    for (const char* arguments : {"check office", "backup office bak", "restore back office", "copy office copy"}) {
        EXPECT_EQ(json(arguments)["failure"]["code"], "DB13") << arguments;
    }
}

TEST_F(StoreFiles, FilesWithPasswordsAreNotPublic) {
    onServer("served", "sample");
    makeJet(4);
    fs::create_directory(folder.file("group"));
    setMode("group", 02775);
    setMode("office", 0640);
    for (const auto& [arguments, made, mode] :
         std::vector<std::tuple<std::string, std::string, ::mode_t>>{{"create group/new", "group/new", 0660},
                                                                     {"backup office bak", "bak", 0640},
                                                                     {"backup served group/bak", "group/bak", 0660},
                                                                     {"restore group/back bak", "group/back", 0660},
                                                                     {"copy office copy", "copy", 0640},
                                                                     {"import old.mdb home", "home", 0640}}) {
        EXPECT_LT(tool(arguments, "umask 0; ").ending, 2) << arguments;
        EXPECT_EQ(readMode(made), mode) << arguments;
    }
    // A run that ends in the middle shows the permissions while a file is written.
    EXPECT_EQ(tool("backup office cut", "umask 0; ulimit -c 0; ulimit -f 16; ").ending, 128 + SIGXFSZ);
    int left = 0;
    for (const auto& entry : fs::directory_iterator(folder.path())) {
        const std::string name = entry.path().filename();
        if (name.starts_with(".orv_store-")) {
            ++left;
            EXPECT_EQ(readMode(name), 0700U);
            EXPECT_EQ(readMode(name + "/store"), 0600U);
        }
    }
    EXPECT_EQ(left, 1);
}

TEST_F(StoreFiles, ALinkInTheWayIsNotWrittenThrough) {
    const std::string other = makeSampleStore(folder.file("other"));
    runSql(other, "CREATE VIEW MINE AS SELECT 1");
    const std::string before = readFile(other);
    fs::create_symlink(other, folder.file("link"));
    EXPECT_EQ(catchCode([&] { copySqliteRows(office, folder.file("link")); }), "DB14");
    EXPECT_EQ(readFile(other), before);
    if (!canBeAnotherUser()) {
        GTEST_SKIP() << "no second user here: only root can create a file that another user cannot remove";
    }
    // A folder in which a user cannot remove the files of others.
    ASSERT_EQ(::chmod(folder.path().c_str(), 01777), 0);
    setMode("office", 0644);
    writeFile(folder.file("letter"), "");
    ASSERT_EQ(::chown(folder.file("letter").c_str(), kAnotherUser, kAnotherUser), 0);
    for (const std::string name : {"new.partial", "new.partial-journal"}) {
        fs::create_symlink(folder.file("letter"), folder.file(name));
    }
    EXPECT_EQ(tool("backup office new", kNobody).ending, 0);
    EXPECT_EQ(readFile(folder.file("letter")), "");
    EXPECT_EQ(json("check new")["tables"]["TBL_CUSTOMER_INFO"], 6);
}

TEST_F(StoreFiles, ForeignObjectsAreReportedAndOnlyRowsAreBackedUp) {
    runSql(office,
           "CREATE TRIGGER SPY AFTER UPDATE ON TBL_CUSTOMER_INFO BEGIN SELECT 1; END;"
           "CREATE VIEW LOOK AS SELECT 1; CREATE VIRTUAL TABLE SEARCH USING fts5(T);"
           "CREATE TABLE OTHERS (A TEXT); INSERT INTO OTHERS VALUES ('kept'); CREATE INDEX QUICK ON OTHERS (A);"
           "ALTER TABLE TBL_LOCK ADD COLUMN ROOM TEXT; ALTER TABLE MST_CORP ADD COLUMN SUM AS (hex(CORP_CODE))");
    onServer("spied", "sample");
    runOnServer(
        "spied",
        "CREATE VIEW LOOK AS SELECT 1; CREATE TABLE OTHERS (A TEXT); ALTER TABLE TBL_LOCK ADD COLUMN ROOM TEXT;"
        "CREATE FUNCTION SPY() RETURNS trigger AS 'BEGIN RETURN NEW; END' LANGUAGE plpgsql;"
        "CREATE TRIGGER SPY AFTER UPDATE ON TBL_LOCK EXECUTE FUNCTION SPY();"
        "CREATE RULE LATE AS ON DELETE TO OTHERS DO NOTHING; ALTER TABLE MST_CORP ADD CONSTRAINT C CHECK (TRUE);"
        "ALTER TABLE MST_CORP ADD COLUMN SUM TEXT GENERATED ALWAYS AS (upper(CORP_CODE)) STORED;"
        "CREATE INDEX QUICK ON OTHERS (upper(A)); CREATE DOMAIN WORD AS TEXT CHECK (VALUE <> '');"
        "CREATE SEQUENCE NUMBERS; ALTER TABLE MST_TIKU ALTER TIKU_NAME SET DEFAULT upper('x')");
    const std::string foreign = " that the schema does not have";
    for (const char* what : {"SPY: trigger", "LOOK: view", "SEARCH: virtual table", "OTHERS: table", "QUICK: index",
                             "TBL_LOCK.ROOM: column"}) {
        EXPECT_TRUE(isReported("office", what + foreign)) << what;
    }
    EXPECT_TRUE(isReported("office", "MST_CORP: is not defined as in the schema"));
    EXPECT_FALSE(isReported("office", "MST_TIKU: is not defined"));
    for (const char* what : {"spy: trigger", "spy: function", "look: view", "others: table", "late: rule",
                             "c: constraint", "sum: computed column", "quick: index", "word: type", "numbers: sequence",
                             "tiku_name: computed default", "TBL_LOCK.room: column"}) {
        EXPECT_TRUE(isReported("spied", what + foreign)) << what;
    }
    ASSERT_EQ(tool("backup office bak").ending, 0);
    writeFile(folder.file("handed"), readFile(office));
    ASSERT_EQ(tool("restore back handed").ending, 0);
    for (const char* copy : {"bak", "back"}) {
        for (const char* what : {"SPY:", "LOOK:", "SEARCH:"}) {
            EXPECT_FALSE(isReported(copy, what)) << copy;
        }
        EXPECT_TRUE(isReported(copy, "OTHERS: table")) << "rows are kept, regardless of their origin";
    }
}

TEST_F(StoreFiles, WordsOfTheStoreDoNothingToATerminal) {
    const std::string evil = "\x1b[2Jx\xe2\x80\xae\xc2\x9b\n2";
    runSql(office,
           "UPDATE TBL_LOCK SET LOCAL_INFO = 'PC' || char(27, 10, 8238, 155) || 'x', USER_ID = char(27) || 'z';"
           "CREATE TRIGGER T BEFORE DELETE ON TBL_LOCK BEGIN SELECT RAISE(ABORT, '" +
               evil + "'); END");
    onServer("loud", "sample");
    runOnServer("loud", "CREATE FUNCTION LOUD() RETURNS trigger AS 'BEGIN RAISE EXCEPTION ''" + evil +
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

TEST_F(StoreFiles, NoOtherProcessOfTheUserLooksIntoTheToolOrTheProgram) {
    if (!canBeAnotherUser()) {
        GTEST_SKIP() << "no second user here: everything belongs to the one that asks";
    }
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    setMode("office", 0666);
    // Both are waiting for an answer meanwhile. The owner of a process's files in /proc can read its memory.
    for (const auto& [command, name] : {std::pair("'" STORE_TOOL "' unlock office FRONT-PC02", "orv_store"),
                                        {"QT_QPA_PLATFORM=offscreen '" PROGRAM "'", "company_informa"}}) {
        const std::string commands = "cd '" + folder.path().string() + "' && rm -f answer && mkfifo answer && (env " +
                                     kNobody + "env XDG_STATE_HOME=$PWD " + command +
                                     " <answer & exec 3>answer; for try in $(seq 600); do"
                                     " test $(cat /proc/$!/comm) = " +
                                     name +
                                     " && test $(stat -c %u /proc/$!/environ) = 0 && break; sleep 0.1; done;"
                                     "stat -c %u /proc/$!/environ >owner; kill $!; wait) >/dev/null 2>&1";
        static_cast<void>(std::system(commands.c_str()));
        EXPECT_EQ(readFile(folder.file("owner")), "0\n") << name;
    }
}

}  // namespace
}  // namespace orv
