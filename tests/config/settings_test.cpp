#include "config/settings.h"
#include "support/fixture.h"

namespace orv {
namespace {

class Settings : public SystemTest {
protected:
    void writeRegistry(const std::string& text) const { writeFile(office.root() + "/registry.txt", text); }
};

/// A setting for each way of reading one.
struct Setting {
    std::string (*read)();
    const char *section, *key;
    /// For the value "12".
    std::string present, ifEmpty;
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
             {[] { return com().TerminalNo(); }, "NO_00", "PCNO", "12", "", "", "C:\\ORV\\SYS\\Kcount.ini"},
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
    // The last byte of 能 equals the backslash.
    for (const auto& [path, result] : std::to_array<std::pair<const char*, const char*>>(
             {{"", ""}, {"C:\\A", "C:\\A\\"}, {"C:\\A\\", "C:\\A\\"}, {"C:\\能", "C:\\能"}, {"C:\\社", "C:\\社\\"}})) {
        EXPECT_EQ(P_AddBackslash(path), result);
    }
}

TEST_F(Settings, TheInstallFolderIsInTheRegistryOrNextToTheProgram) {
    for (const auto& [folder, file] : {std::pair{"C:\\Z", "C:\\Z\\SYS\\system.ini"}, {"Z:\\", "Z:\\SYS\\system.ini"}}) {
        dropSharedSettings();
        writeRegistry(std::string("[HKEY_LOCAL_MACHINE\\SOFTWARE\\ZENTHA\\ORV]\nInstallKey=") + folder);
        EXPECT_EQ(com().P_GetInstallFolderPath(), folder);
        EXPECT_EQ(com().SysSystemIni(), file);
    }
    dropSharedSettings();
    writeRegistry("[HKEY_LOCAL_MACHINE\\SOFTWARE\\ZENTHA\\ORV]\nInstallKey=C:\\ｏrv_μёⅳ社");
    EXPECT_EQ(com().SysKcount(), "C:\\ＯRV_ΜЁⅣ社\\SYS\\Kcount.ini");
    std::filesystem::create_directories(filePath(office.root() + "/C/ｏrv_μёⅳ社/sys"));
    writeFile(office.root() + "/C/ｏrv_μёⅳ社/sys/Kcount.ini", "");
    EXPECT_TRUE(files.exists(com().SysKcount()));
    dropSharedSettings();
    writeRegistry("");
    EXPECT_EQ(com().SysSystemIni(), "C:\\ORV\\BIN\\..\\SYS\\system.ini");
    EXPECT_EQ(com().P_GetInstallFolderPath(), "C:\\ORV\\BIN\\");
    EXPECT_EQ(gErrMsg, "[ P_GetRegQueryString ] レジストリファイルをオープンできませんでした。");
    EXPECT_EQ(gErrCode, "EDLL50002");
    EXPECT_EQ(log(), "");
}

TEST_F(Settings, EachPropertyReadsItsSetting) {
    std::istringstream sample(readFile(filePath(kSampleFolder) / "C/ORV/SYS/system.ini"));
    std::string section;
    for (std::string line; std::getline(sample, line);) {
        const std::string key = line.substr(0, line.find('='));
        if (line.starts_with('[')) section = line.substr(1, line.find(']') - 1);
        if (key != line && !line.starts_with(';')) settings.set(section, key, section + "." + key);
    }
    settings.set("LAN", "HIMSELF", "CLIENT");
    settings.set("NO_00", "PCNO", "NO_00.PCNO");
    settings.set("NO_00", "PCNAME", "NO_00.PCNAME");
#define PROPERTY(owner, name, value) EXPECT_EQ(owner().name(), value) << #name;
#include "config/properties.inc"
}

TEST_F(Settings, AKindOfPropertyHasItsFolderOfLeaflets) {
    using Kind = std::pair<const char*, const char*>;
    for (const auto& [code, folder] : {Kind{"RH", "CHINTAI\\"}, Kind{"RJ1", "TENANTO\\"}, Kind{"SL", "TOCHI\\"},
                                       Kind{"SHM", "MANSION\\"}, Kind{"SHW ", "MANSION\\"}, Kind{"SHR", "KODATE\\"},
                                       Kind{"SHT", "KODATE\\"}, Kind{"SHX", ""}, Kind{"SH", ""}, Kind{"XX", ""}}) {
        EXPECT_EQ(com().VimblChirasiDir(code), std::string("C:\\ORV\\VIMBL\\CHIRASI\\") + folder) << code;
    }
    EXPECT_EQ(log(), "");
}

/// Answers every operation with success, except the one that fails.
class ScriptedRegistry : public Registry {
public:
    std::string failing, calls;

