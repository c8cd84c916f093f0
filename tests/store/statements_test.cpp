#include "store/statements.h"

#include <iterator>
#include <sstream>

#include "store/row_count.h"
#include "support/fixture.h"

namespace orv {
namespace {

/// The columns of both tables, told once more by hand: a column that moves or goes missing in the program shows here.
constexpr const char* kInfo =
    "USER_PASSWD GROUP_NAME COMPANY_NAME COMPANY_KANA OFFICE_NAME POST_CODE ADDRESS_CODE ADDRESS "
    "ADDRESS_NUMBER ADDRESS_GOU ADDRESS_OTHER DAIHYO_NAME DAIHYO_NAME_KANA TAKKEN_SYUNIN_NAME TANTO_NAME "
    "TEL_NO1 TEL_NO2 FAX_NO TIKU_CODE AREA_CODE RAILROAD_CODE RAILROAD_NAME STATION_CODE STATION_NAME "
    "WALK_MINUTES BUS_ROUTE BUSSTOP BUS_MINUTES TEIHO_MINUTES CAR_TARGET CAR_MINUTES CAR_DISTANCE SAME_CHECK "
    "PC_OFFICE_NAME PC_POST_CODE PC_ADDRESS_CODE PC_ADDRESS PC_ADDRESS_NUMBER PC_ADDRESS_GOU PC_TANTO_NAME "
    "PC_TEL_NO1 PC_TEL_NO2 PC_FAX_NO PC_MAIL_ADDRESS MAIL_ADDRESS LICENSE_NO LICENSE_NO_DAI LICENSE_NO_GO "
    "GET_LICENSE_DATE_YEAR GET_LICENSE_DATE_MONTH GET_LICENSE_DATE_DAY GET_LICENSE_NENGOU "
    "VALID_LICENSE_DATE_YEAR VALID_LICENSE_DATE_MONTH VALID_LICENSE_DATE_DAY VALID_LICENSE_NENGOU DANTAI_FLG "
    "DANTAI_NAME OTHER_DANTAI_NAME KOUTORI_FLG";

constexpr const char* kAdd =
    "OFFICE_HOURS DAY_OFF COMPANY_COMMENT COMPANY_URL_COMMENT COMPANY_URL PHOTO_FILE1 PHOTO_FILE2 PHOTO_GRP1 "
    "PHOTO_GRP2 SEND_FLAG MANAGEMENT_TYPE_FLG BUSINESS_TYPE_FLG OS_VER OS_MAJOR_VER OS_MINOR_VER OS_BUILD_VER "
    "NET_TYPE IP_ADDRESS SYS_HD_CAP INS_HD_CAP INS_ORV_PATH MEMORY CPU IE_VER PROXY_INFO";

std::vector<std::string> namesIn(const char* list) {
    std::istringstream words(list);
    return {std::istream_iterator<std::string>(words), {}};
}

class Statements : public SystemTest {
protected:
    /// Every text field holds its own name, so that a value in a wrong column shows.
    Statements() {
        for (const FieldInfo& field : kFields) {
            if (field.text != nullptr) {
                tCustomerInfo.*field.text = "v-" + std::string(field.name);
            }
        }
        tCustomerInfo.CPU.clear();
    }
    static std::string value(const std::string& column) {
        return column == "CPU" ? std::string("''") : "'v-" + column + "'";
    }
};

TEST_F(Statements, OfTheCompany) {
    std::string names = "            USER_ID ,";
    std::string values = "            'v-USER_ID',";
    std::string assignments;
    for (const std::string& column : namesIn(kInfo)) {
        names += "            " + column + " ,";
        values += "            " + value(column) + ",";
        assignments += "            " + column + "  =" + value(column) + ",";
    }
    std::string sql = "left over";
    EXPECT_TRUE(P_MakeInsertSQL_Info(sql));
    EXPECT_EQ(sql, "insert into TBL_CUSTOMER_INFO (" + names +
                       "            INSERT_DATE ,"
                       "            UPDATE_DATE ,"
                       "            SERVICE_FLG ,"
                       "            PWD_CHG_FLG "
                       "   ) values (" +
                       values +
                       "            '20260504 09:08:07',"
                       "            'v-UPDATE_DATE',"
                       "            '" +
                       std::string(50, '0') +
                       "',"
                       "            'v-PWD_CHG_FLG'"
                       "            )");
    EXPECT_TRUE(P_MakeUpdateSQL_Info(sql, "000009999"));
    EXPECT_EQ(sql,
              "update TBL_CUSTOMER_INFO "
              "       set "
              "            USER_ID  ='000009999'," +
                  assignments +
                  "            UPDATE_DATE ='20260504 09:08:07',"
                  "            PWD_CHG_FLG ='v-PWD_CHG_FLG'"
                  "     where  USER_ID = 'v-USER_ID'");
}

TEST_F(Statements, OfWhatItShows) {
    for (const bool flag : {false, true}) {
        tCustomerInfo.SEND_FLAG = flag;
        const std::string word = flag ? "True" : "False";
        std::string names = "            USER_ID ";
        std::string values = "            'v-USER_ID'";
        std::string assignments = "            USER_ID  ='000009999'";
        for (const std::string& column : namesIn(kAdd)) {
            const bool unquoted = column == "SEND_FLAG";
            names += ",            " + column + " ";
            values += ",            " + (unquoted ? " " + word : value(column));
            assignments += ",            " + column + "  =" + (unquoted ? word : value(column));
        }
        std::string sql = "left over";
        EXPECT_TRUE(P_MakeInsertSQL_Add(sql));
        EXPECT_EQ(sql, "insert into TBL_CUSTOMER_ADD (" + names + "   ) values (" + values + "            )");
        EXPECT_TRUE(P_MakeUpdateSQL_Add(sql, "000009999"));
        EXPECT_EQ(sql, "UPDATE TBL_CUSTOMER_ADD        SET " + assignments + "     WHERE  USER_ID = 'v-USER_ID'");
    }
}

TEST_F(Statements, TheDatesHaveNothingButTheirKey) {
    std::string sql = "left over";
    EXPECT_TRUE(P_MakeInsertSQL_Date(sql));
    EXPECT_EQ(sql,
              "insert into TBL_CUSTOMER_DATE ("
              "            USER_ID "
              "   ) values ("
              "            'v-USER_ID'"
              "            )");
    EXPECT_TRUE(P_MakeUpdateSQL_Date(sql, "000009999"));
    EXPECT_EQ(sql,
              "UPDATE TBL_CUSTOMER_DATE "
              "       SET "
              "            USER_ID  ='000009999'"
              "     WHERE  USER_ID = 'v-USER_ID'");
}

TEST_F(Statements, TheReadOfACompany) {
    EXPECT_EQ(companyJoin("000004601"),
              "   select *"
              "     from TBL_CUSTOMER_INFO AS A "
              "LEFT JOIN TBL_CUSTOMER_ADD AS B "
              "       ON A.USER_ID = B.USER_ID"
              "    where A.USER_ID = '000004601'");
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
                          Case{10, "", "TBL_CUSTOMER_INFO", ""}, Case{11, "", "TBL_CUSTOMER_ADD", ""},
                          Case{12, "", "TBL_CUSTOMER_DATE", ""}}) {
        static_cast<void>(PF_GetRowCountZero("K2", "U", c.mode, c.key3));
        EXPECT_EQ(store.statements.back(),
                  "  SELECT COUNT(*)     FROM " + c.table + "    WHERE USER_ID = 'U' " + c.condition);
    }
    for (const std::int16_t unknown : std::initializer_list<std::int16_t>{3, 9, 13, -1}) {
        static_cast<void>(PF_GetRowCountZero("K2", "U", unknown, ""));
        EXPECT_EQ(store.statements.back(), "") << unknown;
    }
}

TEST_F(Probe, AFailureLooksLikeARowAndIsToldByThePair) {
    store.fail(FailingStore::Call::Select);
    EXPECT_FALSE(PF_GetRowCountZero("", "000009999", kCountInfo, ""));
    EXPECT_EQ(gErrMsg + gErrCode, "ストアの故障DB:77");
    clearPair();
    store.mend();
    store.fail(FailingStore::Call::CloseRows);
    EXPECT_TRUE(PF_GetRowCountZero("", "000009999", kCountInfo, ""))
        << "the answer was there before the closing failed";
    EXPECT_EQ(gErrMsg + gErrCode, "ストアの故障DB:77");
}

}  // namespace
}  // namespace orv
