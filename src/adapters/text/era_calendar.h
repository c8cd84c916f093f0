#pragma once

#include "platform/machine/japanese_calendar.h"

namespace orv {

/// The five eras since 明治, each from its first day on; that of 明治 is the one it was counted from afterwards,
/// 25 January 1868.
///
/// A day after an era's end counts on from its first year: a licence that was issued in 平成31 bears 平成36. A day
/// before an era's first is no date. The first year can be written 元年.
///
/// Without an era word a year of one or two digits lies from 1950 to 2049, as Windows has it today; any other year is
/// meant as it stands, from 100 to 9999. Only half-width digits are digits: the fields of the pages take no others.
class EraCalendar : public JapaneseCalendar {
public:
    std::optional<DateTime> dateOf(const std::string& text) const override;
};

}  // namespace orv
