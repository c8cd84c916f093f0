#include "support/settings_test.h"

namespace orv {
namespace {

using Property = std::string (cls_Com::*)() const;
using Settings = SettingsTest;

struct Row {
    Property property;
    const char* section;
    const char* key;
    const char* present;
    const char* ifEmpty;
    const char* onFailure = "";
};

/// The value set is "12" throughout.
constexpr auto kSettings = std::to_array<Row>({
    {&cls_Com::IniImgW, "IMG", "LONG_W", "12", "", "0"},
    {&cls_Com::IniImgH, "IMG", "LONG_H", "12", "", "0"},
    {&cls_Com::IniImgSize, "IMG", "MAXSIZE", "12", "", "0"},
    {&cls_Com::ORV_GifImgMode, "IMG", "GIFIMGMODE", "12", "False"},
    {&cls_Com::IniCSV, "UTILTY", "CSV", "12\\", ""},
    {&cls_Com::IniGetImg, "UTILTY", "GET_IMG", "12\\", ""},
    {&cls_Com::IniMinorVer, "VERSION", "MINOR", "12", ""},
    {&cls_Com::MinorVer, "VERSION", "MINOR", "12", ""},
    {&cls_Com::ORV_URL, "NET", "URL", "12", ""},
    {&cls_Com::ORV_CusSendService, "NET", "CUSSENDSERVICE", "12", ""},
    {&cls_Com::ORV_SendCus, "NET", "SENDCUS", "12", ""},
    {&cls_Com::ORV_SendService, "NET", "SENDSERVICE", "12", ""},
    {&cls_Com::ORV_Send, "NET", "SEND", "12", ""},
    {&cls_Com::ORV_ReceiveService, "NET", "RECEIVESERVICE", "12", ""},
    {&cls_Com::ORV_Receive, "NET", "RECEIVE", "12", ""},
    {&cls_Com::ORV_TimeOut, "NET", "TIMEOUT", "12", ""},
    {&cls_Com::ORV_Interval, "NET", "INTERVAL", "12", ""},
    {&cls_Com::ORV_NextInterval, "NET", "NEXTINTERVAL", "12", ""},
    {&cls_Com::ORV_UseProxy, "NET", "USEPROXY", "12", ""},
    {&cls_Com::ORV_PassiveMode, "NET", "PASSIVE", "12", "True"},
    {&cls_Com::ORV_FtpTimeOut, "NET", "FTPTIMEOUT", "12", "60000"},
    {&cls_Com::ORV_RetryCount, "NET", "RETRY", "13", "4"},
    {&cls_Com::VimblFolder, "VIMBL", "VimblDir", "12\\", ""},
    {&cls_Com::VimblChirasiRoot, "VIMBL", "ChirasiDir", "12\\", ""},
    {&cls_Com::VimblMnuExe, "VIMBL", "MenuExeFile", "12", ""},
    {&cls_Com::VimblMnuExeStartPara, "VIMBL", "MenuStartPara", " 12", " "},
    {&cls_Com::VimblMkRmExe, "VIMBL", "MakeRomExeFile", "12", ""},
    {&cls_Com::VimblMkRmExeStartPara, "VIMBL", "MakeRomStartPara", " 12", " "},
});

TEST_F(Settings, PresentEmptyAndUnreadable) {
    std::string expected;
    for (const Row& row : kSettings) {
        profiles.clear();
        EXPECT_EQ((com().*row.property)(), row.ifEmpty) << row.key;
        set(row.section, row.key, "12");
        EXPECT_EQ((com().*row.property)(), row.present) << row.key;
        EXPECT_EQ(log(), expected) << row.key;
        profiles.refuse(row.section, row.key, Failure::PermissionDenied);
        EXPECT_EQ((com().*row.property)(), row.onFailure) << row.key;
        expected += record("0", "");
        EXPECT_EQ(log(), expected) << row.key;
    }
}

TEST_F(Settings, AFailureInATreatmentIsLoggedWithItsNumber) {
    services().codePage = nullptr;
    class Broken : public CodePage {
        std::string encode(const std::string& text) const override {
            return text == "C:\\BIN" ? throw RunTimeError(Failure::OutOfMemory) : text;
        }
        std::string decode(const std::string& bytes) const override { return bytes; }
        bool holds(char32_t) const override { return true; }
    } broken;
    services().codePage = &broken;
    set("PATH", "BIN", "C:\\BIN");
    EXPECT_EQ(com().BinFolder(), "");
    EXPECT_EQ(files.get(kLog), record("7", std::string(descriptionOf(Failure::OutOfMemory))));
    EXPECT_EQ(gErrMsg, "");
}

TEST_F(Settings, RetriesCountTheFirstAttempt) {
    struct Case {
        const char* set;
        const char* count;
    };
    for (const Case& row : {Case{"abc", "4"}, Case{"", "4"}, Case{"0", "1"}, Case{"2", "3"}, Case{"-1", "0"},
                            Case{" 5 ", "6"}, Case{"99999", "100000"}}) {
        set("NET", "RETRY", row.set);
        EXPECT_EQ(com().ORV_RetryCount(), row.count) << row.set;
    }
}

TEST_F(Settings, OnlyAClientHasATypeOfNetwork) {
    struct Case {
        const char* himself;
        const char* type;
        const char* result;
    };
    for (const Case& row : {Case{"", "LANB", ""}, Case{"SERVER", "LANB", ""}, Case{"client", "LANB", ""},
                            Case{"CLIENT", "", "LANA"}, Case{"CLIENT", "LANB", "LANB"}}) {
        set("LAN", "HIMSELF", row.himself);
        set("LAN", "TYPE", row.type);
        EXPECT_EQ(com().ORV_LANTYPE(), row.result) << row.himself << row.type;
    }
    EXPECT_EQ(log(), "");
    profiles.refuse("LAN", "TYPE", Failure::DeviceIo);
    EXPECT_EQ(com().ORV_LANTYPE(), "");
    profiles.refuse("LAN", "HIMSELF", Failure::DeviceIo);
    EXPECT_EQ(com().ORV_LANTYPE(), "");
    EXPECT_EQ(log(), record("0", "") + record("0", ""));
}

TEST_F(Settings, LeafletFoldersGoByTheKindOfProperty) {
    set("VIMBL", "ChirasiDir", "C:\\CH");
    for (const char* key : {"ChintaiDir", "TenantoDir", "TochiDir", "MansionDir", "KodateDir"}) {
        set("VIMBL", key, key);
    }
    struct Case {
        const char* code;
        const char* folder;
    };
    for (const Case& row : {Case{"RH", "ChintaiDir\\"}, Case{"RHX", "ChintaiDir\\"}, Case{"RJ", "TenantoDir\\"},
                            Case{"SL1", "TochiDir\\"}, Case{"SHM", "MansionDir\\"}, Case{"SHW ", "MansionDir\\"},
                            Case{"SHR", "KodateDir\\"}, Case{"SHT", "KodateDir\\"}, Case{"SHX", ""}, Case{"SH", ""},
                            Case{"SHMM", ""}, Case{"rh", ""}, Case{"", ""}, Case{"R", ""}}) {
        EXPECT_EQ(com().VimblChirasiDir(row.code), std::string("C:\\CH\\") + row.folder) << row.code;
    }
}

TEST_F(Settings, VimblProgramsStandInTheirFolder) {
    set("VIMBL", "VimblDir", "C:\\V");
    set("VIMBL", "MenuExeFile", "menu.exe");
    EXPECT_EQ(com().VimblMnuExe(), "C:\\V\\menu.exe");
    EXPECT_EQ(com().VimblMkRmExe(), "C:\\V\\");
}

TEST_F(Settings, WhatACallerIsStartedWith) {
    set("UTILTY", "USER_STARTPARA", "menu.exe COS");
    EXPECT_EQ(com().ORV_STARTPARA("USER_"), "menu.exe COS");
    EXPECT_EQ(com().ORV_STARTPARA(""), "");
}

TEST_F(Settings, OneVersionIsTrimmedTheOtherAsRead) {
    set("VERSION", "MINOR", "4.6 ");
    EXPECT_EQ(com().IniMinorVer(), "4.6");
    EXPECT_EQ(com().MinorVer(), "4.6 ");
}

}  // namespace
}  // namespace orv
