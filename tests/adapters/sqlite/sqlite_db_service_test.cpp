#include "adapters/sqlite/sqlite_db_service.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>

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

std::string withBytes(std::string file, std::size_t at, const std::string& bytes) {
    return file.replace(at, bytes.size(), bytes);
}

class SqliteStore : public ::testing::Test {
protected:
    SqliteStore() { makeSampleStore(path); }

    bool opens(const std::string& file) {
        ConnectionPtr connection;
        bool ok = false;
        service.DbReset();
        service.DbOpen(connection, file, ok);
        EXPECT_EQ(ok, connection != nullptr);
        return ok;
    }

    TempFolder folder;
    const std::string path = folder.file("ORVESTATE.MDB");
    SqliteDbService service{nativePaths(), kShortWait};
};

TEST_F(SqliteStore, WhatIsNoStoreIsRefusedByCauseAndLeftAlone) {
    const std::string good = readFile(path);
    const std::map<std::string, std::string> broken{
        {"empty", ""},
        {"text", "host=store.example.jp dbname=orv\n"},
        {"jet", withBytes(std::string(4096, '\0'), 0, {"\0\1\0\0Standard Jet DB\0", 20})},
        {"ace", withBytes(std::string(4096, '\0'), 0, {"\0\1\0\0Standard ACE DB\0", 20})},
        {"sign only", good.substr(0, 16)},
        {"cut", good.substr(0, good.size() / 2)},
        {"bad header", withBytes(good, 16, std::string(60, '\xFF'))},
        {"bad schema", withBytes(good, 100, std::string(2000, '\xEE'))},
    };
    for (const auto& [name, bytes] : broken) {
        writeFile(folder.file(name), bytes);
    }
    std::filesystem::create_directory(folder.file("folder"));
    ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);
    std::filesystem::create_symlink(folder.file("nowhere"), folder.file("broken link"));
    const auto before = folder.contents();
    for (const auto& [name, code, word] : std::to_array<std::array<std::string, 3>>({
             {"missing", "DBFILE01", "見つかりません"},
             {"no folder/missing", "DBFILE01", "見つかりません"},
             {"broken link", "DBFILE01", "見つかりません"},
             {"folder", "DBFILE02", "フォルダー"},
             {"pipe", "DBFILE03", "普通のファイルではありません"},
             {"empty", "DBFILE05", "空です"},
             {"jet", "DBFILE06", "以前の形式"},
             {"ace", "DBFILE06", "以前の形式"},
             {"text", "DBFILE07", "データベースではありません"},
             {"sign only", "DB26", "壊れているか"},
             {"cut", "DB11", "壊れています"},
             {"bad header", "DB26", "壊れているか"},
             {"bad schema", "DB11", "壊れています"},
         })) {
        EXPECT_FALSE(opens(folder.file(name))) << name;
        EXPECT_EQ(service.DbError().code, code) << name;
        EXPECT_NE(service.DbError().text.find(word), std::string::npos) << name << service.DbError().text;
    }
    EXPECT_FALSE(opens("bad name"));
    EXPECT_EQ(service.DbError().code, "52");
    EXPECT_TRUE(folder.contents() == before);
}

TEST_F(SqliteStore, OpeningReadingAndClosingAlterNothing) {
    const auto before = folder.contents();
    EXPECT_EQ(Terminal(service, path).list("SELECT USER_ID FROM TBL_CUSTOMER_INFO").size(), 6U);
    EXPECT_TRUE(folder.contents() == before);
}

TEST_F(SqliteStore, TextThatIsNoUtf8IsReadAsReplacementCharacters) {
    runSql(path,
           "UPDATE TBL_CUSTOMER_INFO SET COMPANY_NAME = CAST(x'41FF8C5A42' AS TEXT), OFFICE_NAME = x'E38182E3'"
           " WHERE USER_ID = '000004601'");
    Terminal terminal(service, path);
    ASSERT_TRUE(terminal.select(companyJoin("000004601")));
    EXPECT_EQ(terminal.rs->Fields("COMPANY_NAME"), Value("A\uFFFD\uFFFDZB"));
    EXPECT_EQ(terminal.rs->Fields("OFFICE_NAME"), Value("あ\uFFFD"));
    EXPECT_EQ(terminal.one("select Left(COMPANY_NAME, 2) from TBL_CUSTOMER_INFO where USER_ID = '000004601'"),
              "A\uFFFD");
}

