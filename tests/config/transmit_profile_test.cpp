#include <map>
#include <optional>

#include "support/settings_test.h"

namespace orv {
namespace {

/// One profile, and what was asked of the engine, in order.
struct Engine : TransmitEngine {
    std::vector<std::string> calls;
    std::map<std::string, Value> row;
    bool eof = false;
    bool noMatch = false;
    std::optional<Failure> seekFailure;
    int alive = 0;

    std::unique_ptr<TransmitWorkspace> CreateWorkspace(const std::string& name, const std::string& user,
                                                       const std::string& password, std::int32_t type) override;
};

/// Counts the objects that live, of whatever kind.
struct Counted {
    explicit Counted(Engine& owner) : engine(owner) { ++engine.alive; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    ~Counted() { --engine.alive; }

    Engine& engine;
};

struct Rows : TransmitRecordset, Counted {
    using Counted::Counted;

    void Index(const std::string& name) override { engine.calls.push_back("index " + name); }
    void Seek(const std::string& comparison, const Values& keys) override {
        engine.calls.push_back("seek " + comparison + toText(keys.at(0)) + "," + toText(keys.at(1)));
        if (engine.seekFailure) {
            throw RunTimeError(*engine.seekFailure);
        }
    }
    bool Eof() const override { return engine.eof; }
    bool NoMatch() const override { return engine.noMatch; }
    Value Fields(const std::string& name) const override { return engine.row[name]; }
    void Close() override { engine.calls.push_back("close rows"); }
};

struct Database : TransmitDatabase, Counted {
    using Counted::Counted;

    std::unique_ptr<TransmitRecordset> OpenRecordset(const std::string& table, std::int32_t type) override {
        engine.calls.push_back("table " + table + " " + std::to_string(type));
        return std::make_unique<Rows>(engine);
    }
    void Close() override { engine.calls.push_back("close database"); }
};

struct Workspace : TransmitWorkspace, Counted {
    using Counted::Counted;

    std::unique_ptr<TransmitDatabase> OpenDatabase(const std::string& path, bool exclusive, bool readOnly,
                                                   const std::string& connect) override {
        engine.calls.push_back("open " + path + (exclusive || readOnly ? " alone " : " shared ") + connect);
        return std::make_unique<Database>(engine);
    }
    void Close() override { engine.calls.push_back("close workspace"); }
};

std::unique_ptr<TransmitWorkspace> Engine::CreateWorkspace(const std::string& name, const std::string& user,
                                                           const std::string& password, std::int32_t type) {
    calls.push_back("workspace " + name + " " + user + " " + password + " " + std::to_string(type));
    return std::make_unique<Workspace>(*this);
}

class TransmitProfile : public SettingsTest {
protected:
    TransmitProfile() {
        services().transmitEngine = &engine;
        gTransmitDatabase = "C:\\X\\MDB\\SEND.MDB";
    }
    Value load() { return multiCom().Transmit_Envion_DataSet("unused", 7, "K"); }

