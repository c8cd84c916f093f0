#pragma once

#include <optional>
#include <string>

#include "platform/value.h"

namespace orv {

/// What the words of a date mean.
class JapaneseCalendar {
public:
    JapaneseCalendar() = default;
    JapaneseCalendar(const JapaneseCalendar&) = delete;
    JapaneseCalendar& operator=(const JapaneseCalendar&) = delete;
    virtual ~JapaneseCalendar() = default;

    /// The Western day of "平成15年04月01日" or, without an era word, of "2003年04月01日". Nothing: the text is no
    /// date.
    virtual std::optional<DateTime> dateOf(const std::string& text) const = 0;
};

}  // namespace orv
