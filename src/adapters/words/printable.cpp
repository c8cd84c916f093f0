#include "adapters/words/printable.h"

#include <algorithm>
#include <array>

#include "platform/utf8.h"

namespace orv {
namespace {

struct Range {
    char32_t first;
    char32_t last;
};

constexpr auto kUnprintable = std::to_array<Range>({
    {0x00, 0x1F},        // controls
    {0x7F, 0x9F},        // delete, and the controls of 8-bit terminals
    {0xAD, 0xAD},        // soft hyphen
    {0x61C, 0x61C},      // Arabic letter mark
    {0x200B, 0x200F},    // zero widths, direction marks
    {0x2028, 0x202E},    // line and paragraph separators, directions
    {0x2060, 0x206F},    // invisible operators, isolates
    {0xFEFF, 0xFEFF},    // byte order mark
    {0xFFF9, 0xFFFB},    // interlinear annotation
    {0xE0000, 0xE0FFF},  // tags
});

}  // namespace

bool isPrintable(char32_t character) {
    return std::ranges::none_of(
        kUnprintable, [&](const Range& range) { return character >= range.first && character <= range.last; });
}

std::string printable(std::string_view words) {
    // No character has more than four bytes, so the rest is not needed.
    std::u32string shown = toCharacters(words.substr(0, 4 * (kLongestPrintable + 1)));
    const bool isCut = shown.size() > kLongestPrintable;
    shown.resize(std::min(shown.size(), kLongestPrintable));
    for (char32_t& character : shown) {
        character = isPrintable(character) ? character : U' ';
    }
    return toUtf8(shown) + (isCut ? "…" : "");
}

}  // namespace orv
