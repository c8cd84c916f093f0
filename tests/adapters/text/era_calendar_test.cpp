#include "adapters/text/era_calendar.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

/// "yyyy/mm/dd", or empty for what is no date.
std::string read(const std::string& text) {
    const std::optional<DateTime> date = EraCalendar().dateOf(text);
    return date ? formatMoment(*date, "yyyy/mm/dd") : "";
}

TEST(EraCalendar, ReadsEachEraFromItsFirstDayOn) {
    struct Case {
        const char* text;
        const char* day;
    };
    for (const Case& row : {
             Case{"明治01年01月24日", ""},
             {"明治01年01月25日", "1868/01/25"},
             {"明治45年07月29日", "1912/07/29"},
             {"大正01年07月29日", ""},
             {"大正01年07月30日", "1912/07/30"},
             {"昭和01年12月24日", ""},
             {"昭和01年12月25日", "1926/12/25"},
             {"昭和64年01月07日", "1989/01/07"},
             {"平成01年01月07日", ""},
             {"平成01年01月08日", "1989/01/08"},
             {"平成31年04月30日", "2019/04/30"},
             {"令和01年04月30日", ""},
             {"令和01年05月01日", "2019/05/01"},
             {"令和元年05月01日", "2019/05/01"},
             {"令和元年04月30日", ""},
             {"令和8年5月4日", "2026/05/04"},
         }) {
        EXPECT_EQ(read(row.text), row.day) << row.text;
    }
}

TEST(EraCalendar, ADateAfterItsErasEndCountsOn) {
    EXPECT_EQ(read("平成36年03月31日"), "2024/03/31");
    EXPECT_EQ(read("昭和64年01月08日"), "1989/01/08");
    EXPECT_EQ(read("昭和101年01月01日"), "2026/01/01");
    EXPECT_EQ(read("明治46年02月28日"), "1913/02/28");
    EXPECT_EQ(read("令和7981年12月31日"), "9999/12/31");
    EXPECT_EQ(read("令和7982年01月01日"), "");
}

TEST(EraCalendar, AWesternYearOfTwoDigitsLiesBetween1950And2049) {
    struct Case {
        const char* year;
        const char* day;
    };
    for (const Case& row : {Case{"0", "2000/04/01"}, Case{"00", "2000/04/01"}, Case{"05", "2005/04/01"},
                            Case{"29", "2029/04/01"}, Case{"30", "2030/04/01"}, Case{"49", "2049/04/01"},
                            Case{"50", "1950/04/01"}, Case{"99", "1999/04/01"}, Case{"100", "0100/04/01"},
                            Case{"999", "0999/04/01"}, Case{"2003", "2003/04/01"}, Case{"9999", "9999/04/01"}}) {
        EXPECT_EQ(read(std::string(row.year) + "年04月01日"), row.day) << row.year;
    }
}

TEST(EraCalendar, WhatIsNoDateIsNotRead) {
    for (const char* text : {
             "2026年02月29日",
             "2100年02月29日",
             "2026年04月31日",
             "2026年13月01日",
             "2026年00月01日",
             "2026年01月00日",
             "2026年01月32日",
             "令和00年01月01日",
             "慶応04年10月23日",
             "西暦2026年04月01日",
             "平2026年04月01日",
             "元年05月01日",
             "令和元05月01日",
             "10000年01月01日",
             "2026年001月01日",
             "2026年04月",
             "2026年04月01",
             "2026年04月01日 ",
             " 2026年04月01日",
             "2026年 4月01日",
             "-5年04月01日",
             "+5年04月01日",
             "2O26年04月01日",
             "２０２６年０４月０１日",
             "平成　15年04月01日",
             "2026/04/01",
             "20260401",
             "令和",
             "年月日",
             "",
         }) {
        EXPECT_EQ(read(text), "") << text;
    }
    EXPECT_EQ(read("2028年02月29日"), "2028/02/29");
}

}  // namespace
}  // namespace orv
