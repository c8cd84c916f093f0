#include "images/file_size_text.h"

#include <gtest/gtest.h>

#include <limits>

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
             Case{1126, "1.1KB"},
             Case{1152, "1.13KB"},
             Case{1536, "1.5KB"},
             Case{61440, "60.0KB"},
             Case{1048575, "1024.0KB"},
             Case{1048576, "1.0MB"},
             Case{1073741823, "1024.0MB"},
             Case{1073741824, "1.0GB"},
             Case{13421772800, "12.5GB"},
             Case{1e15, "931322.57GB"},
         }) {
        EXPECT_EQ(PF_GetFileSizeString(c.size), c.text);
    }
    EXPECT_EQ(gErrMsg, "");
}

TEST(FileSizeText, WhatIsNoSize) {
    for (const double size : {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(PF_GetFileSizeString(size), "-1");
        EXPECT_EQ(gErrMsg, "[ PF_GetFileSizeString ] 数値が大きすぎます。");
        EXPECT_EQ(gErrCode, "6");
    }
    theContext = {};
}

}  // namespace
}  // namespace orv
