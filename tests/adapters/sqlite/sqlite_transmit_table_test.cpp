#include "adapters/sqlite/sqlite_store.h"
#include "adapters/store/transmit_tables.h"

#include <gtest/gtest.h>

#include <functional>

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

    static int failureOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const RunTimeError& failure) {
            EXPECT_FALSE(failure.description().empty());
            return failure.number();
        }
        return 0;
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
    EXPECT_EQ(table->Fields("DataMax"), Value(500));
    EXPECT_EQ(table->Fields("HomeImageDir10"), Value("/home/mihon/img10"));
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
    runSql(path, "DELETE FROM Transmit_Info");
    EXPECT_TRUE(database->OpenRecordset("Transmit_Info", kTable)->Eof());
}

TEST_F(TransmitTable, WhatIsNotSupportedIsRefused) {
    const auto database = open(path);
    const auto table = database->OpenRecordset("Transmit_Info", kTable);
    EXPECT_EQ(failureOf([&] { engine.CreateWorkspace("w", "admin", "", 1); }), 5);
    EXPECT_EQ(failureOf([&] { workspace->OpenDatabase(path, true, false, ";pwd=word"); }), 5);
    EXPECT_EQ(failureOf([&] { workspace->OpenDatabase(path, false, false, "word"); }), 5);
    EXPECT_EQ(failureOf([&] { database->OpenRecordset("Transmit_Info", 4); }), 5);
    EXPECT_EQ(failureOf([&] { database->OpenRecordset("No \"such\" table", kTable); }), 5);
    EXPECT_EQ(failureOf([&] { table->Seek("=", {1, "000004601"}); }), 5) << "no index is set";
    EXPECT_EQ(failureOf([&] { table->Index("OtherKey"); }), 5);
    table->Index("PrimaryKey");
    EXPECT_EQ(failureOf([&] { table->Seek(">", {1, "000004601"}); }), 5);
    EXPECT_EQ(failureOf([&] { table->Seek("=", {1}); }), 5);
    EXPECT_EQ(failureOf([&] { table->Seek("=", {1, DateTime{}}); }), 5);
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

TEST_F(TransmitTable, WhatOutlivesItsOwnerIsClosedWithIt) {
    auto database = open(path);
    const auto table = database->OpenRecordset("Transmit_Info", kTable);
    const auto other = open(path);
    database.reset();
    EXPECT_EQ(failureOf([&] { table->Eof(); }), 91);
    workspace.reset();
    EXPECT_EQ(failureOf([&] { other->OpenRecordset("Transmit_Info", kTable); }), 91);
}

}  // namespace
}  // namespace orv
