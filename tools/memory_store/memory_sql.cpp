#include "memory_sql.h"

#include <algorithm>
#include <cctype>
#include <functional>
#include <numeric>
#include <optional>
#include <set>

#include "adapters/store/store_failure.h"

namespace orv {
namespace {

using Cell = std::function<Value(const Values& row)>;
using Test = std::function<bool(const Values& row)>;

[[noreturn]] void refuseWord(const std::string& word) {
    throw StoreFailure(Failure::InvalidCall, "DB1", "データベースへの命令が正しくありません。（" + word + "）");
}

bool isNameCharacter(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '$'; }

std::string upper(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

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

std::string contentOf(const std::string& literal) {
    std::string text;
    for (std::size_t at = 1; at + 1 < literal.size(); ++at) {
        text += literal[at];
        at += literal[at] == '\'' ? 1 : 0;
    }
    return text;
}

std::size_t bytesOf(const std::string& text, std::size_t characters) {
    std::size_t at = 0;
    for (; characters > 0 && at < text.size(); --characters) {
        do {
            ++at;
        } while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U);
    }
    return at;
}

bool isBefore(const Value& left, const Value& right) {
    const auto* one = std::get_if<std::int64_t>(&left.content());
    const auto* other = std::get_if<std::int64_t>(&right.content());
    if (one != nullptr && other != nullptr) {
        return *one < *other;
    }
    return !right.isNull() && (left.isNull() || plainText(left) < plainText(right));
}

class Statement {
public:
    Statement(MemoryTables& tables, const std::vector<std::string>& words, const Values& parameters)
        : tables_(tables), words_(words), parameters_(parameters) {}

    MemoryResult run() {
        static const std::map<std::string, void (Statement::*)()> kinds{
            {"SELECT", &Statement::select}, {"INSERT", &Statement::insert}, {"UPDATE", &Statement::update},
            {"DELETE", &Statement::erase},  {"CREATE", &Statement::create}, {"DROP", &Statement::drop},
            {"ALTER", &Statement::rename}};
        const auto kind = kinds.find(upper(take()));
        if (kind == kinds.end()) {
            refuseWord(words_.front());
        }
        (this->*kind->second)();
        if (at_ < words_.size()) {
            refuseWord(words_[at_]);
        }
        return std::move(result_);
    }

private:
    std::string take() { return at_ < words_.size() ? words_[at_++] : std::string(); }
    bool accept(const std::string& word) {
        const bool isNext = at_ < words_.size() && upper(words_[at_]) == word;
        at_ += isNext ? 1 : 0;
        return isNext;
    }
    void expect(const std::string& word) {
        if (!accept(word)) {
            refuseWord(at_ < words_.size() ? words_[at_] : word);
        }
    }
    MemoryTable& table() {
        const std::string name = take();
        const auto found = tables_.find(upper(name));
        return found != tables_.end() ? found->second : (refuseWord(name), found->second);
    }
    std::size_t column(const std::string& name, std::size_t from = 0) const {
        const auto found = std::find(scope_.begin() + static_cast<std::ptrdiff_t>(from), scope_.end(), upper(name));
        return found != scope_.end() ? static_cast<std::size_t>(found - scope_.begin()) : (refuseWord(name), 0);
    }
    void lookInto(const MemoryTable& table) {
        for (const MemoryTable::Column& one : table.columns) {
            scope_.push_back(upper(one.name));
        }
    }
    template <typename Item>
    void list(Item item) {
        do {
            item();
        } while (accept(","));
    }

