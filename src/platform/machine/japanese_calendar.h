#pragma once

#include <optional>
#include <string>

#include "platform/scope.h"
#include "platform/value.h"

namespace orv {

/// Interprets written dates.
class JapaneseCalendar : public Interface {
public:
    /// Returns the Western date of "平成15年04月01日" or, without an era, "2003年04月01日". Returns nothing if the text
    /// is not a date.
    virtual std::optional<DateTime> parseDate(const std::string& text) const = 0;
};

}  // namespace orv
