#include "sql_reader.h"

#include <algorithm>

#include "adapters/store/store_failure.h"
#include "platform/ascii.h"
#include "platform/utf8.h"

namespace orv {
namespace {

bool isNameCharacter(char c) { return isAsciiAlphanumeric(c) || c == '_' || c == '$'; }

/// A quote inside a text is doubled.
std::size_t endOfText(const std::string& sql, std::size_t from) {
    std::size_t at = sql.find('\'', from + 1);
    while (at != std::string::npos && sql.compare(at, 2, "''") == 0) {
        at = sql.find('\'', at + 2);
    }
    return at != std::string::npos ? at + 1 : (refuseWord("'"), 0);
}

std::size_t endOfWord(const std::string& sql, std::size_t from) {
    if (sql[from] == '\'') {
        return endOfText(sql, from);
    }
    if (!isNameCharacter(sql[from])) {
        const std::string two = sql.substr(from, 2);
        return from + (two == "||" || two == "<>" ? 2 : 1);
    }
    const auto end = std::find_if_not(sql.begin() + static_cast<std::ptrdiff_t>(from), sql.end(), isNameCharacter);
    return static_cast<std::size_t>(end - sql.begin());
}

bool isText(const std::string& word) { return word.starts_with('\''); }

std::string unquote(const std::string& literal) {
    std::string text;
    for (std::size_t at = 1; at + 1 < literal.size(); ++at) {
        text += literal[at];
        at += literal[at] == '\'' ? 1 : 0;
    }
    return text;
}

}  // namespace

void refuseWord(const std::string& word) {
    throw StoreFailure(Failure::InvalidCall, "DB1", "データベースへの命令が正しくありません。（" + word + "）");
}

std::string plainText(const Value& value) {
    const bool* flag = std::get_if<bool>(&value.content());
    return flag != nullptr ? (*flag ? "1" : "0") : toText(value);
}

std::vector<std::vector<std::string>> splitStatements(const std::string& sql) {
    std::vector<std::vector<std::string>> all(1);
    for (std::size_t at = 0; at < sql.size();) {
        if (sql.compare(at, 2, "--") == 0) {
            at = std::min(sql.find('\n', at), sql.size());
        } else if (kAllBlanks.find(sql[at]) != std::string_view::npos) {
            ++at;
        } else {
            const std::size_t end = endOfWord(sql, at);
            const std::string word = sql.substr(at, end - at);
            word == ";" ? static_cast<void>(all.emplace_back()) : all.back().push_back(word);
            at = end;
        }
    }
    std::erase_if(all, [](const auto& statement) { return statement.empty(); });
    return all;
}

bool SqlReader::accept(const std::string& word) {
    const bool isNext = at_ < words_.size() && upperCase(words_[at_]) == word;
    at_ += isNext ? 1 : 0;
    return isNext;
}

void SqlReader::expect(const std::string& word) {
    if (!accept(word)) {
        refuseWord(at_ < words_.size() ? words_[at_] : word);
    }
}

std::size_t SqlReader::column(const std::string& name, std::size_t from) const {
    const auto found = std::find(scope_.begin() + static_cast<std::ptrdiff_t>(from), scope_.end(), upperCase(name));
    return found != scope_.end() ? static_cast<std::size_t>(found - scope_.begin()) : (refuseWord(name), 0);
}

SqlReader::Cell SqlReader::name(const std::string& first) {
    const bool isQualified = accept(".");
    const std::size_t place = isQualified ? column(nextWord(), upperCase(first) == "B" ? second_ : 0) : column(first);
    return [place](const Values& row) { return row[place]; };
}

SqlReader::Cell SqlReader::part(bool hasStart) {
    expect("(");
    const Cell text = expression();
    expect(",");
    const std::size_t from = hasStart ? std::stoul(nextWord()) - 1 : 0;
    if (hasStart) {
        expect(",");
    }
    const std::size_t count = std::stoul(nextWord());
    expect(")");
    return [=](const Values& row) {
        const Value value = text(row);
        if (value.isNull()) {
            return value;
        }
        const std::u32string whole = toCharacters(plainText(value));
        return Value(from < whole.size() ? toUtf8(whole.substr(from, count)) : std::string());
    };
}

SqlReader::Cell SqlReader::term() {
    const std::string word = nextWord();
    const std::string big = upperCase(word);
    if (big == "LEFT" || big == "SUBSTR") {
        return part(big == "SUBSTR");
    }
    const auto constant = [](Value value) { return [value](const Values&) { return value; }; };
    if (isText(word)) {
        return constant(unquote(word));
    }
    if (big == "TRUE" || big == "FALSE") {
        return constant(big == "TRUE");
    }
    if (big == "NULL") {
        return constant({});
    }
    if (word.starts_with('$')) {
        return constant(parameters_.at(std::stoul(word.substr(1)) - 1));
    }
    if (!word.empty() && std::ranges::all_of(word, isAsciiDigit)) {
        return constant(std::int64_t{std::stoll(word)});
    }
    return name(word);
}

SqlReader::Cell SqlReader::expression() {
    Cell whole = term();
    while (accept("||")) {
        whole = [whole, next = term()](const Values& row) {
            const Value left = whole(row);
            const Value right = next(row);
            return left.isNull() || right.isNull() ? Value() : Value(plainText(left) + plainText(right));
        };
    }
    return whole;
}

SqlReader::Test SqlReader::comparison() {
    const Cell left = expression();
    const bool isEqual = accept("=");
    if (!isEqual) {
        expect("<>");
    }
    return [left, right = expression(), isEqual](const Values& row) {
        const Value one = left(row);
        const Value other = right(row);
        return !one.isNull() && !other.isNull() && (plainText(one) == plainText(other)) == isEqual;
    };
}

SqlReader::Test SqlReader::condition() {
    Test all = [](const Values&) { return true; };
    if (accept("WHERE")) {
        do {
            all = [all, next = comparison()](const Values& row) { return all(row) && next(row); };
        } while (accept("AND"));
    }
    return all;
}

}  // namespace orv
