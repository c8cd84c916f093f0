#include "platform/controls/number_input.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "platform/ascii.h"
#include "platform/controls/input_rules.h"
#include "platform/run_time_error.h"
#include "platform/value.h"

namespace orv {
namespace {

enum Section : std::size_t { Positive, Negative, Zero, NoNumber };

std::string_view findSection(std::string_view format, Section section) {
    for (std::size_t i = 0; i < section; ++i) {
        format.remove_prefix(std::min(format.find(';'), format.size() - 1) + 1);
        if (format.empty()) {
            return {};
        }
    }
    return format.substr(0, format.find(';'));
}

double numberIn(const Value& value) {
    const auto* whole = std::get_if<std::int64_t>(&value.content());
    return whole != nullptr ? static_cast<double>(*whole) : std::get<double>(value.content());
}

std::string withPlaces(double number, std::size_t places) {
    std::array<char, 400> text{};  // the longest number has 309 digits before the point
    const auto end =
        std::to_chars(text.begin(), text.end(), number, std::chars_format::fixed, static_cast<int>(places));
    return {text.begin(), end.ptr};
}

/// `number` is not negative.
std::string inSection(double number, std::string_view section) {
    const std::size_t point = std::min(section.find('.'), section.size());
    const std::string_view whole = section.substr(0, point);
    const std::string_view part = section.substr(std::min(point + 1, section.size()));
    std::string text = withPlaces(number, part.size());
    if (!part.empty()) {
        const auto always = static_cast<std::size_t>(std::ranges::count(part, '0'));
        const std::size_t least = text.size() - part.size() + always;
        text.erase(std::max(text.find_last_not_of('0') + 1, least));
    }
    if (text.ends_with('.')) {
        text.pop_back();
    }
    const auto digits = static_cast<std::size_t>(std::ranges::count(whole, '0'));
    const std::size_t has = text.starts_with('0') ? 0 : std::min(text.find('.'), text.size());
    return std::string(digits > has ? digits - has : 0, '0') + (has == 0 ? text.substr(1) : text);
}

}  // namespace

std::string formatNumber(const Value& number, std::string_view format) {
    if (format.empty()) {
        return number.isNull() ? std::string() : toText(number);
    }
    if (number.isNull()) {
        const std::string_view none = findSection(format, NoNumber);
        return none.empty() ? std::string() : inSection(0, none);
    }
    const double value = numberIn(number);
    const Section section = value > 0 ? Positive : value < 0 ? Negative : Zero;
    const std::string_view own = findSection(format, section);
    if (!own.empty()) {
        return inSection(std::fabs(value), own);
    }
    return (value < 0 ? "-" : "") + inSection(std::fabs(value), findSection(format, Positive));
}

NumberInput::NumberInput(ControlOwner& owner, std::string_view name, const NumberDesign& design, int index)
    : Control(owner, name, index, ControlKind::NumberInput), design_(design) {
    Control::design(design.back, true, true);
}

std::string NumberInput::text() const { return value_.isNull() ? std::string() : toText(value_); }

std::string NumberInput::shown(bool hasFocus) const {
    return formatNumber(value_, hasFocus || design_.display.empty() ? design_.format : design_.display);
}

void NumberInput::setText(const std::string& text) {
    Value next;
    if (!trimmed(text).empty()) {
        const std::optional<double> number = readNumber(text);
        if (!number) {
            throw RunTimeError(Failure::TypeMismatch);
        }
        if (*number < design_.least || *number > design_.most) {
            throw RunTimeError(Failure::InvalidPropertyValue);
        }
        const double scale = std::pow(10.0, design_.decimals);
        next = std::round(*number * scale) / scale;
    }
    const bool differs = !(next == value_);
    value_ = next;
    differs ? contentChanged() : notifyObserver();
    if (differs) {
        onChange.raise();
    }
}

bool NumberInput::typed(const std::string& text) {
    const std::string narrow = toHalfWidth(text);
    const std::optional<double> number = readNumber(narrow);
    const bool blank = trimmed(narrow).empty();
    if (!blank && (!number || *number < design_.least || *number > design_.most)) {
        notifyObserver();
        return false;
    }
    setText(narrow);
    return true;
}

}  // namespace orv
