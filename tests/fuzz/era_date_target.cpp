// Dates as the pages hold them: what is read as a date is one, and reads the same in western years.
#include <chrono>

#include "adapters/text/era_calendar.h"
#include "fuzz/fuzz_target.h"

namespace orv::test {
namespace {

void run(const std::string& bytes) {
    const EraCalendar calendar;
    const auto date = calendar.dateOf(bytes);
    if (!date) {
        return;
    }
    const std::chrono::year_month_day day{std::chrono::year{date->year},
                                          std::chrono::month{static_cast<unsigned>(date->month)},
                                          std::chrono::day{static_cast<unsigned>(date->day)}};
    require(day.ok() && date->year >= 100 && date->year <= 9999, "a date is on the calendar");
    const auto again = calendar.dateOf(formatMoment(*date, "yyyy") + "年" + std::to_string(date->month) + "月" +
                                       std::to_string(date->day) + "日");
    require(again == date, "the same date in western years is the same date");
}

}  // namespace

FuzzTarget eraDateTarget() {
    return {"era_date",
            run,
            {"令和8年5月4日", "令和元年05月01日", "平成36年03月31日", "明治01年01月25日", "昭和9999年12月31日",
             "49年2月29日", "2028年02月29日", "0年1月1日", "9999999999年1月1日"}};
}

}  // namespace orv::test