    std::int32_t RegOpenKeyEx(Handle hive, const std::string& subKey, std::int32_t access, Handle& key) override {
        key = 7;
        return answer("open", {hive, subKey, access});
    }
    std::int32_t RegQueryValueEx(Handle key, const std::string& name, std::string& value, std::int32_t size) override {
        value = std::string("found\0rest", 10);
        return answer("query", {key, name, size});
    }
    std::int32_t RegSetValueEx(Handle key, const std::string& name, std::int32_t type, const std::string& value,
                               std::int32_t byteCount) override {
        return answer("set", {key, name, type, value, byteCount});
    }
    std::int32_t RegCreateKeyEx(Handle hive, const std::string& subKey, std::int32_t access, Handle& key) override {
        key = 8;
        return answer("create", {hive, subKey, access});
    }
    std::int32_t RegCloseKey(Handle key) override { return answer("close", {key}); }

private:
    std::int32_t answer(const std::string& operation, const Values& values) {
        calls += operation;
        for (const Value& value : values) calls += " " + toText(value);
        calls += ";";
        return operation == failing ? 5 : 0;
    }
};

TEST_F(Settings, TheRegistryIsOpenedUsedAndClosed) {
    ScriptedRegistry scripted;
    services().registry = &scripted;
    const std::string open = "open -2147483646 A\\B 1;";
    const std::string used = open + "query 7 K 1024;close 7;";
    struct Case {
        const char* failing;
        std::string calls, pair, value;
    };
    const std::string label = "[ P_GetRegQueryString ] ";
    for (const Case& row : {
             Case{"", used, "", "found"},
             Case{"open", open, label + "レジストリファイルをオープンできませんでした。EDLL50002", ""},
             Case{"query", used, label + "レジストリ内容を取得できませんでした。EDLL50003", ""},
             Case{"close", used, label + "レジストリファイルをクローズできませんでした。EDLL50004", "found"},
         }) {
        clearPair();
        scripted.calls.clear();
        scripted.failing = row.failing;
        std::string value;
        EXPECT_EQ(com().P_GetRegQueryString("A\\B", "K", "-2147483646", value), row.pair.empty());
        EXPECT_EQ(scripted.calls, row.calls);
        EXPECT_EQ(gErrMsg + gErrCode, row.pair);
        EXPECT_EQ(value, row.value);
    }
    for (const auto& [failing, type, sent] :
         std::to_array<std::tuple<const char*, std::int32_t, std::string>>({{"", 1, "set 8 K 1 値😀a 8;close 8;"},
                                                                            {"", 4, "set 8 K 4 値😀a 4;close 8;"},
                                                                            {"set", 1, "set 8 K 1 値😀a 8;close 8;"}})) {
        clearPair();
        scripted.calls.clear();
        scripted.failing = failing;
        EXPECT_EQ(com().P_SetRegQueryString("A\\B", "K", "-2147483646", "値😀a", type), scripted.failing.empty());
        EXPECT_EQ(scripted.calls, "create -2147483646 A\\B 6;" + sent);
    }
    EXPECT_EQ(gErrMsg + gErrCode, "[ P_SetRegQueryString ] レジストリに値をセットできませんでした。EDLL50003");
    services().registry = &registry;
}

}  // namespace
}  // namespace orv
