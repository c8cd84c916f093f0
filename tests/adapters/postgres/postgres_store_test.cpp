#include "adapters/postgres/postgres_store.h"

#include <gtest/gtest.h>

#include "adapters/postgres/server_fixture.h"
#include "adapters/store_contract.h"

namespace orv {
namespace {

using namespace std::chrono_literals;

constexpr const char* kOldName = "あおぞら架空不動産㈱";

StoreUnderTest makeStore(std::shared_ptr<void>&) {
    return {std::make_unique<StoreService>(nativePaths(), postgresStore(kLongLimits)), sharedServer().storeFile()};
}

/// Returns the same through a pooler, which uses any free session for each transaction.
StoreUnderTest makePooledStore(std::shared_ptr<void>& keep) {
    static const bool started = (sharedServer().startPooler(), true);
    EXPECT_TRUE(started);
    StoreUnderTest store = makeStore(keep);
    writeFile(store.path, readFile(store.path) + "port=6432\n");
    return store;
}

class ServerStore : public ::testing::Test {
protected:
    PrivateServer& server = sharedServer();
    const std::string path = server.storeFile();
    StoreService service{nativePaths(), postgresStore(kLongLimits)};

    std::string database() const { return std::filesystem::path(path).filename(); }
    std::string lastCode() const { return service.DbError().code; }
};

TEST_F(ServerStore, AReadChangesNothingAndLeavesOnlyTheTransaction) {
    Terminal terminal(service, path);
    for (const bool inside : {false, true}) {
        ASSERT_TRUE(!inside || terminal.begin());
        for (const std::string sql : {"with gone as (delete from TBL_LOCK returning 1) select * from gone",
                                      "select * into copied from TBL_LOCK", "COPY TBL_LOCK TO STDOUT", "COMMIT"}) {
            EXPECT_FALSE(terminal.select(sql)) << sql;
        }
        for (const std::string sql : {"COMMIT", "SAVEPOINT x", "SET lock_timeout = 0", "COPY TBL_LOCK FROM STDIN"}) {
            EXPECT_LT(terminal.execute(sql), 0) << sql;
        }
        EXPECT_TRUE(terminal.select("select set_config('lock_timeout', '77', false)"));
        EXPECT_NE(terminal.one("select current_setting('lock_timeout')"), "77ms");
        EXPECT_EQ(terminal.execute(lockInsert("000004601", "DESK-PC01")), 1) << service.DbError().text;
        EXPECT_EQ(terminal.execute("delete from TBL_LOCK where LOCAL_INFO = 'DESK-PC01'"), 1);
    }
    EXPECT_TRUE(terminal.commit());
    EXPECT_EQ(terminal.one("SELECT COUNT(*) FROM TBL_LOCK"), "1");
}

TEST_F(ServerStore, AFailedStatementLeavesTheTransactionAsItWas) {
    Terminal terminal(service, path);
    ASSERT_TRUE(terminal.begin());
    EXPECT_EQ(terminal.execute(nameUpdate("000004601", "000004601", "前")), 1);
    EXPECT_LT(terminal.execute("insert into TBL_CUSTOMER_DATE (USER_ID) values ('000004601')"), 0);
    EXPECT_EQ(lastCode(), "DB23505");
    EXPECT_FALSE(terminal.select("select nonsense"));
    EXPECT_TRUE(terminal.commit());
    EXPECT_EQ(terminal.one(claimName("000004601")), "前");
}

TEST_F(ServerStore, ARowThatAnotherWritesIsWaitedForAndThenAFailure) {
    static constexpr auto kLock = 300ms;
    StoreService hasty{nativePaths(), postgresStore(butFor([](ServerLimits& limits) { limits.lock = kLock; }))};
    Terminal here(service, path);
    Terminal there(hasty, path);
    ASSERT_TRUE(here.begin());
    ASSERT_TRUE(there.begin());
    EXPECT_EQ(here.execute(nameUpdate("000004601", "000004601", "こちら")), 1);
    EXPECT_EQ(there.execute(nameUpdate("000004602", "000004602", "あちら")), 1) << "another row is free";
    const auto start = std::chrono::steady_clock::now();
    EXPECT_LT(there.execute(nameUpdate("000004601", "000004601", "あちら")), 0);
    EXPECT_GE(std::chrono::steady_clock::now() - start, kLock);
    EXPECT_EQ(hasty.DbError().code, "DB55P03");
    EXPECT_TRUE(here.commit());
    EXPECT_EQ(there.execute(nameUpdate("000004601", "000004601", "あとから")), 1);
    EXPECT_TRUE(there.commit());
    EXPECT_EQ(here.one(claimName("000004601")), "あとから");
}

TEST_F(ServerStore, AStatementThatTakesTooLongIsEndedByTheServer) {
    StoreService hasty{nativePaths(), postgresStore(butFor([](ServerLimits& limits) { limits.statement = 5s; }))};
    EXPECT_FALSE(Terminal(hasty, path).select("select pg_sleep(600)"));
    EXPECT_EQ(hasty.DbError().code, "DB57014");
    StoreService busy{nativePaths(), postgresStore(butFor([](ServerLimits& limits) { limits.idle = 5s; }))};
    Terminal terminal(busy, path);
    ASSERT_TRUE(terminal.begin());
    EXPECT_EQ(terminal.execute(nameUpdate("000004601", "000004601", "止まる")), 1);
    const std::string sessions = "select count(*) from pg_stat_activity where datname = '" + database() + "'";
    while (server.sql("postgres", sessions) != "0\n") {
    }
    EXPECT_FALSE(terminal.commit());
    EXPECT_EQ(busy.DbError().code, "DB25P03");
    EXPECT_EQ(Terminal(service, path).one(claimName("000004601")), kOldName);
}

class FrozenServer : public ServerStore {
protected:
    FrozenServer() {
        EXPECT_TRUE(terminal.begin());
        EXPECT_EQ(terminal.execute(nameUpdate("000004601", "000004601", "途中")), 1);
        server.freeze();
    }
    std::string lastCode() const { return hasty.DbError().code; }

