#include "store/statements.h"

#include "store/rows.h"
#include "support/fixture.h"

namespace orv {
namespace {

/// Runs the statements on the real store and compares the tables.
class Statements : public SystemTest {
protected:
    Statements() { openStore(); }
    ~Statements() override { closeStore(); }

    /// Puts `sign` and the field's own name in every text field, so that a value in a wrong column is detected.
    static void fill(const std::string& sign) {
        for (const FieldInfo& field : kFields) {
            if (field.text != nullptr && field.name != "USER_ID") {
                tCustomerInfo.*field.text = sign + std::string(field.name);
            }
        }
    }
    void run(const std::string& sql) {
        std::int32_t count = 0;
        store.DbExecute(gConn, sql, count);
        EXPECT_EQ(count, 1) << sql;
    }
    /// Expects each column to contain its field's value, except those given.
    void expectStored(const std::string& userId, std::map<std::string_view, std::string> others) {
        for (const FieldInfo& field : kFields) {
            const std::string name(field.name);
            if (field.text != nullptr && field.table != Table::None && name != "USER_ID") {
                others.try_emplace(field.name, tCustomerInfo.*field.text);
                EXPECT_EQ(field.table == Table::Info ? info(name, userId) : add(name, userId), others[field.name])
                    << name;
            }
        }
        EXPECT_EQ(add("SEND_FLAG", userId), tCustomerInfo.SEND_FLAG ? "1" : "0");
        EXPECT_EQ(one("select count(*) from TBL_CUSTOMER_DATE where USER_ID = '" + userId + "'"), "1");
    }
};

TEST_F(Statements, PutEachFieldIntoItsColumn) {
    constexpr const char* kNow = "20260504 09:08:07";
    std::string insertInfo, insertAdd, insertDate, updateInfo, updateAdd, updateDate;
    tCustomerInfo.USER_ID = "000004700";
    tCustomerInfo.SEND_FLAG = true;
    fill("new ");
    EXPECT_TRUE(P_MakeInsertSQL_Info(insertInfo) && P_MakeInsertSQL_Add(insertAdd) && P_MakeInsertSQL_Date(insertDate));
    for (const std::string& sql : {insertInfo, insertAdd, insertDate}) run(sql);
    expectStored("000004700", {{"INSERT_DATE", kNow}, {"SERVICE_FLG", std::string(50, '0')}, {"MAIL_FLG", "NULL"}});
    tCustomerInfo.SEND_FLAG = false;
    fill("changed ");
    EXPECT_TRUE(P_MakeUpdateSQL_Info(updateInfo, "000009999") && P_MakeUpdateSQL_Add(updateAdd, "000009999") &&
                P_MakeUpdateSQL_Date(updateDate, "000009999"));
    for (const std::string& sql : {updateInfo, updateAdd, updateDate}) run(sql);
    expectStored(
        "000009999",
        {{"INSERT_DATE", kNow}, {"UPDATE_DATE", kNow}, {"SERVICE_FLG", std::string(50, '0')}, {"MAIL_FLG", "NULL"}});
}

class Probe : public SystemTest {
protected:
    Probe() { openStore(); }
    ~Probe() override { closeStore(); }
};

TEST_F(Probe, EveryModeToTheBlank) {
    struct Case {
        std::int16_t mode;
        std::string key3, table, condition;
    };
    const std::string other = " AND PROPERTY_NO <> 'K3'";
    for (const Case& c : {Case{0, "", "TBL_SS_BASE", "     AND INQUIRY_NO = 'K2' "},
                          Case{0, "K3", "TBL_SS_BASE", "     AND INQUIRY_NO = 'K2' " + other},
                          Case{1, "K3", "TBL_SS_BASE", "     AND PROPERTY_NO = 'K2' "},
                          Case{2, "  ", "TBL_SS_BASE", "     AND ESTATE_INQUIRY_ID = 'K2' "},
                          Case{2, "K3", "TBL_SS_BASE", "     AND ESTATE_INQUIRY_ID = 'K2' " + other},
                          Case{10, "K3", "TBL_CUSTOMER_INFO", ""}, Case{11, "K3", "TBL_CUSTOMER_ADD", ""},
                          Case{12, "K3", "TBL_CUSTOMER_DATE", ""}}) {
        static_cast<void>(PF_GetRowCountZero("K2", "U", c.mode, c.key3));
        EXPECT_EQ(store.statements.back(),
                  "  SELECT COUNT(*)     FROM " + c.table + "    WHERE USER_ID = 'U' " + c.condition);
    }
    for (const std::int16_t unknown : std::initializer_list<std::int16_t>{3, 9, 13, -1}) {
        static_cast<void>(PF_GetRowCountZero("K2", "U", unknown, ""));
        EXPECT_EQ(store.statements.back(), "") << unknown;
    }
}

TEST_F(Probe, AFailureLooksLikeARowAndIsReportedByThePair) {
    store.fail(FailingStore::Call::Select);
    EXPECT_FALSE(PF_GetRowCountZero("", "000009999", kCountInfo, ""));
    EXPECT_EQ(gErrMsg + gErrCode, "ストアの故障DB:77");
    clearPair();
    store.repair();
    store.fail(FailingStore::Call::CloseRows);
    EXPECT_TRUE(PF_GetRowCountZero("", "000009999", kCountInfo, ""))
        << "the answer was there before the closing failed";
    EXPECT_EQ(gErrMsg + gErrCode, "ストアの故障DB:77");
}

}  // namespace
}  // namespace orv
