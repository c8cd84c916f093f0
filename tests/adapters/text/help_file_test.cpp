#include "adapters/text/help_file.h"

#include <gtest/gtest.h>

#include "support/fake_windows.h"
#include "support/memory_files.h"
#include "support/memory_profiles.h"

namespace orv {
namespace {

constexpr const char* kFile = "C:\\ORV\\HLP\\help.hlp";

class HelpFileTest : public testing::Test {
protected:
    bool show(const std::string& control) { return help.ShowHelp(control, "IMG"); }

    ScriptedWindows windows;
    MemoryFiles files;
    MemoryProfiles profiles;
    HelpFile help{windows, files, profiles, [] { return std::string(kFile); }};
};

TEST_F(HelpFileTest, ShowsNameAndTextOfTheControl) {
    files.put(kFile, "x");
    profiles.set(kFile, "IMG", "cmd_Entry", "0,確定,画像を、登録します。");
    profiles.set(kFile, "SSX", "cmd_Cancel", "0,ほかの区分,説明");
    EXPECT_TRUE(show("cmd_Entry"));
    ASSERT_EQ(windows.notices.size(), 1U);
    EXPECT_EQ(windows.notices.front().title, "ヘルプ");
    EXPECT_EQ(windows.notices.front().text, "確定\n\n画像を、登録します。");
    EXPECT_EQ(windows.notices.front().buttons, std::vector<std::string>{"閉じる"});
    EXPECT_EQ(help.ErrorInfo(), FailureRecord{});
}

TEST_F(HelpFileTest, WhatCannotBeShownIsTold) {
    EXPECT_FALSE(show("cmd_Entry"));
    EXPECT_EQ(help.ErrorInfo(), (FailureRecord{"ヘルプファイルがありません。\r\n" + std::string(kFile), "HELP0001"}));
    files.put(kFile, "x");
    for (const char* line : {"", "ほかの形式", "0,名前だけ", "0,,説明", "0,名前,"}) {
        profiles.set(kFile, "IMG", "cmd_Entry", line);
        EXPECT_FALSE(show("cmd_Entry")) << line;
        EXPECT_EQ(help.ErrorInfo().code, "HELP0002") << line;
    }
    EXPECT_EQ(help.ErrorInfo().text,
              "この項目の説明が、ヘルプファイルにありません。\r\n" + std::string(kFile) + " [IMG] cmd_Entry");
    EXPECT_TRUE(windows.notices.empty());
}

}  // namespace
}  // namespace orv