    StoreService hasty{nativePaths(), postgresStore(butFor([](ServerLimits& limits) { limits.patience.answer = 5s; }))};
    Terminal terminal{hasty, path};
};

TEST_F(FrozenServer, IsAFailureInTimeAndNotAskedAgain) {
    // The statement exceeds the socket's buffer, so that sending blocks too.
    EXPECT_LT(terminal.execute(nameUpdate("000004601", "000004601", std::string(10'000'000, 'x'))), 0);
    EXPECT_EQ(lastCode(), "DBCONN07");
    server.thaw();
    EXPECT_TRUE(terminal.rollback()) << "the server undoes it";
    EXPECT_EQ(lastCode(), "DBCONN07") << "the cause stays";
    EXPECT_FALSE(terminal.select(claimName("000004601"))) << "the wire is gone";
    Terminal next(service, path);
    EXPECT_EQ(next.one(claimName("000004601")), kOldName);
    EXPECT_EQ(next.execute(nameUpdate("000004601", "000004601", "その後")), 1);
}

TEST_F(FrozenServer, ACommitWithoutAnAnswerIsSaidToBeUnknown) {
    EXPECT_FALSE(terminal.commit());
    EXPECT_EQ(lastCode(), "DBCONN08");
    EXPECT_NE(hasty.DbError().text.find("わからない"), std::string::npos);
    EXPECT_TRUE(terminal.rollback());
    server.thaw();
    const std::string name = Terminal(service, path).one(claimName("000004601"));
    EXPECT_TRUE(name == "途中" || name == kOldName) << name;
}

TEST_F(ServerStore, AServerThatStopsTakesAnOpenSaveBackAndWorkGoesOnWhenItIsThereAgain) {
    for (const std::string mode : {"fast", "immediate"}) {
        Terminal idle(service, path);
        Terminal saving(service, path);
        Terminal committing(service, path);
        ASSERT_TRUE(saving.begin());
        EXPECT_EQ(saving.execute(nameUpdate("000004601", "000004601", "消える")), 1);
        ASSERT_TRUE(committing.begin());
        EXPECT_EQ(committing.execute(nameUpdate("000004602", "000004602", "消える")), 1);
        server.stop(mode);
        ConnectionPtr refused;
        bool ok = true;
        service.DbReset();
        service.DbOpen(refused, path, ok);
        EXPECT_EQ(lastCode(), "DBCONN02");
        EXPECT_LT(saving.execute(lockInsert("000004601", "DESK-PC01")), 0);
        const std::string code = lastCode();
        EXPECT_EQ(code, mode == "fast" ? "DB57P01" : "DBCONN06") << service.DbError().text;
        EXPECT_TRUE(saving.rollback());
        EXPECT_EQ(lastCode(), code);
        EXPECT_FALSE(committing.commit());
        EXPECT_FALSE(idle.select(claimName("000004601")));
        EXPECT_FALSE(saving.begin());
        server.start();
        Terminal next(service, path);
        EXPECT_EQ(next.one(claimName("000004601")), kOldName);
        EXPECT_NE(next.one(claimName("000004602")), "消える");
        EXPECT_EQ(next.execute(nameUpdate("000004603", "000004603", mode)), 1);
    }
}

INSTANTIATE_TEST_SUITE_P(Postgres, StoreContract,
                         ::testing::Values(StoreFactory{"Server", makeStore}, StoreFactory{"Pooler", makePooledStore}),
                         [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace orv
