#include "config/built_in_hosts.h"
#include "config/paths.h"
#include "config/profile.h"
#include "support/fixture.h"

namespace orv {
namespace {

class Settings : public SystemTest {
protected:
    void registryIs(const std::string& text) const { writeFile(office.root() + "/registry.txt", text); }
};

/// A setting of each treatment.
struct Setting {
    std::string (*read)();
    const char* section;
    const char* key;
    /// For the value "12".
    std::string present;
    std::string ifEmpty;
    std::string onFailure = {};
    const char* file = "C:\\ORV\\SYS\\system.ini";
};

TEST_F(Settings, PresentEmptyAndUnreadable) {
    const std::string host(kImageHost);
    const char* ofTheOffice = "S:\\SHARED\\system.ini";
    settings.set("PATH", "SYS", "S:\\SHARED");
    std::string expected;
    for (const Setting& row : std::vector<Setting>{
             {[] { return com().IniImgW(); }, "IMG", "LONG_W", "12", "", "0"},
             {[] { return com().IniCSV(); }, "UTILTY", "CSV", "12\\", ""},
             {[] { return com().IniMinorVer(); }, "VERSION", "MINOR", "12", ""},
             {[] { return com().MinorVer(); }, "VERSION", "MINOR", "12", ""},
             {[] { return com().ORV_URL(); }, "NET", "URL", "12", ""},
             {[] { return com().ORV_PassiveMode(); }, "NET", "PASSIVE", "12", "True"},
             {[] { return com().ORV_RetryCount(); }, "NET", "RETRY", "13", "4"},
             {[] { return multiCom().ORV_IMAGE_URL(); }, "NET", "ORVIMG", "12", host, host, ofTheOffice},
             {[] { return multiCom().ORV_IMAGE_HTTP_URL(); }, "NET", "ORVIMG_HTTP", "12/", std::string(kImageUploadUrl),
              host, ofTheOffice},
             {[] { return multiCom().ORV_IMAGE_TRANSFER_TYPE(); }, "NET", "TRANSFERTYPE", "12", "FTP", "FTP",
              ofTheOffice},
             {[] { return multiCom().ORV_FtpOverwrite(); }, "NET", "FTPOVERWRITE", "12", "True"},
         }) {
        settings.set(row.section, row.key, "");
        EXPECT_EQ(row.read(), row.ifEmpty) << row.key;
        settings.set(row.section, row.key, "12");
        EXPECT_EQ(row.read(), row.present) << row.key;
        EXPECT_EQ(settings.lastFile, row.file) << row.key;
        EXPECT_EQ(log(), expected) << row.key;
        settings.refuse(row.section, row.key);
        EXPECT_EQ(row.read(), row.onFailure) << row.key;
        expected += record("0", "");
        EXPECT_EQ(log(), expected) << row.key;
    }
}

TEST_F(Settings, OnlyAClientHasATypeOfNetwork) {
    for (const auto& [himself, type, result] : std::to_array<std::array<const char*, 3>>({
             {"", "LANB", ""},
             {"SERVER", "LANB", ""},
             {"client", "LANB", ""},
             {"CLIENT", "", "LANA"},
             {"CLIENT", "LANB", "LANB"},
         })) {
        settings.set("LAN", "HIMSELF", himself);
        settings.set("LAN", "TYPE", type);
        EXPECT_EQ(com().ORV_LANTYPE(), result) << himself << type;
    }
}

TEST_F(Settings, ABackslashIsAddedByTheLastByte) {
    // 能 ends in the byte of the backslash.
    for (const auto& [path, result] : std::to_array<std::pair<const char*, const char*>>(
             {{"", ""}, {"C:\\A", "C:\\A\\"}, {"C:\\A\\", "C:\\A\\"}, {"C:\\能", "C:\\能"}, {"C:\\社", "C:\\社\\"}})) {
        EXPECT_EQ(P_AddBackslash(path), result);
    }
}

TEST_F(Settings, TheInstallFolderComesFromTheRegistryOrIsBesideTheProgram) {
    for (const auto& [folder, file] : {std::pair{"C:\\Z", "C:\\Z\\SYS\\system.ini"}, {"Z:\\", "Z:\\SYS\\system.ini"}}) {
        dropSharedSettings();
        registryIs(std::string("[HKEY_LOCAL_MACHINE\\SOFTWARE\\ZENTHA\\ORV]\nInstallKey=") + folder);
        EXPECT_EQ(com().P_GetInstallFolderPath(), folder);
        EXPECT_EQ(com().SysSystemIni(), file);
    }
    dropSharedSettings();
    registryIs("[HKEY_LOCAL_MACHINE\\SOFTWARE\\ZENTHA\\ORV]\nInstallKey=C:\\ｏrv_μёⅳ社");
    EXPECT_EQ(com().SysKcount(), "C:\\ＯRV_ΜЁⅣ社\\SYS\\Kcount.ini");
    std::filesystem::create_directories(office.root() + "/C/ｏrv_μёⅳ社/sys");
    writeFile(office.root() + "/C/ｏrv_μёⅳ社/sys/Kcount.ini", "");
    EXPECT_TRUE(files.exists(com().SysKcount()));
    dropSharedSettings();
    registryIs("");
    EXPECT_EQ(com().SysSystemIni(), "C:\\ORV\\BIN\\..\\SYS\\system.ini");
    EXPECT_EQ(com().P_GetInstallFolderPath(), "C:\\ORV\\BIN\\");
    EXPECT_EQ(gErrMsg, "[ P_GetRegQueryString ] レジストリファイルをオープンできませんでした。");
    EXPECT_EQ(gErrCode, "EDLL50002");
    EXPECT_EQ(log(), "");
}

}  // namespace
}  // namespace orv
