#include <gtest/gtest.h>

#include "adapters/postgres/server_fixture.h"
#include "adapters/store/transmit_tables.h"

namespace orv {
namespace {

TEST(ServerProfiles, ARowIsFoundByItsKeyAsInAFile) {
    TransmitTables engine(nativePaths(), postgresStore(kShortLimits));
    const auto workspace = engine.CreateWorkspace("NewJetWorkspace", "admin", "", 2);
    const auto database = workspace->OpenDatabase(sharedServer().storeFile(), false, false, ";pwd=word");
    const auto table = database->OpenRecordset("Transmit_Info", 1);
    EXPECT_FALSE(table->Eof());
    table->Index("PrimaryKey");
    table->Seek("=", {1, "000004601"});
    ASSERT_FALSE(table->NoMatch());
    EXPECT_EQ(table->Fields("DefinitionFileName"), Value("C:\\ORV\\DAT\\BUKKEN.DEF"));
    EXPECT_EQ(table->Fields("datamax"), Value(500));
    table->Seek("=", {2, "000004601"});
    ASSERT_FALSE(table->NoMatch());
    EXPECT_TRUE(table->Fields("SendMode").isNull());
    for (const Values& keys : {Values{3, "000004601"}, Values{1, "' or 1=1"}, Values{1, Value()}}) {
        table->Seek("=", keys);
        EXPECT_TRUE(table->NoMatch());
        EXPECT_THROW(table->Fields("DataMax"), RunTimeError);
    }
    EXPECT_THROW(table->Seek("=", {"x", "000004601"}), RunTimeError);
    EXPECT_THROW(table->Seek("=", {1, DateTime{}}), RunTimeError);
    EXPECT_THROW(database->OpenRecordset("No_Such_Table", 1), RunTimeError);
    EXPECT_THROW(database->OpenRecordset("TBL_LOCK\" --", 1), RunTimeError);
}

TEST(ServerProfiles, UsersCompareWithoutRegardToCase) {
    const std::string path = sharedServer().storeFile();
    sharedServer().sql(std::filesystem::path(path).filename(),
                       "UPDATE Transmit_Info SET UserID = 'Mihon' WHERE TransmitNo = 1");
    TransmitTables engine(nativePaths(), postgresStore(kShortLimits));
    const auto workspace = engine.CreateWorkspace("w", "admin", "", 2);
    const auto table = workspace->OpenDatabase(path, false, true, ";pwd=")->OpenRecordset("Transmit_Info", 1);
    EXPECT_THROW(table->Eof(), RunTimeError) << "it is closed with its database";
    const auto database = workspace->OpenDatabase(path, false, true, ";pwd=");
    const auto open = database->OpenRecordset("transmit_info", 1);
    open->Index("PrimaryKey");
    open->Seek("=", {1, "mIHON"});
    EXPECT_FALSE(open->NoMatch());
}

}  // namespace
}  // namespace orv
