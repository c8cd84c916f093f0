#include "validation/text/conversions.h"

#include <cmath>
#include <limits>

#include "platform/ascii.h"
#include "platform/run_time_error.h"
#include "platform/value.h"

namespace orv {
namespace {

template <class Whole>
Whole toWhole(double number) {
    const double rounded = std::nearbyint(number);
    if (!(rounded >= std::numeric_limits<Whole>::min() && rounded <= std::numeric_limits<Whole>::max())) {
        throw RunTimeError(Failure::Overflow);
    }
    return static_cast<Whole>(rounded);
}

}  // namespace

double toNumber(std::string_view text) {
    const std::optional<double> number = readNumber(text);
    if (!number) {
        throw RunTimeError(Failure::TypeMismatch);
    }
    return *number;
}

std::int32_t toLong(std::string_view text) { return toLong(toNumber(text)); }

std::int32_t toLong(double number) { return toWhole<std::int32_t>(number); }

std::int16_t toInteger(double number) { return toWhole<std::int16_t>(number); }

bool toBoolean(const Value& value) {
    const std::string text = toText(value);
    const std::string_view word = trimmed(text);
    if (equalWithoutCase(word, "true")) return true;
    if (equalWithoutCase(word, "false")) return false;
    return toNumber(word) != 0;
}

bool isNumeric(std::string_view text) { return readNumber(text).has_value(); }

}  // namespace orv
