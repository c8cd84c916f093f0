#include "adapters/text/help_file.h"

#include <gtest/gtest.h>

#include "adapters/posix/ini_reader.h"
#include "adapters/text/cp932.h"
#include "support/fake_windows.h"
#include "support/native_files.h"
#include "support/scripted_machine.h"
#include "support/temp_folder.h"

namespace orv {
namespace {

TEST(HelpFile, ShowsNameAndTextOfTheControlOrTellsWhyNot) {
    const TempFolder folder;
    const std::string file = folder.file("help.hlp");
    const Cp932 page;
    const FixedFacts facts;
    const NativeFiles files;
    const IniReader profiles(files, page, facts);
    ScriptedWindows windows;
    HelpFile help{windows, files, profiles, [&] { return file; }};
    EXPECT_FALSE(help.ShowHelp("cmd_Entry", "IMG"));
    EXPECT_EQ(help.ErrorInfo(), (FailureRecord{"ヘルプファイルがありません。\r\n" + file, "HELP0001"}));
    for (const char* line : {"", "ほかの形式", "0,,説明", "0,名前,"}) {
        folder.write("help.hlp", page.encode(std::string("[IMG]\ncmd_Entry=") + line));
        EXPECT_FALSE(help.ShowHelp("cmd_Entry", "IMG")) << line;
        EXPECT_EQ(help.ErrorInfo().code, "HELP0002") << line;
    }
    EXPECT_EQ(help.ErrorInfo().text, "この項目の説明が、ヘルプファイルにありません。\r\n" + file + " [IMG] cmd_Entry");
    folder.write("help.hlp", page.encode("[IMG]\ncmd_Entry=0,確定,画像を、登録します。"));
    EXPECT_TRUE(help.ShowHelp("cmd_Entry", "IMG"));
    ASSERT_EQ(windows.notices.size(), 1U);
    EXPECT_EQ(windows.notices.front().title, "ヘルプ");
    EXPECT_EQ(windows.notices.front().text, "確定\n\n画像を、登録します。");
}

}  // namespace
}  // namespace orv
