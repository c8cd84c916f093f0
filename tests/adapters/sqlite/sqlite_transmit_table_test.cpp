#include "adapters/sqlite/sqlite_store.h"
#include "adapters/store/transmit_tables.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/failure_of.h"
#include "support/store_files.h"

namespace orv {
namespace {

constexpr std::int32_t kEmbedded = 2;
constexpr std::int32_t kTable = 1;

class TransmitTable : public ::testing::Test {
protected:
    TransmitTable() { runSampleFile(path, "transmit.sql"); }

    std::unique_ptr<TransmitDatabase> open(const std::string& file, bool readOnly = false) {
        return workspace->OpenDatabase(file, false, readOnly, ";pwd=word");
    }

    TempFolder folder;
    const std::string path = folder.file("TRANSMIT.MDB");
    TransmitTables engine{nativePaths(), sqliteStore(std::chrono::milliseconds(50))};
    std::unique_ptr<TransmitWorkspace> workspace = engine.CreateWorkspace("NewJetWorkspace", "admin", "", kEmbedded);
};

TEST_F(TransmitTable, ARowIsFoundByItsKey) {
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
}

TEST_F(TransmitTable, AKeyThatIsNotThereIsNoMatchAndNotTheEnd) {
    const auto database = open(path);
    const auto table = database->OpenRecordset("Transmit_Info", kTable);
    table->Index("PrimaryKey");
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
    for (const std::function<void()>& refused :
         std::vector<std::function<void()>>{[&] { engine.CreateWorkspace("w", "admin", "", 1); },
                                            [&] { workspace->OpenDatabase(path, true, false, ";pwd=word"); },
                                            [&] { workspace->OpenDatabase(path, false, false, "word"); },
                                            [&] { database->OpenRecordset("Transmit_Info", 4); },
                                            [&] { database->OpenRecordset("No \"such\" table", kTable); },
                                            [&] {
                                                table->Seek("=", {1, "000004601"});
                                            },  // no index is set
                                            [&] { table->Index("OtherKey"); }}) {
        EXPECT_EQ(failureOf(refused), 5);
    }
    table->Index("PrimaryKey");
    EXPECT_EQ(failureOf([&] { table->Seek(">", {1, "000004601"}); }), 5);
    EXPECT_EQ(failureOf([&] { table->Seek("=", {1}); }), 5);
}

TEST_F(TransmitTable, AFileThatCannotBeUsedIsARunTimeFailure) {
    writeFile(folder.file("text"), "no database");
    EXPECT_EQ(failureOf([&] { open(folder.file("missing")); }), 53);
    EXPECT_EQ(failureOf([&] { open(folder.file("text")); }), 57);
    EXPECT_EQ(failureOf([&] { open("bad name"); }), 52);
    EXPECT_FALSE(std::filesystem::exists(folder.file("missing")));
    EXPECT_EQ(failureOf([&] { open(path, true)->OpenRecordset("Transmit_Info", kTable); }), 0);
}

TEST_F(TransmitTable, ClosingFromTheInsideOutWorksOnceAndUseBehindItFails) {
    const auto database = open(path);
    const auto table = database->OpenRecordset("Transmit_Info", kTable);
    for (const std::function<void()>& close : {std::function<void()>([&] { table->Close(); }),
                                               {[&] { database->Close(); }},
                                               {[&] { workspace->Close(); }}}) {
        EXPECT_EQ(failureOf(close), 0);
        EXPECT_EQ(failureOf(close), 91);
    }
    EXPECT_EQ(failureOf([&] { table->Eof(); }), 91);
    EXPECT_EQ(failureOf([&] { database->OpenRecordset("Transmit_Info", kTable); }), 91);
    EXPECT_EQ(failureOf([&] { open(path); }), 91);
}

}  // namespace
}  // namespace orv
