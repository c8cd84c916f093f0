#include "config/cls_com.h"

#include <array>
#include <map>

#include "config/paths.h"
#include "config/profile.h"
#include "support/settings_test.h"

namespace orv {
namespace {

using Operation = MemoryRegistry::Operation;
constexpr const char* kLocalMachine = "-2147483646";

class ClsCom : public SettingsTest {
protected:
    bool readInstallKey(std::string& value) {
        return com().P_GetRegQueryString(kInstallKey, "InstallKey", kLocalMachine, value);
    }
    bool writeInstallKey(const std::string& value, std::int32_t type = 1) {
        return com().P_SetRegQueryString(kInstallKey, "InstallKey", kLocalMachine, value, type);
    }
    void expectPair(const std::string& text, const std::string& code) {
        EXPECT_EQ(gErrMsg, text);
        EXPECT_EQ(gErrCode, code);
    }
};

TEST_F(ClsCom, ABackslashIsAddedByTheLastByte) {
    // 能 ends in the byte of the backslash.
    for (const auto& [path, result] : std::map<std::string, std::string>{
             {"", ""}, {"C:\\A", "C:\\A\\"}, {"C:\\A\\", "C:\\A\\"}, {"C:\\能", "C:\\能"}, {"C:\\社", "C:\\社\\"}}) {
        EXPECT_EQ(P_AddBackslash(path), result) << path;
    }
}

TEST_F(ClsCom, AnAbsentValueIsEmptyAndNoFailure) {
    profiles.set("f.ini", "S", "empty", "");
    profiles.set("f.ini", "S", "quoted", "  a b ");
    profiles.set("f.ini", "S", "blanks", "   ");
    for (const auto& [key, expected] :
         std::map<std::string, std::string>{{"absent", ""}, {"empty", ""}, {"quoted", "a b "}, {"blanks", ""}}) {
        std::string value = "before";
        EXPECT_TRUE(PF_GetProFile("f.ini", "S", key, value));
        EXPECT_EQ(value, expected) << key;
    }
}

TEST_F(ClsCom, AReadingThatFailsIsToldByThePairAndNotLogged) {
    profiles.refuse("S", "K", Failure::PermissionDenied);
    std::string value = "before";
    EXPECT_FALSE(PF_GetProFile("f.ini", "S", "K", value));
    EXPECT_EQ(value, "before");
    expectPair("[ PF_GetProFile ] " + std::string(descriptionOf(Failure::PermissionDenied)), "70");
    EXPECT_EQ(log(), "");
}

TEST_F(ClsCom, TheInstallFolderComesFromTheRegistry) {
    std::string value;
    EXPECT_TRUE(readInstallKey(value));
    EXPECT_EQ(value, "C:\\X");
    EXPECT_EQ(registry.lastHive(), -2147483646);
    EXPECT_EQ(registry.lastAccess(), 1);
    EXPECT_TRUE(registry.openKeys().empty());
    EXPECT_EQ(com().P_GetInstallFolderPath(), "C:\\X");
    EXPECT_EQ(com().SysSystemIni(), kIni);

    dropSharedSettings();
    registry.put(kInstallKey, "InstallKey", std::string("C:\\Z\\") + '\0' + "rest");
    EXPECT_EQ(com().P_GetInstallFolderPath(), "C:\\Z\\");
    EXPECT_EQ(com().SysSystemIni(), "C:\\Z\\SYS\\system.ini");
}

TEST_F(ClsCom, WithoutTheRegistryItIsBesideTheProgram) {
    registry.refuse(Operation::Open, 2);
    files.setProgramFolder("C:\\Y\\BIN");
    EXPECT_EQ(com().SysSystemIni(), "C:\\Y\\BIN\\..\\SYS\\system.ini");
    EXPECT_EQ(com().P_GetInstallFolderPath(), "C:\\Y\\BIN\\");
    expectPair("[ P_GetRegQueryString ] レジストリファイルをオープンできませんでした。", "EDLL50002");
    EXPECT_EQ(log(), "");
}

TEST_F(ClsCom, ThePathIsResolvedOnce) {
    set("NET", "URL", "http://a");
    EXPECT_EQ(com().ORV_URL(), "http://a");
    const int calls = registry.calls();
    registry.put(kInstallKey, "InstallKey", "C:\\OTHER");
    set("NET", "URL", "http://b");
    EXPECT_EQ(com().ORV_URL(), "http://b");
    EXPECT_EQ(com().SysSystemIni(), kIni);
    EXPECT_EQ(registry.calls(), calls);
    EXPECT_EQ(profiles.reads(), 2);
}

TEST_F(ClsCom, EachRegistryOperationThatRefusesHasItsTextAndCode) {
    struct Case {
        Operation operation;
        std::string text, code, value;
    };
    const auto cases = std::to_array<Case>({
        {Operation::Open, "レジストリファイルをオープンできませんでした。", "EDLL50002", "before"},
        {Operation::Query, "レジストリ内容を取得できませんでした。", "EDLL50003", "before"},
        {Operation::Close, "レジストリファイルをクローズできませんでした。", "EDLL50004", "C:\\X"},
    });
    for (const Case& row : cases) {
        std::string value = "before";
        registry.refuse(row.operation, 5);
        EXPECT_FALSE(readInstallKey(value));
        expectPair("[ P_GetRegQueryString ] " + row.text, row.code);
        EXPECT_EQ(value, row.value) << row.code;
        EXPECT_TRUE(registry.openKeys().empty()) << row.code;
        registry.refuse(row.operation, 0);
    }
}

TEST_F(ClsCom, ARegistryThatBreaksIsARunTimeFailure) {
    const std::string text = std::string(descriptionOf(Failure::PermissionDenied));
    for (const Operation operation : {Operation::Close, Operation::Query, Operation::Open}) {
        registry.fail(operation, Failure::PermissionDenied);
        std::string value;
        EXPECT_FALSE(readInstallKey(value));
        expectPair("[ P_GetRegQueryString ] " + text, "70");
        EXPECT_TRUE(registry.openKeys().empty());
    }
    std::string value;
    EXPECT_FALSE(com().P_GetRegQueryString("k", "n", "no number", value));
    EXPECT_EQ(gErrCode, "13");
}

TEST_F(ClsCom, AValueIsWrittenWithItsLengthInTwoByteForm) {
    struct Case {
        const char* value;
        std::int32_t type, byteCount;
    };
    for (const Case& row : {Case{"C:\\新しい", 1, 12}, Case{"", 1, 0}, Case{"𠮷", 2, 4}, Case{"123456", 4, 4}}) {
        EXPECT_TRUE(writeInstallKey(row.value, row.type));
        EXPECT_EQ(registry.written().name, "InstallKey");
        EXPECT_EQ(registry.written().value, row.value);
        EXPECT_EQ(registry.written().type, row.type);
        EXPECT_EQ(registry.written().byteCount, row.byteCount) << row.value;
        EXPECT_EQ(registry.lastAccess(), 6);
        EXPECT_TRUE(registry.openKeys().empty());
    }
}

TEST_F(ClsCom, AWriteThatFails) {
    const std::string refusedText = "[ P_SetRegQueryString ] レジストリに値をセットできませんでした。";
    registry.refuse(Operation::Set, 5);
    EXPECT_FALSE(writeInstallKey("a"));
    expectPair(refusedText, "EDLL50003");
    EXPECT_TRUE(registry.openKeys().empty());

    registry.fail(Operation::Set, Failure::PermissionDenied);
    EXPECT_FALSE(writeInstallKey("a"));
    EXPECT_EQ(gErrCode, "70");
    EXPECT_TRUE(registry.openKeys().empty());

    registry.fail(Operation::Create, Failure::PermissionDenied);
    EXPECT_FALSE(writeInstallKey("a")) << "no key is handle 0, which the write then refuses";
}

}  // namespace
}  // namespace orv