TEST_F(SqliteStore, LeftCountsCharacters) {
    Terminal terminal(service, path);
    for (const auto& [call, expected] : {std::pair{"Left('東京都', 2)", "東京"},
                                         {"LEFT ('𠮷野', 1)", "𠮷"},
                                         {"left('abc', 0)", ""},
                                         {"Left('abc', 9)", "abc"},
                                         {"Left(4711, 2)", "47"},
                                         {"Left(null, 2) is null", "1"},
                                         {"Left('abc', null) is null", "1"}}) {
        EXPECT_EQ(terminal.one(std::string("select ") + call), expected) << call;
    }
    EXPECT_FALSE(terminal.select("select Left('abc', -1)"));
}

TEST_F(SqliteStore, ABooleanColumnGivesBooleansWhateverStandsForTrue) {
    for (const auto& [stored, expected] : {std::pair{"1", Value(true)},
                                           {"-1", Value(true)},
                                           {"0.5", Value(true)},
                                           {"0", Value(false)},
                                           {"'text'", Value("text")}}) {
        runSql(path, std::string("UPDATE TBL_CUSTOMER_ADD SET SEND_FLAG = ") + stored);
        Terminal terminal(service, path);
        ASSERT_TRUE(terminal.select(companyJoin("000004601")));
        EXPECT_EQ(terminal.rs->Fields("SEND_FLAG"), expected) << stored;
    }
}

TEST_F(SqliteStore, StatementsChangeNoSettingsAndReachNoOtherFile) {
    Terminal terminal(service, path);
    for (const std::string sql : {"PRAGMA journal_mode = WAL", "PRAGMA synchronous = OFF", "PRAGMA user_version = 7",
                                  "ATTACH 'other.mdb' AS OTHER", "BEGIN", "SAVEPOINT X", "COMMIT"}) {
        EXPECT_FALSE(terminal.select(sql)) << sql;
        EXPECT_LT(terminal.execute(sql), 0) << sql;
    }
    EXPECT_FALSE(terminal.select("INSERT INTO TBL_CUSTOMER_DATE (USER_ID) VALUES ('x') RETURNING USER_ID"));
    EXPECT_EQ(terminal.one("SELECT COUNT(*) FROM TBL_CUSTOMER_DATE"), "6");
    EXPECT_TRUE(terminal.begin());
    EXPECT_FALSE(terminal.begin());
    EXPECT_EQ(service.DbError().code, "DBTRAN01");
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
    EXPECT_LT(there.execute(lockInsert("000004601", "DESK-PC01")), 0);
    EXPECT_TRUE(there.rollback());
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

/// Takes the superuser's rights away for a while: they would make every file writable.
class OrdinaryUser {
public:
    OrdinaryUser() {
        if (::geteuid() == 0) {
            EXPECT_EQ(::seteuid(65534), 0);
        }
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser() { EXPECT_EQ(::seteuid(::getuid()), 0); }
};

TEST_F(SqliteStore, WhatCanOnlyBeReadIsReadAndEachWriteRefused) {
    struct Case {
        ::mode_t folder, file;
        std::string code;
    };
    for (const Case& row : {Case{0777, 0444, "DB8"}, Case{0555, 0666, "DB1544"}}) {
        ASSERT_EQ(::chmod(folder.path().c_str(), row.folder), 0);
        ASSERT_EQ(::chmod(path.c_str(), row.file), 0);
        const OrdinaryUser user;
        Terminal terminal(service, path);
        EXPECT_EQ(terminal.one(nameOf("000004601")), "あおぞら架空不動産㈱");
        EXPECT_LT(terminal.execute(lockInsert("000004601", "DESK-PC01")), 0);
        EXPECT_EQ(service.DbError().code, row.code);
        EXPECT_NE(service.DbError().text.find("書き込"), std::string::npos);
        EXPECT_TRUE(terminal.rollback());
    }
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0), 0);
    const OrdinaryUser user;
    EXPECT_FALSE(opens(path));
    EXPECT_EQ(service.DbError().code, "DBFILE04");
}

INSTANTIATE_TEST_SUITE_P(Sqlite, StoreContract, ::testing::Values(StoreFactory{"Sqlite", makeStore}),
                         [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace orv
