#include "platform/value.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "platform/ascii.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

std::string padded(int number, std::size_t width) {
    std::string text = std::to_string(number);
    if (text.size() < width) {
        text.insert(0, width - text.size(), '0');
    }
    return text.substr(text.size() - width);
}

/// Uses an exponent only for very large and very small numbers.
std::string shortest(double number) {
    const double size = std::abs(number);
    const bool plain = size == 0 || (size >= 1e-4 && size < 1e15);
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                   plain ? std::chars_format::fixed : std::chars_format::scientific)
                         .ptr;
    return {buffer.data(), end};
}

struct ToText {
    std::string operator()(Null) const { throw RunTimeError(Failure::InvalidNull); }
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(double number) const { return shortest(number); }
    std::string operator()(bool flag) const { return flag ? "True" : "False"; }
    std::string operator()(const DateTime& moment) const { return formatMoment(moment, "yyyy/mm/dd hh:nn:ss"); }
    std::string operator()(const Values&) const { throw RunTimeError(Failure::TypeMismatch); }
};

}  // namespace

std::optional<double> readNumber(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-')) {
            return std::nullopt;
        }
    }
    double number = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (failure != std::errc{} || end != text.data() + text.size() || !std::isfinite(number)) {
        return std::nullopt;
    }
    return number;
}

std::string toText(const Value& value) { return std::visit(ToText{}, value.content()); }

std::string formatMoment(const DateTime& moment, std::string_view pattern) {
    struct Piece {
        std::string_view sign;
        int number;
        std::size_t width;
    };
    const std::array<Piece, 7> pieces{{{"yyyy", moment.year, 4},
                                       {"yy", moment.year, 2},
                                       {"mm", moment.month, 2},
                                       {"dd", moment.day, 2},
                                       {"hh", moment.hour, 2},
                                       {"nn", moment.minute, 2},
                                       {"ss", moment.second, 2}}};
    std::string text;
    while (!pattern.empty()) {
        std::size_t taken = 0;
        for (const Piece& piece : pieces) {
            if (pattern.starts_with(piece.sign)) {
                text += padded(piece.number, piece.width);
                taken = piece.sign.size();
                break;
            }
        }
        if (taken == 0) {
            text += pattern.front();
            taken = 1;
        }
        pattern.remove_prefix(taken);
    }
    return text;
}

}  // namespace orv
