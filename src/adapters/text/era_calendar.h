#pragma once

#include "platform/machine/japanese_calendar.h"

namespace orv {

/// The five eras since 明治, each from its first day on. For 明治 that is 25 January 1868, the day from which it was
/// counted afterwards.
///
/// A day after an era's end continues the count of its years: a licence issued in 平成31 has 平成36. A day before an
/// era's first is invalid. The first year can be written 元年.
///
/// Without an era a year of one or two digits is from 1950 to 2049, as in Windows. Any other year is literal, from 100
/// to 9999. Only half-width digits are accepted, because the fields of the pages contain no others.
class EraCalendar : public JapaneseCalendar {
public:
    std::optional<DateTime> parseDate(const std::string& text) const override;
};

}  // namespace orv
