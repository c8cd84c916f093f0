#include "adapters/sqlite/sqlite_store.h"
#include "adapters/store/transmit_tables.h"

#include <gtest/gtest.h>

#include "support/failure_of.h"
#include "support/store_files.h"

namespace orv {
namespace {

constexpr std::int32_t kEmbedded = 2;
constexpr std::int32_t kTable = 1;

TEST(TransmitTable, ARowIsFoundByItsKeyAndNoneIsNotTheEnd) {
    const TempFolder folder;
    const std::string path = folder.file("TRANSMIT.MDB");
    runSampleFile(path, "transmit.sql");
    TransmitTables engine{nativePaths(), sqliteStore({.busy = std::chrono::milliseconds(50)})};
    const auto workspace = engine.CreateWorkspace("NewJetWorkspace", "admin", "", kEmbedded);
    const auto database = workspace->OpenDatabase(path, false, false, ";pwd=word");
    const auto table = database->OpenRecordset("Transmit_Info", kTable);
    table->Index("PrimaryKey");
    table->Seek("=", {1, "000004601"});
    EXPECT_FALSE(table->Eof());
    ASSERT_FALSE(table->NoMatch());
    EXPECT_EQ(table->Fields("definitionFileNAME"), Value("C:\\ORV\\DAT\\BUKKEN.DEF"));
    EXPECT_EQ(failureOf([&] { table->Fields("NoSuchColumn"); }), 9);
    table->Seek("=", {2, "000004601"});
    ASSERT_FALSE(table->NoMatch());
    EXPECT_TRUE(table->Fields("SendMode").isNull());
    for (const Values& keys :
         {Values{3, "000004601"}, Values{1, "' or 1=1"}, Values{1, Value()}, Values{"x", "000004601"}}) {
        table->Seek("=", keys);
        EXPECT_TRUE(table->NoMatch());
        EXPECT_FALSE(table->Eof());
        EXPECT_EQ(failureOf([&] { table->Fields("DataMax"); }), 5);
    }
}

}  // namespace
}  // namespace orv