    Cell name(const std::string& first) {
        const bool isQualified = accept(".");
        const std::size_t place = isQualified ? column(take(), upper(first) == "B" ? second_ : 0) : column(first);
        return [place](const Values& row) { return row[place]; };
    }
    /// Evaluates left(text, count), or substr(text, from, count).
    Cell part(bool hasStart) {
        expect("(");
        const Cell text = expression();
        expect(",");
        const std::size_t from = hasStart ? std::stoul(take()) - 1 : 0;
        if (hasStart) {
            expect(",");
        }
        const std::size_t count = std::stoul(take());
        expect(")");
        return [=](const Values& row) {
            const Value value = text(row);
            if (value.isNull()) {
                return value;
            }
            const std::string whole = plainText(value);
            const std::string rest = whole.substr(bytesOf(whole, from));
            return Value(rest.substr(0, bytesOf(rest, count)));
        };
    }
    Cell term() {
        const std::string word = take();
        const std::string big = upper(word);
        if (big == "LEFT" || big == "SUBSTR") {
            return part(big == "SUBSTR");
        }
        const auto constant = [](Value value) { return [value](const Values&) { return value; }; };
        if (isText(word)) {
            return constant(contentOf(word));
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
        if (!word.empty() && std::ranges::all_of(word, [](unsigned char c) { return std::isdigit(c) != 0; })) {
            return constant(std::int64_t{std::stoll(word)});
        }
        return name(word);
    }
    Cell expression() {
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
    Test comparison() {
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
    Test condition() {
        Test all = [](const Values&) { return true; };
        if (accept("WHERE")) {
            do {
                all = [all, next = comparison()](const Values& row) { return all(row) && next(row); };
            } while (accept("AND"));
        }
        return all;
    }

    void select() {
        result_.isSelect = true;
        const std::size_t items = at_;
        while (at_ < words_.size() && !accept("FROM")) {
            ++at_;
        }
        std::vector<Values> rows = source();
        std::erase_if(rows, [keep = condition()](const Values& row) { return !keep(row); });
        order(rows);
        if (accept("LIMIT")) {
            rows.resize(std::min<std::size_t>(rows.size(), std::stoul(take())));
        }
        const std::size_t end = std::exchange(at_, items);
        project(rows);
        expect("FROM");
        at_ = end;
    }
    std::vector<Values> source() {
        const MemoryTable& first = table();
        lookInto(first);
        flags_ = flagsOf(first);
        passName("A");
        const bool keepsAll = accept("LEFT");
        return accept("JOIN") ? joined(first, table(), keepsAll) : first.rows;
    }
    void passName(const char* name) {
        accept("AS");
        accept(name);
    }
    /// A join names its tables only A and B.
    std::vector<Values> joined(const MemoryTable& first, const MemoryTable& second, bool keepsAll) {
        second_ = scope_.size();
        lookInto(second);
        const auto more = flagsOf(second);
        flags_.insert(flags_.end(), more.begin(), more.end());
        passName("B");
        expect("ON");
        const Test matches = comparison();
        std::vector<Values> rows;
        for (const Values& left : first.rows) {
            const std::size_t before = rows.size();
            for (const Values& right : second.rows) {
                rows.push_back(left);
                rows.back().insert(rows.back().end(), right.begin(), right.end());
                rows.resize(rows.size() - (matches(rows.back()) ? 0 : 1));
            }
            if (keepsAll && rows.size() == before) {
                rows.push_back(left);
                rows.back().resize(scope_.size());
            }
        }
        return rows;
    }
    static std::vector<bool> flagsOf(const MemoryTable& table) {
        std::vector<bool> flags;
        for (const MemoryTable::Column& column : table.columns) {
            flags.push_back(column.isFlag);
        }
        return flags;
    }
    void order(std::vector<Values>& rows) {
        if (!accept("ORDER")) {
            return;
        }
        expect("BY");
        std::vector<Cell> keys;
        list([&] { keys.push_back(isdigit(words_.at(at_)[0]) != 0 ? nthItem(std::stoul(take())) : term()); });
        std::ranges::stable_sort(rows, [&](const Values& left, const Values& right) {
            for (const Cell& key : keys) {
                if (isBefore(key(left), key(right)) || isBefore(key(right), key(left))) {
                    return isBefore(key(left), key(right));
                }
            }
            return false;
        });
    }
    /// Returns an item of the SELECT list.
    Cell nthItem(std::size_t number) {
        const std::size_t end = std::exchange(at_, 1);
        Cell item = expression();
        while (--number > 0 && accept(",")) {
            item = expression();
        }
        at_ = end;
        return item;
    }
    void project(const std::vector<Values>& rows) {
        if (accept("*")) {
            result_.columns = scope_;
            result_.rows = rows;
            for (Values& row : result_.rows) {
                for (std::size_t i = 0; i < row.size(); ++i) {
                    row[i] = asFlag(row[i], flags_[i]);
                }
            }
            return;
        }
        if (accept("COUNT")) {
            for (const char* word : {"(", "*", ")"}) {
                expect(word);
            }
            result_.columns = {"COUNT(*)"};
            result_.rows = {{Value(static_cast<std::int64_t>(rows.size()))}};
            return;
        }
        result_.rows.resize(rows.size());
        list([&] {
            const std::string first = upper(words_.at(at_));
            const auto found = std::ranges::find(scope_, first);
            const bool isFlag = found != scope_.end() && flags_[static_cast<std::size_t>(found - scope_.begin())];
            result_.columns.push_back(first);
            const Cell item = expression();
            for (std::size_t i = 0; i < rows.size(); ++i) {
                result_.rows[i].push_back(asFlag(item(rows[i]), isFlag));
            }
        });
    }
    static Value asFlag(const Value& value, bool isFlag) {
        const auto* number = std::get_if<std::int64_t>(&value.content());
        return isFlag && number != nullptr ? Value(*number != 0) : value;
    }

    void insert() {
        expect("INTO");
        MemoryTable& into = table();
        std::vector<std::size_t> places;
        lookInto(into);
        if (accept("(")) {
            list([&] { places.push_back(column(take())); });
            expect(")");
        }
        if (places.empty()) {
            places.resize(into.columns.size());
            std::iota(places.begin(), places.end(), std::size_t{0});
        }
        for (const Values& given : accept("SELECT") ? selected() : literals()) {
            into.rows.emplace_back(into.columns.size());
            for (std::size_t i = 0; i < places.size(); ++i) {
                into.rows.back()[places[i]] = given.at(i);
            }
            ++result_.changed;
        }
        requireKeys(into);
    }
    std::vector<Values> selected() {
        Statement inner(tables_, {words_.begin() + static_cast<std::ptrdiff_t>(at_) - 1, words_.end()}, parameters_);
        at_ = words_.size();
        return inner.run().rows;
    }
    std::vector<Values> literals() {
        expect("VALUES");
        std::vector<Values> rows;
        list([&] {
            expect("(");
            rows.emplace_back();
            list([&] { rows.back().push_back(expression()({})); });
            expect(")");
        });
        return rows;
    }
    void update() {
        MemoryTable& changed = table();
        lookInto(changed);
        expect("SET");
        std::vector<std::pair<std::size_t, Cell>> assignments;
        list([&] {
            const std::size_t place = column(take());
            expect("=");
            assignments.emplace_back(place, expression());
        });
        const Test matches = condition();
        for (Values& row : changed.rows) {
            if (!matches(row)) {
                continue;
            }
            ++result_.changed;
            const Values before = row;
            for (const auto& [place, cell] : assignments) {
                row[place] = cell(before);
            }
        }
        requireKeys(changed);
    }
    void erase() {
        expect("FROM");
        MemoryTable& changed = table();
        lookInto(changed);
        const Test matches = condition();
        result_.changed = static_cast<std::int32_t>(std::erase_if(changed.rows, matches));
    }
    static void requireKeys(const MemoryTable& table) {
        std::set<std::string> keys;
        for (const Values& row : table.rows) {
            std::optional<std::string> key;
            for (std::size_t i = 0; i < row.size(); ++i) {
                if (table.columns[i].isKey) {
                    key = key.value_or("") + plainText(row[i]) + '\0';
                }
            }
            if (key && !keys.insert(*key).second) {
                throw StoreFailure(Failure::InvalidCall, "DB1555", "同じキーの行がすでにあります。");
            }
        }
    }

    void create() {
        accept("TEMP");
        expect("TABLE");
        const std::string name = upper(take());
        MemoryTable made;
        if (accept("AS")) {
            accept("SELECT");
            const auto from = std::ranges::find(words_, "FROM", upper) + 1;
            made.rows = selected();
            made.columns = tables_.at(upper(*from)).columns;
            std::ranges::for_each(made.columns, [](MemoryTable::Column& column) { column.isKey = false; });
        } else {
            expect("(");
            list([&] { define(made); });
            expect(")");
        }
        tables_[name] = made;
    }
    void define(MemoryTable& made) {
        if (accept("PRIMARY")) {
            expect("KEY");
            expect("(");
            list([&] {
                const std::string key = take();
                std::ranges::find(made.columns, key, &MemoryTable::Column::name)->isKey = true;
            });
            expect(")");
            return;
        }
        MemoryTable::Column column{take()};
        column.isFlag = upper(words_.at(at_)) == "BOOLEAN";
        for (; at_ < words_.size() && words_[at_] != "," && words_[at_] != ")"; ++at_) {
            column.isKey = column.isKey || upper(words_[at_]) == "PRIMARY";
        }
        made.columns.push_back(column);
    }
    void drop() {
        expect("TABLE");
        tables_.erase(upper(take()));
    }
    void rename() {
        expect("TABLE");
        const std::string from = upper(take());
        expect("RENAME");
        expect("TO");
        auto node = tables_.extract(from);
        node.key() = upper(take());
        tables_.insert(std::move(node));
    }

    MemoryTables& tables_;
    std::vector<std::string> words_;
    const Values& parameters_;
    std::size_t at_ = 0;
    /// The columns of the tables that the statement reads, and the position of the second table's first column.
    std::vector<std::string> scope_;
    std::vector<bool> flags_;
    std::size_t second_ = 0;
    MemoryResult result_;
};

}  // namespace

std::string plainText(const Value& value) {
    const bool* flag = std::get_if<bool>(&value.content());
    return flag != nullptr ? (*flag ? "1" : "0") : toText(value);
}

MemoryTable tableOf(const MemoryTables& tables, const std::string& name) {
    const auto found = tables.find(upper(name));
    return found != tables.end() ? found->second : MemoryTable();
}

std::vector<std::vector<std::string>> statementsOf(const std::string& sql) {
    std::vector<std::vector<std::string>> all(1);
    for (std::size_t at = 0; at < sql.size();) {
        if (sql.compare(at, 2, "--") == 0) {
            at = std::min(sql.find('\n', at), sql.size());
        } else if (std::isspace(static_cast<unsigned char>(sql[at])) != 0) {
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

MemoryResult runStatement(MemoryTables& tables, const std::vector<std::string>& statement, const Values& parameters) {
    return Statement(tables, statement, parameters).run();
}

}  // namespace orv
