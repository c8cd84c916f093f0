#include "images/file_size_text.h"

#include <gtest/gtest.h>

#include "core/record/globals.h"

namespace orv {
namespace {

TEST(FileSizeText, AtTheBordersAndHalves) {
    struct Case {
        double size;
        const char* text;
    };
    for (const Case& c : {
             Case{0, "0B"},
             Case{1023, "1023B"},
             Case{1024, "1.0KB"},
             Case{1152, "1.13KB"},
             Case{1536, "1.5KB"},
             Case{1048575, "1024.0KB"},
             Case{1048576, "1.0MB"},
             Case{1073741823, "1024.0MB"},
             Case{1073741824, "1.0GB"},
             Case{1e15, "931322.57GB"},
         }) {
        EXPECT_EQ(PF_GetFileSizeString(c.size), c.text);
    }
    EXPECT_EQ(gErrMsg, "");
}

}  // namespace
}  // namespace orv
