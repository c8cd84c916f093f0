#include <algorithm>
#include <map>

#include "adapters/sqlite/sqlite_store.h"
#include "adapters/store/transmit_tables.h"
#include "support/settings_test.h"
#include "support/store_files.h"

namespace orv {
namespace {

using Texts = std::vector<std::string>;

/// The loader on the sample's profiles: number 1 is filled, of number 2 there is the key alone.
class TransmitProfile : public SettingsTest {
protected:
    TransmitProfile() {
        runSampleFile(path, "transmit.sql");
        services().transmitEngine = &engine;
        gTransmitDatabase = path;
    }
    void load(int number = 1) {
        const auto key = static_cast<std::int16_t>(number);
        EXPECT_TRUE(multiCom().Transmit_Envion_DataSet("unused", key, "000004601").isNull());
        EXPECT_EQ(gTransmitWorkspace, nullptr);
    }
    void put(const std::string& column, const std::string& value) {
        runSql(path, "UPDATE Transmit_Info SET " + column + " = " + value + " WHERE TransmitNo = 1");
    }

    TempFolder folder;
    const std::string path = folder.file("SEND.MDB");
    TransmitTables engine{nativePaths(), sqliteStore(std::chrono::milliseconds(50))};
    TransmitInfo& info = tTransmitInfo;
};

TEST_F(TransmitProfile, EachColumnGoesIntoItsField) {
    const Texts texts = {"DefinitionFileName",
                         "DefinitionFileName2",
                         "DefinitionFileName3",
                         "OutPutFileName",
                         "ImageFileSendPath",
                         "SiteAddress2",
                         "GroupID",
                         "LoginID",
                         "Passwd",
                         "AppendFilePath",
                         "CommandFilePath"};
    Texts paths{"HomeDir", "HomeImageDir"};
    for (int number = 2; number <= 10; ++number) {
        paths.push_back("HomeImageDir" + std::to_string(number));
    }
    for (const Texts& columns : {texts, paths}) {
        for (const std::string& column : columns) {
            put(column, "'" + column + "'");
        }
    }
    std::transform(paths.begin(), paths.end(), paths.begin(), [](const std::string& column) { return column + "/"; });
    put("DefinitionFileNameMode",
        "71, DataMax = '70000', ImageUpLoadFlg = 72, MakeMode = 73, HomeImageDirCheck = 74,"
        " OrvTransmitMode = 75, ImageFileNameFlg = 76, ImageGifFileFlg = 77");
    set("NET", "PASSIVE", "False");
    set("NET", "FTPTIMEOUT", "500");
    set("NET", "FTPOVERWRITE", "0");
    load();
    EXPECT_EQ((Texts{info.DefinitionFileName, info.DefinitionFileName2, info.DefinitionFileName3, info.OutPutFileName,
                     info.ImageFileSendPath, info.SiteAddress2, info.GroupID, info.LoginID, info.Passwd,
                     info.AppendFilePath, info.CommandFilePath}),
              texts);
    EXPECT_EQ((Texts{info.HomeDir, info.HomeImageDir, info.HomeImageDir2, info.HomeImageDir3, info.HomeImageDir4,
                     info.HomeImageDir5, info.HomeImageDir6, info.HomeImageDir7, info.HomeImageDir8, info.HomeImageDir9,
                     info.HomeImageDir10}),
              paths);
    EXPECT_EQ((std::vector<int>{info.DefinitionFileNameMode, info.DataMax, info.ImageUpLoadFlg, info.MakeMode,
                                info.HomeImageDirCheck, info.OrvTransmitMode, info.ImageFileNameFlg,
                                info.ImageGifFileFlg, info.FtpTimeOut}),
              (std::vector<int>{71, 70000, 72, 73, 74, 75, 76, 77, 500}));
    EXPECT_FALSE(info.PassiveMode || info.FtpOverwrite);
}

TEST_F(TransmitProfile, NullColumnsAndAMissingProfileHaveDefaults) {
    for (const int number : {2, 3}) {
        info.DefinitionFileName = info.HomeDir = "old";
        info.MakeMode = 9;
        load(number);
        EXPECT_EQ(info.DefinitionFileName + info.HomeDir, "");
        EXPECT_EQ((std::vector<int>{info.MakeMode, info.DefinitionFileNameMode, info.HomeImageDirCheck}),
                  (std::vector<int>{0, 1, 1}));
        EXPECT_EQ(info.SendMode, number == 3 ? "ﾌｧｲﾙ作成のみ" : "FTP送信方式");
        EXPECT_EQ(info.FtpTimeOut, 60000);
        EXPECT_TRUE(info.PassiveMode && info.FtpOverwrite);
    }
}

TEST_F(TransmitProfile, TheWayOfSendingIsTranslated) {
    for (const auto& [column, mode] : std::map<std::string, std::string>{
             {"0", "FTP送信方式"}, {"2", "ﾌｧｲﾙ作成のみ"}, {"1", "HTTP送信方式"}, {"3", "HTTP送信方式"}}) {
        put("SendMode", column);
        load();
        EXPECT_EQ(info.SendMode, mode);
    }
}

TEST_F(TransmitProfile, AFailureGoesUpAndAnEmptyTableIsNone) {
    info.LoginID = "old";
    put("DataMax", "'no number'");
    EXPECT_THROW(load(), RunTimeError);
    gTransmitDatabase = folder.file("missing");
    EXPECT_THROW(load(), RunTimeError);
    EXPECT_EQ(gTransmitWorkspace, nullptr);
    gTransmitDatabase = path;
    runSql(path, "DELETE FROM Transmit_Info");
    load();
    EXPECT_EQ(info.LoginID, "old");
}

}  // namespace
}  // namespace orv
