#include "adapters/postgres/nested_reads.h"

#include <algorithm>
#include <array>
#include <span>

#include "adapters/store/store_failure.h"
#include "platform/ascii.h"

namespace orv {
namespace {

constexpr auto kReadingWords =
    std::to_array<std::string_view>({"select", "table", "from", "using", "returning", "with", "execute"});
// The words that can precede a bracket without calling a function, except `Left`.
constexpr auto kBracketWords =
    std::to_array<std::string_view>({"values", "where", "set", "and", "or", "not", "in", "left"});

bool isWordCharacter(char c) { return isAsciiAlphanumeric(c) || c == '_' || static_cast<unsigned char>(c) >= 0x80; }

bool contains(std::span<const std::string_view> words, std::string_view word) {
    return std::ranges::any_of(words, [&](std::string_view each) { return equalWithoutCase(each, word); });
}

/// Reads a statement word by word.
class Walk {
public:
    explicit Walk(std::string_view rest) : rest_(rest) {}

    void run() {
        while (skipBlanks()) {
            if (isWordCharacter(rest_.front())) {
                readWord();
            } else if (rest_.front() == '\'') {
                readLiteral();
            } else {
                readSign();
            }
        }
    }

private:
    bool skipBlanks() {
        rest_ = trimmedLeft(rest_, kAllBlanks);
        return !rest_.empty();
    }

    void readWord() {
        const auto end = std::ranges::find_if_not(rest_, isWordCharacter);
        const std::string_view word = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
        rest_.remove_prefix(word.size());
        const bool isPlainFrom = equalWithoutCase(word, "from") && equalWithoutCase(before_, "delete");
        require(isPlainFrom || !contains(kReadingWords, word));
        require(!rest_.starts_with('\''));  // E'...' has other rules for its end
        const bool opensBracket = skipBlanks() && rest_.front() == '(';
        require(!opensBracket || equalWithoutCase(before_, "into") || contains(kBracketWords, word));
        before_ = word;
    }

    /// A doubled apostrophe is read as two adjacent literals, with the same result.
    void readLiteral() {
        const std::size_t end = rest_.find('\'', 1);
        rest_.remove_prefix(std::min(end, rest_.size() - 1) + 1);
    }

    /// Comments, quoted names and dollar quotes can hide text. `$1` is a parameter.
    void readSign() {
        const bool isParameter = rest_.front() == '$' && rest_.size() > 1 && isAsciiDigit(rest_[1]);
        require(isParameter || (rest_.front() != '$' && rest_.front() != '"'));
        require(!rest_.starts_with("--") && !rest_.starts_with("/*"));
        rest_.remove_prefix(1);
        before_ = {};
    }

    static void require(bool isPlain) {
        if (!isPlain) {
            refuse(kNestedRead);
        }
    }

    std::string_view rest_;
    std::string_view before_;
};

}  // namespace

void refuseNestedReads(std::string_view change) { Walk(change).run(); }

}  // namespace orv
