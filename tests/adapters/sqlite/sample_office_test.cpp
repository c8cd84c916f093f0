#include <gtest/gtest.h>

#include "adapters/sqlite/sqlite_db_service.h"
#include "adapters/store_terminal.h"
#include "support/store_files.h"

namespace orv {
namespace {

/// The rows that every start with the sample office relies on.
class SampleOffice : public ::testing::Test {
protected:
    std::vector<std::string> list(const std::string& sql) { return terminal.list(sql); }
    std::string count(const std::string& table, const std::string& condition) {
        return terminal.one("SELECT COUNT(*) FROM " + table + " WHERE " + condition);
    }

    TempFolder folder;
    const std::string path = makeSampleStore(folder.file("ORVESTATE.MDB"));
    SqliteDbService service{nativePaths()};
    Terminal terminal{service, path};
};

TEST_F(SampleOffice, EveryCompanyPassesTheRulesOfTheFirstPage) {
    const std::string faulty =
        "length(USER_ID) <> 9 or length(POST_CODE) <> 8 or length(ADDRESS_CODE) <> 11 or length(AREA_CODE) <> 5"
        " or Left(ADDRESS_CODE, 5) <> AREA_CODE or ADDRESS = '' or COMPANY_NAME = '' or COMPANY_KANA = ''"
        " or DAIHYO_NAME = '' or DAIHYO_NAME_KANA = '' or TAKKEN_SYUNIN_NAME = '' or TANTO_NAME = '' or TEL_NO1 = ''"
        " or FAX_NO = '' or not MAIL_ADDRESS like '%_@_%'"
        " or (SAME_CHECK = '1') <> (PC_OFFICE_NAME || PC_POST_CODE || PC_ADDRESS_CODE || PC_ADDRESS || "
        "PC_ADDRESS_NUMBER"
        " || PC_ADDRESS_GOU || PC_TANTO_NAME || PC_TEL_NO1 || PC_TEL_NO2 || PC_FAX_NO || PC_MAIL_ADDRESS = '')"
        " or SAME_CHECK = '0' and (length(PC_ADDRESS_CODE) <> 11 or length(PC_POST_CODE) <> 8 or PC_ADDRESS = ''"
        " or PC_TANTO_NAME = '' or PC_TEL_NO1 = '' or not PC_MAIL_ADDRESS like '%_@_%')";
    EXPECT_EQ(list("SELECT USER_ID FROM TBL_CUSTOMER_INFO WHERE " + faulty), std::vector<std::string>{});
    EXPECT_EQ(count("TBL_CUSTOMER_INFO", "not (" + faulty + ")"), "6") << "no rule above met a null";
}

TEST_F(SampleOffice, FlagsHaveTheirLengths) {
    EXPECT_EQ(
        count("TBL_CUSTOMER_INFO", "length(DANTAI_FLG) = 16 and length(KOUTORI_FLG) = 16 and length(SERVICE_FLG) = 50"),
        "6");
    EXPECT_EQ(count("TBL_CUSTOMER_ADD", "length(MANAGEMENT_TYPE_FLG) = 64 and length(BUSINESS_TYPE_FLG) = 64"), "5");
    EXPECT_EQ(count("TBL_CUSTOMER_INFO", "USER_ID = '000004601' and substr(SERVICE_FLG, 26, 1) = '2'"), "1");
    EXPECT_EQ(count("TBL_CUSTOMER_INFO", "TIKU_CODE = Left(RAILROAD_CODE, 2) || '00'"), "6");
}

TEST_F(SampleOffice, WordsComeFromTheListsThatOfferThem) {
    struct Use {
        std::string column, table, type;
    };
    for (const Use& use :
         {Use{"LICENSE_NO", "TBL_CUSTOMER_INFO", "002"}, Use{"GET_LICENSE_NENGOU", "TBL_CUSTOMER_INFO", "003"},
          Use{"VALID_LICENSE_NENGOU", "TBL_CUSTOMER_INFO", "003"}, Use{"DANTAI_NAME", "TBL_CUSTOMER_INFO", "004"},
          Use{"PHOTO_GRP1", "TBL_CUSTOMER_ADD", "005"}, Use{"PHOTO_GRP2", "TBL_CUSTOMER_ADD", "005"}}) {
        EXPECT_EQ(list("SELECT " + use.column + " FROM " + use.table + " WHERE " + use.column + " <> '' AND " +
                       use.column + " NOT IN (SELECT ITEM_NAME FROM MST_OTHERS WHERE TYPE_CODE = '" + use.type +
                       "' AND DEL_FLAG = FALSE)"),
                  std::vector<std::string>{})
            << use.column;
        EXPECT_NE(count(use.table, use.column + " <> ''"), "0") << use.column;
    }
}

TEST_F(SampleOffice, TheCompaniesAreAsVariedAsTheSessionsNeed) {
    for (const auto& [table, condition] : {
             std::pair{"TBL_CUSTOMER_ADD",
                       "USER_ID = '000004601' and PHOTO_FILE1 = '000004601COS00000000_01.jpg' and"
                       " PHOTO_FILE2 = '000004601COS00000000_02.jpg' and SEND_FLAG = False"},
             {"TBL_CUSTOMER_INFO", "USER_ID = '000004602' and LICENSE_NO = '無し' and SAME_CHECK = '0'"},
             {"TBL_CUSTOMER_INFO",
              "USER_ID = '000004603' and LICENSE_NO = '貸主' and length(COMPANY_NAME || OFFICE_NAME) > 18"},
             {"TBL_CUSTOMER_INFO", "USER_ID = '000004604' and BUS_MINUTES <> '' and WALK_MINUTES = ''"},
             {"TBL_LOCK", "USER_ID = '000004606' and LOCAL_INFO = 'FRONT-PC02'"},
         }) {
        EXPECT_EQ(count(table, condition), "1") << condition;
    }
    EXPECT_EQ(list("SELECT USER_ID FROM TBL_CUSTOMER_INFO WHERE USER_ID NOT IN (SELECT USER_ID FROM TBL_CUSTOMER_ADD)"),
              std::vector<std::string>{"000004605"});
    EXPECT_EQ(count("TBL_CUSTOMER_DATE", "USER_ID IN (SELECT USER_ID FROM TBL_CUSTOMER_INFO)"), "6");
    EXPECT_EQ(count("TBL_CUSTOMER_INFO", "CONTRACT_PUBLISHNUMBER IS NULL"), "2");
}

}  // namespace
}  // namespace orv
