#include "support/settings_test.h"

namespace orv {
namespace {

using Property = std::string (cls_Com::*)() const;
using InstallLayout = SettingsTest;

struct FolderRow {
    Property property;
    const char* key;
};

constexpr auto kFolders = std::to_array<FolderRow>({
    {&cls_Com::SeverSysPath, "SYS"},      {&cls_Com::BinFolder, "BIN"},       {&cls_Com::BinTmpFolder, "BINTMP"},
    {&cls_Com::BinDatFolder, "BINDAT"},   {&cls_Com::BinImgFolder, "BINIMG"}, {&cls_Com::BkupFolder, "BKUP"},
    {&cls_Com::HlpFolder, "HLP"},         {&cls_Com::DwlFolder, "DWL"},       {&cls_Com::ImgFolder, "IMG"},
    {&cls_Com::LogFolder, "LOG"},         {&cls_Com::LogErrFolder, "LOGERR"}, {&cls_Com::LogRasFolder, "LOGRAS"},
    {&cls_Com::LogSndFolder, "LOGSND"},   {&cls_Com::LogRcvFolder, "LOGRCV"}, {&cls_Com::LogDWlFolder, "LOGDWL"},
    {&cls_Com::LogInstFolder, "LOGINST"}, {&cls_Com::MdbFolder, "MDB"},       {&cls_Com::SysFolder, "SYS"},
    {&cls_Com::TmpFolder, "TMP"},         {&cls_Com::InfFolder, "INF"},
});

/// A property that is a file name behind the folder of `key`.
struct FileRow {
    Property property;
    const char* key;
    const char* file;
};

constexpr auto kFiles = std::to_array<FileRow>({
    {&cls_Com::BinInfoExe, "BIN", "KELT_INFO.EXE"},
    {&cls_Com::BinDataConvert, "BIN", "KeltDataConvert.exe"},
    {&cls_Com::BinDataConvert2, "BIN", "KeltDataConvert2.exe"},
    {&cls_Com::BinAddExe, "BIN", "KELT_ADD.EXE"},
    {&cls_Com::BinLineExe, "BIN", "KELT_LINE.EXE"},
    {&cls_Com::BinMenuExe, "BIN", "KELT_MENU.EXE"},
    {&cls_Com::BinOwnerExe, "BIN", "KELT_OWNER.EXE"},
    {&cls_Com::BinPaccorExe, "BIN", "KELT_PACCOR.EXE"},
    {&cls_Com::BinPacdisExe, "BIN", "KELT_PACDIS.EXE"},
    {&cls_Com::BinRhExe, "BIN", "KELT_RH.EXE"},
    {&cls_Com::BinRhprtdExe, "BIN", "KELT_RHPRT.EXE"},
    {&cls_Com::BinRjExe, "BIN", "KELT_RJ.EXE"},
    {&cls_Com::BinRjprtExe, "BIN", "KELT_RJPRT.EXE"},
    {&cls_Com::BinRlExe, "BIN", "KELT_RL.EXE"},
    {&cls_Com::BinRpExe, "BIN", "KELT_RP.EXE"},
    {&cls_Com::BinShExe, "BIN", "KELT_SH.EXE"},
    {&cls_Com::BinShprtdExe, "BIN", "KELT_SHPRT.EXE"},
    {&cls_Com::BinSlExe, "BIN", "KELT_SL.EXE"},
    {&cls_Com::BinSlprtExe, "BIN", "KELT_SLPRT.EXE"},
    {&cls_Com::BinSsExe, "BIN", "KELT_SS.EXE"},
    {&cls_Com::BinViewExe, "BIN", "KELT_VIEW.EXE"},
    {&cls_Com::BinSsprtExe, "BIN", "KELT_SSPRT.EXE"},
    {&cls_Com::BinStartExe, "BIN", "KELT_START.EXE"},
    {&cls_Com::BinUserExe, "BIN", "KELT_USER.EXE"},
    {&cls_Com::BinUtilyExe, "BIN", "KELT_UTILY.EXE"},
    {&cls_Com::BinSndExe, "BIN", "KELT_SND.EXE"},
    {&cls_Com::BinAllSndExe, "BIN", "KELT_ALLSND.EXE"},
    {&cls_Com::BinBkupExe, "BIN", "KELTBACKUP.EXE"},
    {&cls_Com::BinDownloadExe, "BIN", "KELTDOWNLOAD.EXE"},
    {&cls_Com::BinBase64Exe, "BIN", "Base64.EXE"},
    {&cls_Com::BinSaftyPriceExe, "BIN", "KELT_SAFTYPRICE.exe"},
    {&cls_Com::BkupFile, "BKUP", "ZTBKUP.LZH"},
    {&cls_Com::HlpFile, "HLP", "help.hlp"},
    {&cls_Com::MdbOrvDB, "MDB", "Orv.MDB"},
    {&cls_Com::MdbOrvEstateDB, "MDB", "ORVESTATE.MDB"},
    {&cls_Com::MdbOrvReplaceDB, "MDB", "ORVREPLACE.MDB"},
    {&cls_Com::MdbAddressDB, "MDB", "ADDRESS.MDB"},
    {&cls_Com::MdbRailDB, "MDB", "RAIL.MDB"},
    {&cls_Com::SysBknoIni, "SYS", "BKNO.INI"},
    {&cls_Com::SysContCsv, "SYS", "CONT.CSV"},
    {&cls_Com::TmpWorkImgFile, "TMP", "WorkImg"},
    {&cls_Com::TmpWorkImodeImgFile, "TMP", "WorkImg_i"},
    {&cls_Com::TmpImodeFile, "TMP", "TmpImg_i"},
    {&cls_Com::TmpWorkRom, "TMP", "WorkRom.rom"},
    {&cls_Com::TmpRom, "TMP", "TmpRom.rom"},
    {&cls_Com::LogErrFile, "LOGERR", "260504_err.log"},
    {&cls_Com::LogSndFile, "LOGSND", "260504_snd.log"},
    {&cls_Com::LogRcvFile, "LOGRCV", "260504_rcv.log"},
    {&cls_Com::LogDwlFile, "LOGDWL", "260504_dwl.log"},
    {&cls_Com::LogRasFile, "LOGRAS", "ras.log"},
    {&cls_Com::InfFile, "INF", "Information.html"},
    {&cls_Com::AdvFile, "INF", "Advertisement.html"},
    {&cls_Com::HisFile, "INF", "History.html"},
});

TEST_F(InstallLayout, AFolderEndsInOneBackslash) {
    for (const FolderRow& row : kFolders) {
        set("PATH", row.key, std::string("C:\\X\\") + row.key);
        EXPECT_EQ((com().*row.property)(), std::string("C:\\X\\") + row.key + "\\");
        set("PATH", row.key, "D:\\Y\\");
        EXPECT_EQ((com().*row.property)(), "D:\\Y\\") << row.key;
        set("PATH", row.key, "");
        EXPECT_EQ((com().*row.property)(), "") << row.key;
    }
    EXPECT_EQ(log(), "");
}

TEST_F(InstallLayout, AFolderThatCannotBeReadIsEmptyAndLogged) {
    std::string expected;
    for (const FolderRow& row : kFolders) {
        profiles.refuse("PATH", row.key, Failure::DeviceIo);
        EXPECT_EQ((com().*row.property)(), "") << row.key;
        expected += record("0", "");
    }
    EXPECT_EQ(log(), expected);
    EXPECT_EQ(gErrCode, "57");
    EXPECT_TRUE(gErrMsg.starts_with("[ PF_GetProFile ] ")) << gErrMsg;
}

TEST_F(InstallLayout, AFileStandsBehindItsFolder) {
    for (const FileRow& row : kFiles) {
        set("PATH", row.key, std::string("C:\\X\\") + row.key);
        EXPECT_EQ((com().*row.property)(), std::string("C:\\X\\") + row.key + "\\" + row.file);
        set("PATH", row.key, "");
        EXPECT_EQ((com().*row.property)(), row.file);
    }
    EXPECT_EQ(log(), "");
}

TEST_F(InstallLayout, AFileOfAFolderThatCannotBeReadIsABareNameLoggedOnce) {
    profiles.refuse("PATH", "MDB", Failure::DeviceIo);
    EXPECT_EQ(com().MdbOrvEstateDB(), "ORVESTATE.MDB");
    EXPECT_EQ(log(), record("0", ""));
}

TEST_F(InstallLayout, PictureSlotsCountFromZeroAndFilesFromOne) {
    EXPECT_EQ(com().ImgNoFolder(0), "1\\");
    EXPECT_EQ(com().TmpNoTmpFile(0), "TmpImg_1");
    set("PATH", "IMG", "C:\\X\\IMG");
    set("PATH", "TMP", "C:\\X\\TMP");
    EXPECT_EQ(com().ImgNoFolder(0), "C:\\X\\IMG\\1\\");
    EXPECT_EQ(com().ImgNoFolder(1), "C:\\X\\IMG\\2\\");
    EXPECT_EQ(com().TmpNoTmpFile(1), "C:\\X\\TMP\\TmpImg_2");
}

TEST_F(InstallLayout, ALogStartsAfreshEachDay) {
    set("PATH", "LOGERR", "C:\\LOG");
    clock.moment = {.year = 2009, .month = 12, .day = 31, .hour = 23, .minute = 59, .second = 59};
    EXPECT_EQ(com().LogErrFile(), "C:\\LOG\\091231_err.log");
    clock.moment = {.year = 2010, .month = 1, .day = 1};
    EXPECT_EQ(com().LogErrFile(), "C:\\LOG\\100101_err.log");
}

TEST_F(InstallLayout, TheMessageTableLiesBesideTheProgram) {
    files.setProgramFolder("C:\\Y\\BIN");
    EXPECT_EQ(com().SysMsgTbl(), "C:\\Y\\BIN\\..\\SYS\\MSG.TBL");
    EXPECT_EQ(registry.calls(), 0);
}

TEST_F(InstallLayout, TheTerminalsHaveAFileOfTheirOwn) {
    registry.put(kInstallKey, "InstallKey", "c:\\x");
    EXPECT_EQ(com().SysKcount(), "C:\\X\\SYS\\Kcount.ini");
    profiles.set("C:\\X\\SYS\\Kcount.ini", "NO_00", "PCNO", "03");
    profiles.set("C:\\X\\SYS\\Kcount.ini", "NO_00", "PCNAME", "受付");
    EXPECT_EQ(com().TerminalNo(), "03");
    EXPECT_EQ(com().TerminalName(), "受付");
    profiles.refuse("NO_00", "PCNO", Failure::DeviceIo);
    EXPECT_EQ(com().TerminalNo(), "");
    EXPECT_EQ(log(), record("0", ""));
}

}  // namespace
}  // namespace orv
