#include "transmission/file_names.h"

#include <map>

#include "support/settings_test.h"

namespace orv {
namespace {

using FileNames = SettingsTest;

TEST_F(FileNames, OnePairOfQuotesGoes) {
    for (const auto& [text, name] : std::map<std::string, std::string>{{"ab", "ab"},
                                                                       {" \"a b\" ", "a b"},
                                                                       {"\"\"", ""},
                                                                       {"\"\"a\"\"", "\"a\""},
                                                                       {"\"ab", "\"ab"},
                                                                       {"ab\"", "ab\""},
                                                                       {"写真", "写真"}}) {
        EXPECT_EQ(PF_StripQuotes(text), name);
    }
    for (const char* text : {"", "  ", "a", "\"", " 写 "}) {
        EXPECT_THROW(PF_StripQuotes(text), RunTimeError) << text;
    }
}

TEST_F(FileNames, TheBaseNameIsBehindTheLastSeparator) {
    for (const auto& [path, name] : std::map<std::string, std::string>{{"C:\\X\\1\\a.jpg", "a.jpg"},
                                                                       {"C:a.jpg", "a.jpg"},
                                                                       {"a.jpg", "a.jpg"},
                                                                       {"C:\\X\\", ""},
                                                                       {"X\\b:c", "c"},
                                                                       {"a/b", "a/b"},
                                                                       {"C:\\表\\能.jpg", "能.jpg"}}) {
        EXPECT_EQ(PF_BaseName(path), name);
    }
}

TEST_F(FileNames, AFileThatCanBeOpened) {
    files.put("C:\\X\\a.jpg", "bytes");
    files.put("C:\\X\\b.jpg", "bytes");
    files.refuse("C:\\X\\b.jpg", Failure::PermissionDenied);
    for (const char* name : {"C:\\X\\a.jpg", "\"C:\\X\\a.jpg\"", "C:\\X\\a.jpg\\", "c:\\x\\A.JPG"}) {
        EXPECT_TRUE(PF_FileCanOpen(name)) << name;
    }
    for (const char* name : {"C:\\X\\b.jpg", "C:\\X\\c.jpg", "", "a", "\"\"", "C:\\X\\a.jpg\\\\"}) {
        EXPECT_FALSE(PF_FileCanOpen(name)) << name;
    }
}

}  // namespace
}  // namespace orv
