#include "adapters/sqlite/sqlite_store.h"
#include "adapters/store/transmit_tables.h"

#include <gtest/gtest.h>

#include "support/failure_of.h"
#include "support/store_files.h"

namespace orv {
namespace {

constexpr std::int32_t kEmbedded = 2;
constexpr std::int32_t kTable = 1;

class TransmitTable : public ::testing::Test {
protected:
    TransmitTable() { runSampleFile(path, "transmit.sql"); }

    std::unique_ptr<TransmitDatabase> open(const std::string& file) {
        return workspace->OpenDatabase(file, false, false, ";pwd=word");
    }

    TempFolder folder;
    const std::string path = folder.file("TRANSMIT.MDB");
    TransmitTables engine{nativePaths(), sqliteStore(std::chrono::milliseconds(50))};
    std::unique_ptr<TransmitWorkspace> workspace = engine.CreateWorkspace("NewJetWorkspace", "admin", "", kEmbedded);
};

TEST_F(TransmitTable, ARowIsFoundByItsKeyAndNoneIsNotTheEnd) {
    const auto database = open(path);
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

TEST_F(TransmitTable, WhatIsNotSupportedIsRefused) {
    const auto database = open(path);
    const auto table = database->OpenRecordset("Transmit_Info", kTable);
    EXPECT_EQ(failureOf([&] { database->OpenRecordset("No \"such\" table", kTable); }), 5);
    EXPECT_EQ(failureOf([&] { open(folder.file("missing")); }), 53);
    EXPECT_FALSE(std::filesystem::exists(folder.file("missing")));
    table->Index("PrimaryKey");
    EXPECT_EQ(failureOf([&] { table->Seek(">", {1, "000004601"}); }), 5);
}

}  // namespace
}  // namespace orv
