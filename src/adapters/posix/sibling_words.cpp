#include "adapters/posix/sibling_words.h"

#include <charconv>
#include <optional>

namespace orv {
namespace {

/// Removes the text before the first blank, and the blank, from `line` and returns the text.
std::string_view nextWord(std::string_view& line) {
    const std::string_view word = line.substr(0, line.find(' '));
    line.remove_prefix(std::min(word.size() + 1, line.size()));
    return word;
}

template <class Number>
std::optional<Number> parseNumber(std::string_view word) {
    Number number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    return error == std::errc() && end == word.data() + word.size() ? std::optional(number) : std::nullopt;
}

}  // namespace

bool handleLine(std::string_view line, const SiblingCalls& calls) {
    const std::string_view verb = nextWord(line);
    const auto handle = parseNumber<std::uint32_t>(nextWord(line));
    if (!handle) {
        return false;
    }
    if (verb == "TEXT") {
        return calls.setText(*handle, std::string(line));
    }
    const auto key = parseNumber<std::uint8_t>(line);
    return verb == "KEY" && key && calls.pressKey(*handle, *key);
}

}  // namespace orv
