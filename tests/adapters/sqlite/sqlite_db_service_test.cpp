#include "adapters/sqlite/sqlite_store.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "adapters/store/store_service.h"
#include "adapters/store_contract.h"
#include "support/store_files.h"

namespace orv {
namespace {

using namespace std::chrono_literals;

constexpr SqliteLimits kShortWait{.busy = 50ms};

StoreUnderTest makeStore(std::shared_ptr<void>& keep) {
    auto folder = std::make_shared<TempFolder>();
    keep = folder;
    return {std::make_unique<StoreService>(nativePaths(), sqliteStore(kShortWait)),
            makeSampleStore(folder->file("ORVESTATE.MDB"))};
}

class SqliteStore : public ::testing::Test {
protected:
    SqliteStore() { makeSampleStore(path); }
    TempFolder folder;
    const std::string path = folder.file("ORVESTATE.MDB");
    StoreService service{nativePaths(), sqliteStore(kShortWait)};
};

TEST_F(SqliteStore, ABooleanColumnGivesBooleansForAnyNumber) {
    for (const auto& [stored, expected] :
         {std::pair{"1", Value(true)}, {"-1", Value(true)}, {"0", Value(false)}, {"'text'", Value("text")}}) {
        runSql(path, std::string("UPDATE TBL_CUSTOMER_ADD SET SEND_FLAG = ") + stored);
        Terminal terminal(service, path);
        ASSERT_TRUE(terminal.select(companyJoin("000004601")));
        EXPECT_EQ(terminal.rs->Fields("SEND_FLAG"), expected) << stored;
    }
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

INSTANTIATE_TEST_SUITE_P(Sqlite, StoreContract, ::testing::Values(StoreFactory{"Sqlite", makeStore}),
                         [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace orv
