#pragma once

// The behaviour of every store, whatever its engine, that the program relies on. A store's test program includes this
// file once and instantiates StoreContract with its own factory. The factory's store contains the tables and rows of
// sample/sql.

#include <gtest/gtest.h>

#include <functional>

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
    /// Returns a new store with the sample's rows, which exists as long as `keep`.
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

TEST_P(StoreContract, ACompanyIsReadByName) {
    Terminal terminal(service, path);
    ASSERT_TRUE(terminal.select(companyJoin("000004601"))) << service.DbError().text;
    const Recordset& rs = *terminal.rs;
    EXPECT_EQ(rs.RecordCount(), 1);
    ASSERT_FALSE(rs.Eof());
    EXPECT_EQ(rs.Fields("A.USER_ID"), Value("000004601"));
    EXPECT_EQ(rs.Fields("company_Name"), Value("あおぞら架空不動産㈱"));
    EXPECT_EQ(rs.Fields("CONTRACT_PUBLISHNUMBER"), Value(12));
    EXPECT_EQ(rs.Fields("PC_ADDRESS"), Value(""));
    EXPECT_EQ(rs.Fields("CAR_MINUTES"), Value());
    EXPECT_EQ(rs.Fields("SEND_FLAG"), Value(false));
    EXPECT_THROW(rs.Fields("NO_SUCH_FIELD"), RunTimeError);
    EXPECT_THROW(rs.Fields(1000), RunTimeError);
    ASSERT_TRUE(terminal.select(companyJoin("000004605")));
    EXPECT_TRUE(terminal.rs->Fields("SEND_FLAG").isNull()) << "a row without a partner";
    ASSERT_TRUE(terminal.select(companyJoin("000009999")));
    EXPECT_TRUE(terminal.rs->Eof());
    EXPECT_THROW(terminal.rs->Fields("A.USER_ID"), RunTimeError);
}

TEST_P(StoreContract, ChangesCountTheRowsThatTheyMatched) {
    Terminal terminal(service, path);
    const std::string onItself =
        "UPDATE TBL_CUSTOMER_DATE        SET             USER_ID  ='000004601'     WHERE  USER_ID = '000004601'";
    const std::string newRow =
        "insert into TBL_CUSTOMER_ADD (            USER_ID ,            CPU ,            SEND_FLAG    ) values ("
        "            '000004699',            '',             True            )";
    EXPECT_EQ(terminal.execute(onItself), 1);
    EXPECT_EQ(terminal.execute(newRow), 1);
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
        EXPECT_EQ(terminal.one(claimName("000004602")), text);
    }
}

TEST_P(StoreContract, ARolledBackOrClosedTransactionLeavesNothingAndACommittedOneAll) {
    Terminal here(service, path);
    Terminal there(service, path);
    ASSERT_TRUE(here.begin());
    EXPECT_EQ(here.execute(nameUpdate("000004601", "000004601", "その一")), 1);
    EXPECT_EQ(here.one(claimName("000004601")), "その一");
    EXPECT_EQ(there.one(claimName("000004601")), "あおぞら架空不動産㈱");
    EXPECT_TRUE(here.rollback());
    EXPECT_EQ(here.one(claimName("000004601")), "あおぞら架空不動産㈱");
    ASSERT_TRUE(here.begin());
    EXPECT_EQ(here.execute(nameUpdate("000004601", "000004601", "その二")), 1);
    EXPECT_TRUE(here.commit());
    ASSERT_TRUE(here.begin());
    EXPECT_EQ(here.execute(nameUpdate("000004601", "000004601", "消える")), 1);
    bool ok = false;
    service.DbClose(here.connection, ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(there.one(claimName("000004601")), "その二");
}

TEST_P(StoreContract, OneStatementOfTheRightKindOrNothing) {
    const std::string rowsLeft = "SELECT COUNT(*) FROM TBL_LOCK";
    const std::string drop = "delete from TBL_LOCK";
    Terminal terminal(service, path);
    for (const auto& [asSelect, sql] : std::to_array<std::pair<bool, std::string>>({
             {true, "-- nothing but a remark"},
             {true, rowsLeft + "; " + drop},
             {true, rowsLeft + std::string(1, '\0') + drop},
             {true, drop},
             {false, ""},
             {false, rowsLeft},
             {false, drop + "; " + drop},
             {false, nameUpdate("000004601", "000004601", "x' where 1 = 1; " + drop + "; --")},
         })) {
        service.DbReset();
        const bool done = asSelect ? terminal.select(sql) : terminal.execute(sql) >= 0;
        EXPECT_FALSE(done) << sql;
        EXPECT_FALSE(service.DbError().code.empty()) << sql;
        EXPECT_FALSE(asSelect && terminal.rs != nullptr) << sql;
        EXPECT_EQ(terminal.one(rowsLeft), "1") << sql;
    }
    EXPECT_EQ(terminal.one(rowsLeft + " ; \r\n"), "1") << "one semicolon and blanks may follow";
    EXPECT_EQ(terminal.execute(drop + ";"), 1);
}

}  // namespace orv
