#pragma once

// What the program relies on in a store, whatever engine is behind it. A store's test program includes this in one
// file and instantiates StoreContract with a factory of its own. The store that the factory makes holds the tables
// and rows of sample/sql.

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <tuple>
#include <vector>

#include "adapters/store_terminal.h"
#include "platform/run_time_error.h"
#include "platform/suite/db_service.h"

namespace orv {

struct StoreUnderTest {
    std::unique_ptr<DbService> service;
    std::string path;
};

struct StoreFactory {
    std::string name;
    /// A fresh store with the sample's rows; it lives as long as what `keep` holds.
    std::function<StoreUnderTest(std::shared_ptr<void>& keep)> make;
};

inline void PrintTo(const StoreFactory& factory, std::ostream* out) { *out << factory.name; }

class StoreContract : public ::testing::TestWithParam<StoreFactory> {
protected:
    StoreContract() : store_(GetParam().make(keep_)), service(*store_.service), path(store_.path) {}

    std::shared_ptr<void> keep_;
    StoreUnderTest store_;
    DbService& service;
    const std::string path;
};

TEST_P(StoreContract, WhatIsNotOpenClosesAndRollsBackAndDoesNothingElse) {
    ConnectionPtr connection;
    RecordsetPtr rs;
    bool ok = false;
    const auto expectOk = [&] {
        EXPECT_TRUE(ok);
        ok = false;
    };
    service.DbClose(connection, ok);
    expectOk();
    service.DbCloseRs(rs, ok);
    expectOk();
    service.DbRollback(connection, ok);
    expectOk();
    EXPECT_EQ(service.DbError(), FailureRecord{});

    std::int32_t rows = 0;
    service.DbExecute(connection, nameUpdate("000004601", "000004601", "x"), rows);
    EXPECT_LT(rows, 0);
    for (const auto operation : {&DbService::DbBeginTrans, &DbService::DbCommit}) {
        ok = true;
        (service.*operation)(connection, ok);
        EXPECT_FALSE(ok);
    }
    ok = true;
    service.DbOpenRs(connection, rs, nameOf("000004601"), ok);
    EXPECT_FALSE(ok);
    EXPECT_FALSE(service.DbError().text.empty());
    EXPECT_FALSE(service.DbError().code.empty());
    service.DbReset();
    EXPECT_EQ(service.DbError(), FailureRecord{});
}

TEST_P(StoreContract, ACompanyIsReadByName) {
    Terminal terminal(service, path);
    ASSERT_TRUE(terminal.select(companyJoin("000004601"))) << service.DbError().text;
    const Recordset& rs = *terminal.rs;
    EXPECT_EQ(rs.RecordCount(), 1);
    ASSERT_FALSE(rs.Eof());
    EXPECT_EQ(rs.Fields("A.USER_ID"), Value("000004601"));
    EXPECT_EQ(rs.Fields("a.user_id"), Value("000004601"));
    EXPECT_EQ(rs.Fields("company_Name"), Value("あおぞら架空不動産㈱"));
    EXPECT_EQ(rs.Fields("STATION_CODE"), Value("012"));
    EXPECT_EQ(rs.Fields("CONTRACT_PUBLISHNUMBER"), Value(12));
    EXPECT_EQ(rs.Fields("PC_ADDRESS"), Value(""));
    EXPECT_EQ(rs.Fields("CAR_MINUTES"), Value());
    EXPECT_EQ(rs.Fields("SEND_FLAG"), Value(false));
    for (const char* name : {"NO_SUCH_FIELD", "A.COMPANY_NAME", ""}) {
        EXPECT_THROW(rs.Fields(name), RunTimeError) << name;
    }
    EXPECT_THROW(rs.Fields(-1), RunTimeError);
    EXPECT_THROW(rs.Fields(1000), RunTimeError);
}

TEST_P(StoreContract, AJoinWithoutAPartnerGivesOneRowOfNulls) {
    Terminal terminal(service, path);
    ASSERT_TRUE(terminal.select(companyJoin("000004605")));
    EXPECT_EQ(terminal.rs->RecordCount(), 1);
    EXPECT_EQ(terminal.rs->Fields("A.USER_ID"), Value("000004605"));
    EXPECT_TRUE(terminal.rs->Fields("SEND_FLAG").isNull());
    EXPECT_TRUE(terminal.rs->Fields("OFFICE_HOURS").isNull());
}

TEST_P(StoreContract, NoRowIsTheEndAtOnce) {
    Terminal terminal(service, path);
    ASSERT_TRUE(terminal.select(companyJoin("000009999")));
    EXPECT_EQ(terminal.rs->RecordCount(), 0);
    EXPECT_TRUE(terminal.rs->Eof());
    EXPECT_THROW(terminal.rs->Fields("A.USER_ID"), RunTimeError);
    EXPECT_THROW(terminal.rs->MoveNext(), RunTimeError);
}

TEST_P(StoreContract, TheCursorMovesOverAllRows) {
    Terminal terminal(service, path);
    ASSERT_TRUE(terminal.select("  SELECT USER_ID     FROM TBL_CUSTOMER_INFO ORDER BY USER_ID"));
    Recordset& rs = *terminal.rs;
    EXPECT_EQ(rs.RecordCount(), 6);
    rs.MoveLast();
    EXPECT_EQ(rs.Fields(0), Value("000004606"));
    EXPECT_FALSE(rs.Eof());
    rs.MoveNext();
    EXPECT_TRUE(rs.Eof());
    rs.MoveFirst();
    EXPECT_EQ(rs.Fields("USER_ID"), Value("000004601"));
}

TEST_P(StoreContract, ChangesCountTheRowsThatTheyMatched) {
    Terminal terminal(service, path);
    const std::string onItself =
        "UPDATE TBL_CUSTOMER_DATE        SET             USER_ID  ='000004601'     WHERE  USER_ID = '000004601'";
    const std::string newRow =
        "insert into TBL_CUSTOMER_ADD (            USER_ID ,            CPU ,            SEND_FLAG    ) values ("
        "            '---------',            '',             True            )";
    EXPECT_EQ(terminal.execute(onItself), 1);
    EXPECT_EQ(terminal.execute(newRow), 1);
    EXPECT_EQ(terminal.execute("UPDATE TBL_CUSTOMER_ADD        SET             USER_ID  ='000004699',"
                               "            SEND_FLAG  =True,            CPU  =''     WHERE  USER_ID = '---------'"),
              1);
    EXPECT_EQ(terminal.execute(nameUpdate("000009999", "000009999", "だれもいない")), 0);
    EXPECT_EQ(terminal.execute(lockInsert("000004601", "DESK-PC01")), 1);
    EXPECT_EQ(terminal.execute(lockInsert("000004601", "DESK-PC01")), 1);
    EXPECT_EQ(terminal.list(lockSelect("000004601")).size(), 2U);
    EXPECT_EQ(terminal.execute("delete from TBL_LOCK where left(PROPERTY_TYPE_CODE,2) = 'CO'"), 3);
    ASSERT_TRUE(terminal.select("select SEND_FLAG, CPU from TBL_CUSTOMER_ADD where USER_ID = '000004699'"));
    EXPECT_EQ(terminal.rs->Fields("SEND_FLAG"), Value(true));
    EXPECT_EQ(terminal.rs->Fields("CPU"), Value(""));
}

TEST_P(StoreContract, TextComesBackAsItWasWritten) {
    Terminal terminal(service, path);
    for (const std::string& text :
         {std::string("髙﨑ﾃｽﾄ①～－"), std::string("C:\\ORV\\ \" ; -- /* Left(x, 2) */ 100% _"), std::string(" 前後 "),
          std::string(), std::string("00012"), std::string(60000, 'x')}) {
        EXPECT_EQ(terminal.execute(nameUpdate("000004602", "000004602", text)), 1);
        EXPECT_EQ(terminal.one(nameOf("000004602")), text);
    }
}

TEST_P(StoreContract, ARolledBackTransactionLeavesNothingAndACommittedOneAll) {
    Terminal here(service, path);
    Terminal there(service, path);
    ASSERT_TRUE(here.begin());
    EXPECT_EQ(here.execute(nameUpdate("000004601", "000004601", "その一")), 1);
    EXPECT_EQ(here.one(nameOf("000004601")), "その一");
    EXPECT_EQ(there.one(nameOf("000004601")), "あおぞら架空不動産㈱");
    EXPECT_TRUE(here.rollback());
    EXPECT_EQ(here.one(nameOf("000004601")), "あおぞら架空不動産㈱");
    EXPECT_TRUE(here.rollback()) << "none is open any more";

    ASSERT_TRUE(here.begin());
    EXPECT_EQ(here.execute(nameUpdate("000004601", "000004601", "その二")), 1);
    EXPECT_TRUE(here.commit());
    EXPECT_EQ(there.one(nameOf("000004601")), "その二");
    EXPECT_FALSE(here.commit()) << "none is open any more";
}

TEST_P(StoreContract, ClosingRollsBack) {
    {
        Terminal terminal(service, path);
        ASSERT_TRUE(terminal.begin());
        EXPECT_EQ(terminal.execute(nameUpdate("000004601", "000004601", "消える")), 1);
        bool ok = false;
        service.DbClose(terminal.connection, ok);
        EXPECT_TRUE(ok);
    }
    EXPECT_EQ(Terminal(service, path).one(nameOf("000004601")), "あおぞら架空不動産㈱");
}

TEST_P(StoreContract, AFailedStatementNeitherChangesNorEndsAnything) {
    Terminal terminal(service, path);
    const std::string twice =
        "insert into TBL_CUSTOMER_DATE (            USER_ID    ) values (            '000004601'"
        "            )";
    EXPECT_LT(terminal.execute(twice), 0);
    EXPECT_FALSE(service.DbError().text.empty());
    ASSERT_TRUE(terminal.begin());
    EXPECT_EQ(terminal.execute(nameUpdate("000004601", "000004601", "前")), 1);
    EXPECT_LT(terminal.execute(twice), 0);
    EXPECT_TRUE(terminal.rollback());
    EXPECT_EQ(terminal.one(nameOf("000004601")), "あおぞら架空不動産㈱");
    EXPECT_EQ(terminal.one("select count(*) from TBL_CUSTOMER_DATE where USER_ID = '000004601'"), "1");
}

TEST_P(StoreContract, OneStatementOfTheRightKindOrNothing) {
    const std::string rowsLeft = "SELECT COUNT(*) FROM TBL_LOCK";
    const std::string drop = "delete from TBL_LOCK";
    Terminal terminal(service, path);
    for (const auto& [asSelect, sql] : std::to_array<std::pair<bool, std::string>>({
             {true, ""},
             {true, "-- nothing but a remark"},
             {true, rowsLeft + "; " + drop},
             {true, rowsLeft + ";;"},
             {true, rowsLeft + std::string(1, '\0') + drop},
             {true, drop},
             {true, nameOf("x'; " + drop + " where '' = '")},
             {false, ""},
             {false, rowsLeft},
             {false, drop + "; " + drop},
             {false, nameUpdate("000004601", "000004601", "O'Hara")},
             {false, nameUpdate("000004601", "000004601", "x' where 1 = 1; " + drop + "; --")},
         })) {
        service.DbReset();
        const bool done = asSelect ? terminal.select(sql) : terminal.execute(sql) >= 0;
        EXPECT_FALSE(done) << sql;
        EXPECT_FALSE(service.DbError().text.empty()) << sql;
        EXPECT_FALSE(service.DbError().code.empty()) << sql;
        EXPECT_FALSE(asSelect && terminal.rs != nullptr) << sql;
        EXPECT_EQ(terminal.one(rowsLeft), "1") << sql;
        EXPECT_EQ(terminal.one(nameOf("000004601")), "あおぞら架空不動産㈱") << sql;
    }
    EXPECT_EQ(terminal.one(rowsLeft + " ; \r\n"), "1") << "one semicolon and blanks may follow";
    EXPECT_EQ(terminal.execute(drop + ";"), 1);
}

TEST_P(StoreContract, TheLastFailureStaysUntilTheReset) {
    Terminal terminal(service, path);
    EXPECT_FALSE(terminal.select("nonsense"));
    const FailureRecord failure = service.DbError();
    EXPECT_TRUE(terminal.select(nameOf("000004601")));
    EXPECT_TRUE(terminal.rollback());
    EXPECT_EQ(service.DbError(), failure);
    service.DbReset();
    EXPECT_EQ(service.DbError(), FailureRecord{});
}

}  // namespace orv