    Engine engine;
};

TEST_F(TransmitProfile, OpensAndClosesInOrder) {
    EXPECT_TRUE(load().isNull());
    EXPECT_EQ(engine.calls, (std::vector<std::string>{"workspace NewJetWorkspace admin  2",
                                                      "open C:\\X\\MDB\\SEND.MDB shared ;pwd=stone2718",
                                                      "table Transmit_Info 1", "index PrimaryKey", "seek =7,K",
                                                      "close rows", "close database", "close workspace"}));
    EXPECT_EQ(engine.alive, 0);
    EXPECT_EQ(gTransmitWorkspace, nullptr);
}

TEST_F(TransmitProfile, EachColumnGoesIntoItsField) {
    set("NET", "PASSIVE", "False");
    set("NET", "FTPTIMEOUT", "500");
    set("NET", "FTPOVERWRITE", "0");
    engine.row = {{"DefinitionFileName", "d1"},
                  {"DefinitionFileName2", "d2"},
                  {"DefinitionFileName3", "d3"},
                  {"OutPutFileName", "out"},
                  {"ImageFileSendPath", "isp"},
                  {"DefinitionFileNameMode", 2},
                  {"DataMax", 70000},
                  {"ImageUpLoadFlg", "3"},
                  {"MakeMode", 4},
                  {"SendMode", 1},
                  {"SiteAddress2", "site"},
                  {"GroupID", "g"},
                  {"LoginID", "l"},
                  {"Passwd", "p"},
                  {"HomeDir", "h"},
                  {"HomeImageDirCheck", 5},
                  {"HomeImageDir", "i1/"},
                  {"HomeImageDir2", "i2"},
                  {"HomeImageDir3", "i3"},
                  {"HomeImageDir4", "i4"},
                  {"HomeImageDir5", "i5"},
                  {"HomeImageDir6", "i6"},
                  {"HomeImageDir7", "i7"},
                  {"HomeImageDir8", "i8"},
                  {"HomeImageDir9", "i9"},
                  {"HomeImageDir10", "i10"},
                  {"AppendFilePath", "a"},
                  {"OrvTransmitMode", 6},
                  {"ImageFileNameFlg", 8},
                  {"ImageGifFileFlg", 9},
                  {"CommandFilePath", "c"}};
    load();
    const TransmitInfo& info = tTransmitInfo;
    using Texts = std::vector<std::string>;
    EXPECT_EQ((Texts{info.DefinitionFileName, info.DefinitionFileName2, info.DefinitionFileName3, info.OutPutFileName,
                     info.ImageFileSendPath, info.SendMode, info.SiteAddress2, info.GroupID, info.LoginID, info.Passwd,
                     info.AppendFilePath, info.CommandFilePath}),
              (Texts{"d1", "d2", "d3", "out", "isp", "HTTP送信方式", "site", "g", "l", "p", "a", "c"}));
    EXPECT_EQ((Texts{info.HomeDir, info.HomeImageDir, info.HomeImageDir2, info.HomeImageDir3, info.HomeImageDir4,
                     info.HomeImageDir5, info.HomeImageDir6, info.HomeImageDir7, info.HomeImageDir8, info.HomeImageDir9,
                     info.HomeImageDir10}),
              (Texts{"h/", "i1/", "i2/", "i3/", "i4/", "i5/", "i6/", "i7/", "i8/", "i9/", "i10/"}));
    EXPECT_EQ((std::vector<int>{info.DefinitionFileNameMode, info.DataMax, info.ImageUpLoadFlg, info.MakeMode,
                                info.HomeImageDirCheck, info.OrvTransmitMode, info.ImageFileNameFlg,
                                info.ImageGifFileFlg, info.FtpTimeOut}),
              (std::vector<int>{2, 70000, 3, 4, 5, 6, 8, 9, 500}));
    EXPECT_FALSE(info.PassiveMode || info.FtpOverwrite);
}

TEST_F(TransmitProfile, NullColumnsAndAMissingProfileHaveDefaults) {
    for (const bool missing : {false, true}) {
        tTransmitInfo.DefinitionFileName = tTransmitInfo.HomeDir = "old";
        tTransmitInfo.MakeMode = 9;
        engine.noMatch = missing;
        load();
        EXPECT_EQ(tTransmitInfo.DefinitionFileName + tTransmitInfo.HomeDir, "");
        EXPECT_EQ(tTransmitInfo.MakeMode, 0);
        EXPECT_EQ(tTransmitInfo.DefinitionFileNameMode, 1);
        EXPECT_EQ(tTransmitInfo.HomeImageDirCheck, 1);
        EXPECT_EQ(tTransmitInfo.SendMode, missing ? "ﾌｧｲﾙ作成のみ" : "FTP送信方式");
        EXPECT_EQ(tTransmitInfo.FtpTimeOut, 60000);
        EXPECT_TRUE(tTransmitInfo.PassiveMode && tTransmitInfo.FtpOverwrite);
    }
}

TEST_F(TransmitProfile, TheWayOfSendingIsTranslated) {
    struct Case {
        Value column;
        const char* mode;
    };
    for (const Case& row : {Case{0, "FTP送信方式"}, Case{"0", "FTP送信方式"}, Case{2, "ﾌｧｲﾙ作成のみ"},
                            Case{1, "HTTP送信方式"}, Case{3, "HTTP送信方式"}, Case{-1, "HTTP送信方式"}}) {
        engine.row["SendMode"] = row.column;
        load();
        EXPECT_EQ(tTransmitInfo.SendMode, row.mode);
    }
}

TEST_F(TransmitProfile, AnEmptyTableLeavesTheRecord) {
    tTransmitInfo.LoginID = "old";
    engine.eof = true;
    load();
    EXPECT_EQ(tTransmitInfo.LoginID, "old");
    EXPECT_EQ(engine.calls.back(), "close workspace");
}

TEST_F(TransmitProfile, AFailureGoesUpAndLeavesNothingOpenOrHalfFilled) {
    tTransmitInfo.LoginID = "old";
    engine.row["DataMax"] = "no number";
    EXPECT_THROW(load(), RunTimeError);
    engine.seekFailure = Failure::InvalidCall;
    EXPECT_THROW(load(), RunTimeError);
    EXPECT_EQ(tTransmitInfo.LoginID, "old");
    EXPECT_EQ(engine.alive, 0);
    EXPECT_EQ(gTransmitWorkspace, nullptr);
}

}  // namespace
}  // namespace orv
