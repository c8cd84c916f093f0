#include "adapters/text/help_file.h"

#include <gtest/gtest.h>

#include "platform/machine/profile_reader.h"
#include "support/fake_windows.h"
#include "support/memory_machine.h"

namespace orv {
namespace {

constexpr const char* kFile = "C:\\ORV\\HLP\\help.hlp";

/// A file of one line.
struct OneLine : ProfileReader {
    std::string line;

    std::string GetPrivateProfileString(const std::string& section, const std::string& key,
                                        const std::string& file) const override {
        return file + section + key == std::string(kFile) + "IMGcmd_Entry" ? line : "";
    }
};

TEST(HelpFile, ShowsNameAndTextOfTheControlOrTellsWhyNot) {
    ScriptedWindows windows;
    MemoryFiles files;
    OneLine profiles;
    HelpFile help{windows, files, profiles, [] { return std::string(kFile); }};
    EXPECT_FALSE(help.ShowHelp("cmd_Entry", "IMG"));
    EXPECT_EQ(help.ErrorInfo(), (FailureRecord{"ヘルプファイルがありません。\r\n" + std::string(kFile), "HELP0001"}));
    files.put(kFile, "x");
    for (const char* line : {"", "ほかの形式", "0,,説明", "0,名前,"}) {
        profiles.line = line;
        EXPECT_FALSE(help.ShowHelp("cmd_Entry", "IMG")) << line;
        EXPECT_EQ(help.ErrorInfo().code, "HELP0002") << line;
    }
    EXPECT_EQ(help.ErrorInfo().text,
              "この項目の説明が、ヘルプファイルにありません。\r\n" + std::string(kFile) + " [IMG] cmd_Entry");
    profiles.line = "0,確定,画像を、登録します。";
    EXPECT_TRUE(help.ShowHelp("cmd_Entry", "IMG"));
    ASSERT_EQ(windows.notices.size(), 1U);
    EXPECT_EQ(windows.notices.front().title, "ヘルプ");
    EXPECT_EQ(windows.notices.front().text, "確定\n\n画像を、登録します。");
}

}  // namespace
}  // namespace orv
