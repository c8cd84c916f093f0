#include "validation/text/text_bytes.h"

#include <gtest/gtest.h>

#include "adapters/text/cp932.h"
#include "platform/services.h"

namespace orv {
namespace {

class TextBytes : public testing::Test {
protected:
    TextBytes() { services().codePage = &codePage; }
    ~TextBytes() override { services() = {}; }

    Cp932 codePage;
};

TEST_F(TextBytes, CutsFromEitherEnd) {
    struct Case {
        const char* text;
        int count;
        const char* left;
        const char* right;
    };
    for (const Case& row : {Case{"abc", 2, "ab", "bc"}, Case{"亜a亜", 3, "亜a", "a亜"}, Case{"亜", 0, "", ""},
                            Case{"亜", -1, "", ""}, Case{"亜", 99, "亜", "亜"}, Case{"", 1, "", ""}}) {
        EXPECT_EQ(PF_LeftB(row.text, row.count), row.left) << row.text << row.count;
        EXPECT_EQ(PF_RightB(row.text, row.count), row.right) << row.text << row.count;
    }
}

/// 表 is 0x95 0x5C, and 0x5C alone is the backslash.
TEST_F(TextBytes, AHalfCharacterIsConvertedAsItStands) {
    EXPECT_EQ(PF_RightB("表", 1), "\\");
    EXPECT_EQ(PF_MidB("表a", 2, 0), "\\a");
    EXPECT_EQ(PF_LenB(PF_LeftB("a表", 2)), 3);
}

}  // namespace
}  // namespace orv
