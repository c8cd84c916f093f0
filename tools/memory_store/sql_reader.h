#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/value.h"

namespace orv {

/// Returns a value as text; a flag is 1 or 0.
std::string plainText(const Value& value);

/// Splits `sql` into statements, and each statement into words, texts and marks.
std::vector<std::vector<std::string>> splitStatements(const std::string& sql);

/// Throws a StoreFailure that names the word.
[[noreturn]] void refuseWord(const std::string& word);

/// Reads the words of a statement in order, and its expressions on the columns in `scope_`. `$1` is the first
/// parameter.
class SqlReader {
protected:
    using Cell = std::function<Value(const Values& row)>;
    using Test = std::function<bool(const Values& row)>;

    SqlReader(std::vector<std::string> words, const Values& parameters)
        : words_(std::move(words)), parameters_(parameters) {}

    std::string nextWord() { return at_ < words_.size() ? words_[at_++] : std::string(); }
    bool accept(const std::string& word);
    void expect(const std::string& word);
    template <typename Item>
    void list(Item item) {
        do {
            item();
        } while (accept(","));
    }

    std::size_t column(const std::string& name, std::size_t from = 0) const;
    Cell term();
    Cell expression();
    Test comparison();
    /// Reads a WHERE clause, if there is one.
    Test condition();

    std::vector<std::string> words_;
    const Values& parameters_;
    std::size_t at_ = 0;
    /// The columns of the tables that the statement reads, and the position of the second table's first column.
    std::vector<std::string> scope_;
    std::size_t second_ = 0;

private:
    Cell name(const std::string& first);
    /// Evaluates left(text, count), or substr(text, from, count).
    Cell part(bool hasStart);
};

}  // namespace orv
