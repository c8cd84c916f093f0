#include "adapters/sqlite/sqlite_db_service.h"

#include <gtest/gtest.h>

#include <array>

#include "adapters/file_size_limit.h"
#include "adapters/store_contract.h"
#include "support/store_files.h"

namespace orv {
namespace {

using namespace std::chrono_literals;

constexpr auto kShortWait = 50ms;

StoreUnderTest makeStore(std::shared_ptr<void>& keep) {
    auto folder = std::make_shared<TempFolder>();
    keep = folder;
    return {std::make_unique<SqliteDbService>(nativePaths(), kShortWait),
            makeSampleStore(folder->file("ORVESTATE.MDB"))};
}

class SqliteStore : public ::testing::Test {
protected:
    SqliteStore() { makeSampleStore(path); }
    TempFolder folder;
    const std::string path = folder.file("ORVESTATE.MDB");
    SqliteDbService service{nativePaths(), kShortWait};
};

TEST_F(SqliteStore, ABooleanColumnGivesBooleansWhateverStandsForTrue) {
    for (const auto& [stored, expected] :
         {std::pair{"1", Value(true)}, {"-1", Value(true)}, {"0", Value(false)}, {"'text'", Value("text")}}) {
        runSql(path, std::string("UPDATE TBL_CUSTOMER_ADD SET SEND_FLAG = ") + stored);
        Terminal terminal(service, path);
        ASSERT_TRUE(terminal.select(companyJoin("000004601")));
        EXPECT_EQ(terminal.rs->Fields("SEND_FLAG"), expected) << stored;
    }
}

TEST_F(SqliteStore, AStoreThatAnotherHoldsIsWaitedForAndThenAFailure) {
    Terminal here(service, path);
    Terminal there(service, path);
    ASSERT_TRUE(here.begin());
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(there.begin());
    EXPECT_GE(std::chrono::steady_clock::now() - start, kShortWait);
    EXPECT_EQ(service.DbError().code, "DB5");
    EXPECT_NE(service.DbError().text.find("使用中"), std::string::npos);
    EXPECT_TRUE(here.rollback());
    EXPECT_TRUE(there.begin());
}

TEST_F(SqliteStore, AReaderDelaysACommitThatSucceedsLater) {
    sqlite3* reader = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &reader), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(reader, "BEGIN; SELECT * FROM TBL_LOCK", nullptr, nullptr, nullptr), SQLITE_OK);
    Terminal terminal(service, path);
    ASSERT_TRUE(terminal.begin());
    EXPECT_EQ(terminal.execute(lockInsert("000004601", "DESK-PC01")), 1);
    EXPECT_FALSE(terminal.commit());
    EXPECT_EQ(service.DbError().code, "DB5");
    sqlite3_close(reader);
    EXPECT_TRUE(terminal.commit());
    EXPECT_EQ(Terminal(service, path).one(lockSelect("000004601")), "DESK-PC01");
}

constexpr auto kTables = std::to_array<const char*>({"TBL_CUSTOMER_INFO", "TBL_CUSTOMER_ADD", "TBL_CUSTOMER_DATE"});

bool moveCompany(DbService& service, Terminal& terminal) {
    bool done = terminal.begin();
    for (const std::string table : kTables) {
        done =
            done && terminal.execute("UPDATE " + table + " SET USER_ID  ='000004699' WHERE USER_ID = '000004601'") == 1;
    }
    // More than the engine keeps in memory, so that it writes before the commit too.
    for (int row = 0; done && row < 1200; ++row) {
        done = terminal.execute(lockInsert("000004601", std::string(2000, 'x'))) == 1;
    }
    done = done && terminal.commit();
    if (!done) {
        EXPECT_TRUE(terminal.rollback()) << service.DbError().text;
    }
    return done;
}

TEST_F(SqliteStore, WhereverTheDiskEndsTheStoreIsWholeAndTheCauseIsTold) {
    const std::string one = " WHERE USER_ID IN ('000004601', '000004699')";
    bool done = false;
    for (rlim_t room = 0; !done; room += room < 30'000 ? 1'000 : room / 4) {
        service.DbReset();
        {
            const FileSizeLimit full(room);
            Terminal terminal(service, path);
            done = moveCompany(service, terminal);
        }
        Terminal later(service, path);
        for (const std::string table : kTables) {
            EXPECT_EQ(later.one("SELECT USER_ID FROM " + table + one), done ? "000004699" : "000004601") << room;
        }
        EXPECT_EQ(later.one("SELECT COUNT(*) FROM TBL_LOCK"), done ? "1201" : "1") << room;
        EXPECT_EQ(service.DbError().code, done ? "" : "DB778") << "the rollback does not hide the cause";
        EXPECT_EQ(service.DbError().text.find("読み書き中") == std::string::npos, done) << service.DbError().text;
    }
}

INSTANTIATE_TEST_SUITE_P(Sqlite, StoreContract, ::testing::Values(StoreFactory{"Sqlite", makeStore}),
                         [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace orv
