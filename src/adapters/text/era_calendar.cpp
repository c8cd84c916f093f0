#include "adapters/text/era_calendar.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <string_view>

namespace orv {
namespace {

using std::chrono::year_month_day;

struct Era {
    std::string_view word;
    year_month_day begin;
};

constexpr auto kEras = std::to_array<Era>({
    {"明治", std::chrono::year{1868} / 1 / 25},
    {"大正", std::chrono::year{1912} / 7 / 30},
    {"昭和", std::chrono::year{1926} / 12 / 25},
    {"平成", std::chrono::year{1989} / 1 / 8},
    {"令和", std::chrono::year{2019} / 5 / 1},
});

constexpr std::string_view kFirstYear = "元年";
/// The last year that two digits can mean.
constexpr int kWindowEnd = 2049;
constexpr int kCentury = 100;
constexpr int kLastYear = 9999;

/// Removes a prefix from the text. False if the text does not begin with it.
bool removePrefix(std::string_view& text, std::string_view prefix) {
    if (!text.starts_with(prefix)) {
        return false;
    }
    text.remove_prefix(prefix.size());
    return true;
}

/// Removes a number and the sign after it from the text.
std::optional<int> removeNumber(std::string_view& text, std::size_t mostDigits, std::string_view sign) {
    const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    if (digits == 0 || digits > mostDigits || !text.substr(digits).starts_with(sign)) {
        return std::nullopt;
    }
    int number = 0;
    std::from_chars(text.data(), text.data() + digits, number);
    text.remove_prefix(digits + sign.size());
    return number;
}

const Era* removeEra(std::string_view& text) {
    const auto* era = std::ranges::find_if(kEras, [&](const Era& row) { return removePrefix(text, row.word); });
    return era == kEras.end() ? nullptr : era;
}

/// The year of an era counts from 1.
int westernYear(const Era* era, int year) {
    if (era != nullptr) {
        return static_cast<int>(era->begin.year()) + year - 1;
    }
    if (year >= kCentury) {
        return year;
    }
    const int inThisCentury = kWindowEnd - kWindowEnd % kCentury + year;
    return inThisCentury > kWindowEnd ? inThisCentury - kCentury : inThisCentury;
}

bool exists(const year_month_day& date, const Era* era) {
    return date.ok() && date.year() <= std::chrono::year{kLastYear} && (era == nullptr || date >= era->begin);
}

}  // namespace

std::optional<DateTime> EraCalendar::parseDate(const std::string& text) const {
    std::string_view rest = text;
    const Era* era = removeEra(rest);
    const bool isFirstYear = era != nullptr && removePrefix(rest, kFirstYear);
    const std::optional<int> year = isFirstYear ? 1 : removeNumber(rest, 4, "年");
    const std::optional<int> month = removeNumber(rest, 2, "月");
    const std::optional<int> day = removeNumber(rest, 2, "日");
    if (!year || !month || !day || !rest.empty()) {
        return std::nullopt;
    }
    const year_month_day date = std::chrono::year{westernYear(era, *year)} / *month / *day;
    if (!exists(date, era)) {
        return std::nullopt;
    }
    return DateTime{.year = static_cast<int>(date.year()), .month = *month, .day = *day};
}

}  // namespace orv
