#include "transmission/file_names.h"

#include "support/settings_test.h"

namespace orv {
namespace {

using FileNames = SettingsTest;

TEST_F(FileNames, OnePairOfQuotesGoes) {
    struct Case {
        const char* text;
        const char* name;
    };
    for (const Case& row : {Case{"ab", "ab"}, Case{" \"a b\" ", "a b"}, Case{"\"\"", ""}, Case{"\"\"a\"\"", "\"a\""},
                            Case{"\"ab", "\"ab"}, Case{"ab\"", "ab\""}, Case{"写真", "写真"}}) {
        EXPECT_EQ(PF_StripQuotes(row.text), row.name);
    }
    for (const char* text : {"", "  ", "a", "\"", " 写 "}) {
        EXPECT_THROW(PF_StripQuotes(text), RunTimeError) << text;
    }
}

TEST_F(FileNames, TheBaseNameIsBehindTheLastSeparator) {
    struct Case {
        const char* path;
        const char* name;
    };
    for (const Case& row :
         {Case{"C:\\X\\1\\a.jpg", "a.jpg"}, Case{"C:a.jpg", "a.jpg"}, Case{"a.jpg", "a.jpg"}, Case{"", ""},
          Case{"C:\\X\\", ""}, Case{"X\\b:c", "c"}, Case{"a/b", "a/b"}, Case{"C:\\表\\能.jpg", "能.jpg"}}) {
        EXPECT_EQ(PF_BaseName(row.path), row.name);
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
