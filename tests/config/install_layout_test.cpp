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

/// A property that is a file name behind the folder of `key`: those that this system opens or starts.
struct FileRow {
    Property property;
    const char* key;
    const char* file;
};

constexpr auto kFiles = std::to_array<FileRow>({
    {&cls_Com::BinAddExe, "BIN", "KELT_ADD.EXE"},
    {&cls_Com::BinLineExe, "BIN", "KELT_LINE.EXE"},
    {&cls_Com::BinMenuExe, "BIN", "KELT_MENU.EXE"},
    {&cls_Com::HlpFile, "HLP", "help.hlp"},
    {&cls_Com::MdbOrvEstateDB, "MDB", "ORVESTATE.MDB"},
    {&cls_Com::TmpWorkImgFile, "TMP", "WorkImg"},
    {&cls_Com::LogErrFile, "LOGERR", "260504_err.log"},
    {&cls_Com::LogSndFile, "LOGSND", "260504_snd.log"},
    {&cls_Com::LogRcvFile, "LOGRCV", "260504_rcv.log"},
    {&cls_Com::LogDwlFile, "LOGDWL", "260504_dwl.log"},
    {&cls_Com::LogRasFile, "LOGRAS", "ras.log"},
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

TEST_F(InstallLayout, AFileStandsBehindItsFolder) {
    for (const FileRow& row : kFiles) {
        set("PATH", row.key, std::string("C:\\X\\") + row.key);
        EXPECT_EQ((com().*row.property)(), std::string("C:\\X\\") + row.key + "\\" + row.file);
        set("PATH", row.key, "");
        EXPECT_EQ((com().*row.property)(), row.file);
    }
    EXPECT_EQ(log(), "");
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

}  // namespace
}  // namespace orv
