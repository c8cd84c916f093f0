#include "adapters/text/era_calendar.h"

#include <gtest/gtest.h>

#include <array>

namespace orv {
namespace {

/// Returns "yyyy/mm/dd", or "" if the text is not a date.
std::string read(const std::string& text) {
    const std::optional<DateTime> date = EraCalendar().parseDate(text);
    return date ? formatMoment(*date, "yyyy/mm/dd") : "";
}

TEST(EraCalendar, ReadsEachEraFromItsFirstDayOn) {
    for (const auto& [before, first, day] : std::to_array<std::array<const char*, 3>>({
             {"明治01年01月24日", "明治01年01月25日", "1868/01/25"},
             {"大正01年07月29日", "大正01年07月30日", "1912/07/30"},
             {"昭和01年12月24日", "昭和01年12月25日", "1926/12/25"},
             {"平成01年01月07日", "平成01年01月08日", "1989/01/08"},
             {"令和元年04月30日", "令和元年05月01日", "2019/05/01"},
         })) {
        EXPECT_EQ(read(before), "") << before;
        EXPECT_EQ(read(first), day) << first;
    }
    EXPECT_EQ(read("令和8年5月4日"), "2026/05/04");
}

TEST(EraCalendar, ADateAfterItsErasEndCountsOn) {
    EXPECT_EQ(read("平成36年03月31日"), "2024/03/31");
    EXPECT_EQ(read("49年04月01日") + read("50年04月01日"), "2049/04/011950/04/01");
    EXPECT_EQ(read("令和7981年12月31日"), "9999/12/31");
    EXPECT_EQ(read("令和7982年01月01日"), "");
}

TEST(EraCalendar, AnInvalidDateIsNotRead) {
    for (const char* text : {"2026年02月29日", "2100年02月29日", "2026年13月01日", "2026年00月01日", "令和00年01月01日",
                             "慶応04年10月23日", "元年05月01日", "10000年01月01日", "2026年001月01日", "2026年04月",
                             "2026年04月01日 ", "-5年04月01日", "２０２６年０４月０１日", "2026/04/01", "年月日", ""}) {
        EXPECT_EQ(read(text), "") << text;
    }
    EXPECT_EQ(read("2028年02月29日"), "2028/02/29");
}

}  // namespace
}  // namespace orv
