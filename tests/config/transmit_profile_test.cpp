#include "adapters/store/transmit_tables.h"
#include "support/catch_failure.h"
#include "support/fixture.h"

namespace orv {
namespace {

using T = TransmitInfo;

/// Runs the loader on a real table: profile 1 is filled, profile 2 has only the key.
class TransmitProfile : public SystemTest {
protected:
    TransmitProfile() {
        runSampleFile(path, "transmit.sql");
        services().transmitEngine = &engine;
        gTransmitDatabase = path;
    }
    void load(std::int16_t number) {
        EXPECT_TRUE(multiCom().Transmit_Envion_DataSet("unused", number, "000004601").isNull());
        EXPECT_EQ(gTransmitWorkspace, nullptr);
    }
    void put(const std::string& assignments) {
        runSql(path, "UPDATE Transmit_Info SET " + assignments + " WHERE TransmitNo = 1");
    }

    std::string path = office.root() + "/SEND.MDB";
    TransmitTables engine{nativePaths(), testStore()};
    TransmitInfo& info = tTransmitInfo;
};

// clang-format off
#define COLUMN(name) {#name, &T::name}

TEST_F(TransmitProfile, EachColumnGoesIntoItsFieldAndANullIsItsDefault) {
    const std::map<std::string, std::string T::*> texts{
        COLUMN(DefinitionFileName), COLUMN(DefinitionFileName2), COLUMN(DefinitionFileName3), COLUMN(OutPutFileName),
        COLUMN(ImageFileSendPath), COLUMN(SiteAddress2), COLUMN(GroupID), COLUMN(LoginID), COLUMN(Passwd),
        COLUMN(AppendFilePath), COLUMN(CommandFilePath)};
    const std::map<std::string, std::string T::*> folders{
        COLUMN(HomeDir), COLUMN(HomeImageDir), COLUMN(HomeImageDir2), COLUMN(HomeImageDir3), COLUMN(HomeImageDir4),
        COLUMN(HomeImageDir5), COLUMN(HomeImageDir6), COLUMN(HomeImageDir7), COLUMN(HomeImageDir8),
        COLUMN(HomeImageDir9), COLUMN(HomeImageDir10)};
    const std::map<std::string, std::int16_t T::*> numbers{
        COLUMN(DefinitionFileNameMode), COLUMN(ImageUpLoadFlg), COLUMN(MakeMode), COLUMN(HomeImageDirCheck),
        COLUMN(OrvTransmitMode), COLUMN(ImageFileNameFlg), COLUMN(ImageGifFileFlg)};
    // clang-format on
    const std::set<std::string> oneByDefault{"DefinitionFileNameMode", "HomeImageDirCheck"};
    std::int16_t number = 70;
    std::string all = "DataMax = 70000";
    for (const auto* columns : {&texts, &folders}) {
        for (const auto& [column, field] : *columns) all += ", " + column + " = 'of " + column + "'";
    }
    for (const auto& [column, field] : numbers) all += ", " + column + " = " + std::to_string(++number);
    put(all);
    load(1);
    for (const auto& [column, field] : texts) EXPECT_EQ(info.*field, "of " + column);
    for (const auto& [column, field] : folders) EXPECT_EQ(info.*field, "of " + column + "/");
    number = 70;
    for (const auto& [column, field] : numbers) EXPECT_EQ(info.*field, ++number) << column;
    EXPECT_EQ(info.DataMax, 70000);

    for (const std::int16_t other : std::array<std::int16_t, 2>{2, 3}) {  // nulls, and a missing profile
        load(1);
        load(other);
        for (const auto* columns : {&texts, &folders}) {
            for (const auto& [column, field] : *columns) EXPECT_EQ(info.*field, "") << column;
        }
        for (const auto& [column, field] : numbers) {
            EXPECT_EQ(info.*field, oneByDefault.contains(column) ? 1 : 0) << column;
        }
        EXPECT_EQ(info.DataMax, 0);
        EXPECT_EQ(info.SendMode, other == 2 ? "FTP送信方式" : "ﾌｧｲﾙ作成のみ");
    }
}

TEST_F(TransmitProfile, TheWayOfSendingIsTranslatedAndTheRestComesFromTheSettings) {
    settings.set("NET", "FTPTIMEOUT", "500");
    for (const auto& [column, mode, flag] : std::to_array<std::array<const char*, 3>>({
             {"0", "FTP送信方式", "True"},
             {"1", "HTTP送信方式", "False"},
             {"2", "ﾌｧｲﾙ作成のみ", "True"},
             {"3", "HTTP送信方式", "0"},
         })) {
        settings.set("NET", "PASSIVE", flag);
        settings.set("NET", "FTPOVERWRITE", flag);
        put(std::string("SendMode = ") + column);
        load(1);
        EXPECT_EQ(info.SendMode, mode);
        EXPECT_EQ(info.FtpTimeOut, 500);
        EXPECT_EQ(info.PassiveMode, std::string_view(flag) == "True") << flag;
        EXPECT_EQ(info.FtpOverwrite, std::string_view(flag) == "True") << flag;
    }
}

TEST_F(TransmitProfile, AFailureGoesUpAndLeavesTheRecord) {
    load(1);
    put("DataMax = 'no number', LoginID = 'other'");
    EXPECT_THROW(load(1), RunTimeError);
    runSql(path, "DELETE FROM Transmit_Info");
    load(1);
    gTransmitDatabase = office.root() + "/missing";
    EXPECT_THROW(load(1), RunTimeError);
    EXPECT_EQ(gTransmitWorkspace, nullptr);
    EXPECT_EQ(info.LoginID, "mihon");
}

TEST_F(TransmitProfile, ARowIsFoundByItsKeyAndNoneIsNotTheEnd) {
    const auto workspace = engine.CreateWorkspace("NewJetWorkspace", "admin", "", 2);
    const auto database = workspace->OpenDatabase(path, false, false, ";pwd=word");
    const auto table = database->OpenRecordset("Transmit_Info", 1);
    table->Index("PrimaryKey");
    table->Seek("=", {1, "000004601"});
    EXPECT_FALSE(table->Eof());
    ASSERT_FALSE(table->NoMatch());
    EXPECT_EQ(table->Fields("definitionFileNAME"), Value("C:\\ORV\\DAT\\BUKKEN.DEF"));
    EXPECT_EQ(catchFailure([&] { table->Fields("NoSuchColumn"); }), 9);
    for (const Values& keys :
         {Values{3, "000004601"}, Values{1, "' or 1=1"}, Values{1, Value()}, Values{"x", "000004601"}}) {
        table->Seek("=", keys);
        EXPECT_TRUE(table->NoMatch());
        EXPECT_FALSE(table->Eof());
        EXPECT_EQ(catchFailure([&] { table->Fields("DataMax"); }), 5);
    }
}

}  // namespace
}  // namespace orv
