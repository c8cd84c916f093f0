#include "programs/store/store_tool_fixture.h"

namespace orv {
namespace {

using StoreImport = StoreTool;

TEST_F(StoreImport, AnOlderInstallMovesInUnchanged) {
    runSql(office,
           "UPDATE TBL_CUSTOMER_INFO SET GROUP_NAME = '髙﨑①ｶﾅ～－ ABC', OFFICE_NAME = '' WHERE USER_ID = '000004601';"
           "UPDATE TBL_CUSTOMER_ADD SET SEND_FLAG = TRUE, DAY_OFF = replace(hex(zeroblob(40)), '0', '水曜') ||"
           " replace(hex(zeroblob(60)), '0', 'Wed'), CPU = replace(hex(zeroblob(9000)), '0', '長い')"
           " WHERE USER_ID = '000004602'");
    onServer("served", "sample");
    for (const int version : {3, 4}) {
        if (version == 4) {
            runSql(office, "UPDATE TBL_CUSTOMER_INFO SET DAIHYO_NAME = '𠮷野 𩸽' WHERE USER_ID = '000004603'");
        }
        makeJet(version);
        const auto wanted = json("copy office copy" + std::to_string(version))["tables"];
        EXPECT_TRUE(matches(tool("import old.mdb"), "row 2 (000004602): CPU is longer than the 80 bytes of its field"));
        EXPECT_EQ(json("import old.mdb home" + std::to_string(version))["tables"], wanted) << "counts and checksums";
        EXPECT_EQ(tool("import old.mdb served").ending, 3) << "it holds companies";
        EXPECT_EQ(json("import old.mdb served --replace")["tables"], wanted);
    }
}

TEST_F(StoreImport, UnsuitableValuesAreReportedAndTheOthersImported) {
    runSql(
        office,
        "DROP TABLE MST_CORP; ALTER TABLE TBL_CUSTOMER_ADD DROP COLUMN CPU; ALTER TABLE TBL_LOCK ADD COLUMN ROOM TEXT;"
        "UPDATE TBL_CUSTOMER_INFO SET OFFICE_NAME = x'3DD8' WHERE USER_ID = '000004601';"
        "DROP TABLE TBL_CUSTOMER_DATE; CREATE TABLE TBL_CUSTOMER_DATE (USER_ID TEXT, BILLING_DATE DATETIME);"
        "INSERT INTO TBL_CUSTOMER_DATE VALUES ('a', NULL), ('a', NULL), (NULL, NULL), ('', NULL), ('b', 44000.5);"
        "DROP TABLE MST_TIKU; CREATE TABLE MST_TIKU (TIKU_NAME TEXT, SORT_KEY TEXT, DEL_FLG SMALLINT);"
        "INSERT INTO MST_TIKU VALUES ('北', '10', -1), ('南', 'soon', 0), ('東', '99999999999', 0), (NULL, '1', 0)");
    makeJet(4);
    const Outcome run = tool("import old.mdb home");
    EXPECT_EQ(run.ending, 1) << run.err;
    for (const char* part :
         {"MST_CORP: no such table; the store keeps its rows", "TBL_CUSTOMER_ADD: no column CPU; left empty",
          "TBL_LOCK: the store has no column ROOM; not imported",
          "TBL_CUSTOMER_INFO row 1 (000004601): OFFICE_NAME contains an invalid character",
          "TBL_CUSTOMER_DATE row 2 (a): refused: its key exists already",
          "TBL_CUSTOMER_DATE row 3: refused: USER_ID is empty", "TBL_CUSTOMER_DATE row 4: refused: USER_ID is empty",
          "TBL_CUSTOMER_DATE row 5 (b): refused: BILLING_DATE has a type other than text",
          "TBL_CUSTOMER_DATE: 5 rows, 4 refused", "MST_TIKU: no column TIKU_CODE; the rows are numbered",
          "MST_TIKU row 2 (0002): refused: SORT_KEY is not an integer",
          "MST_TIKU row 3 (0003): refused: SORT_KEY is out of range",
          "MST_TIKU row 4 (0004): refused: TIKU_NAME is empty"}) {
        EXPECT_TRUE(matches(run, part)) << part << " in\n" << run.out;
    }
    const auto tables = json("check home")["tables"];
    EXPECT_EQ(tables["TBL_CUSTOMER_INFO"], 6);
    EXPECT_EQ(tables["TBL_CUSTOMER_DATE"], 1);
    EXPECT_EQ(tables["MST_TIKU"], 1);
    EXPECT_GT(tables["MST_CORP"], 0) << "the list that a new store has";
}

}  // namespace
}  // namespace orv
