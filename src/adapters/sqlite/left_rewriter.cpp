#include "adapters/sqlite/left_rewriter.h"

#include <algorithm>

#include "platform/ascii.h"

namespace orv {
namespace {

bool isWordCharacter(char c) {
    return isAsciiAlphanumeric(c) || c == '_' || c == '$' || static_cast<unsigned char>(c) >= 0x80;
}

/// Returns the position after `end`, or the end of the text if `end` does not follow.
std::size_t through(std::string_view text, std::string_view end, std::size_t from) {
    const std::size_t at = text.find(end, from);
    return at == std::string_view::npos ? text.size() : at + end.size();
}

std::size_t wordLength(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::find_if_not(text, isWordCharacter) - text.begin());
}

/// Returns the length of the token at the start of `text`, which is never 0. A doubled quotation mark inside a literal
/// is read as two adjacent literals, with the same result.
std::size_t tokenLength(std::string_view text) {
    const char first = text.front();
    if (text.starts_with("--")) {
        return through(text, "\n", 2);
    }
    if (text.starts_with("/*")) {
        return through(text, "*/", 2);
    }
    if (first == '\'' || first == '"' || first == '`') {
        return through(text, text.substr(0, 1), 1);
    }
    if (first == '[') {
        return through(text, "]", 1);
    }
    return std::max<std::size_t>(1, wordLength(text));
}

bool isBlankOrComment(std::string_view token) {
    return kAllBlanks.find(token.front()) != std::string_view::npos || token.starts_with("--") ||
           token.starts_with("/*");
}

bool opensBracket(std::string_view text) {
    while (!text.empty()) {
        const std::string_view token = text.substr(0, tokenLength(text));
        if (!isBlankOrComment(token)) {
            return token == "(";
        }
        text.remove_prefix(token.size());
    }
    return false;
}

}  // namespace

std::string quoteLeftCalls(std::string_view sql) {
    std::string rewritten;
    rewritten.reserve(sql.size() + 2);
    while (!sql.empty()) {
        const std::string_view token = sql.substr(0, tokenLength(sql));
        sql.remove_prefix(token.size());
        const bool isCall = equalWithoutCase(token, "left") && opensBracket(sql);
        rewritten.append(isCall ? "\"Left\"" : token);
    }
    return rewritten;
}

}  // namespace orv
