#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace orv {

/// Returns nothing unless the text is a decimal number: sign, digits, point and exponent, with blanks around it.
std::optional<double> readNumber(std::string_view text);

/// A local date and time, to the second. Months and days count from 1.
struct DateTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;

    friend bool operator==(const DateTime&, const DateTime&) = default;
};

struct Null {
    friend bool operator==(const Null&, const Null&) = default;
};

class Value;
using Values = std::vector<Value>;

/// The content of a database field, a number control or a log argument.
class Value {
public:
    using Content = std::variant<Null, std::string, std::int64_t, double, bool, DateTime, Values>;

    Value() = default;
    Value(std::string text) : content_(std::move(text)) {}    // NOLINT(google-explicit-constructor)
    Value(const char* text) : content_(std::string(text)) {}  // NOLINT(google-explicit-constructor)
    Value(int number) : content_(std::int64_t{number}) {}     // NOLINT(google-explicit-constructor)
    Value(std::int64_t number) : content_(number) {}          // NOLINT(google-explicit-constructor)
    Value(double number) : content_(number) {}                // NOLINT(google-explicit-constructor)
    Value(bool flag) : content_(flag) {}                      // NOLINT(google-explicit-constructor)
    Value(DateTime moment) : content_(moment) {}              // NOLINT(google-explicit-constructor)
    Value(Values list) : content_(std::move(list)) {}         // NOLINT(google-explicit-constructor)

    bool isNull() const noexcept { return std::holds_alternative<Null>(content_); }
    const Content& content() const noexcept { return content_; }

    friend bool operator==(const Value&, const Value&) = default;

private:
    Content content_;
};

/// Converts to text: a number in its shortest decimal form, a boolean as "True" or "False", a date as "yyyy/mm/dd
/// hh:mm:ss". A null is failure 94, a list failure 13.
std::string toText(const Value& value);

/// Formats `moment` by a pattern of yyyy, yy, mm, dd, hh, nn and ss. Other characters are copied.
std::string formatMoment(const DateTime& moment, std::string_view pattern);

}  // namespace orv
