#include "memory_sql.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <optional>
#include <set>

#include "adapters/store/store_failure.h"
#include "platform/ascii.h"
#include "platform/utf8.h"
#include "sql_reader.h"

namespace orv {
namespace {

bool isBefore(const Value& left, const Value& right) {
    const auto* one = std::get_if<std::int64_t>(&left.content());
    const auto* other = std::get_if<std::int64_t>(&right.content());
    if (one != nullptr && other != nullptr) {
        return *one < *other;
    }
    return !right.isNull() && (left.isNull() || plainText(left) < plainText(right));
}

class Statement : SqlReader {
public:
    Statement(MemoryTables& tables, std::vector<std::string> words, const Values& parameters)
        : SqlReader(std::move(words), parameters), tables_(tables) {}

    MemoryResult run() {
        static const std::map<std::string, void (Statement::*)()> kinds{
            {"SELECT", &Statement::select}, {"INSERT", &Statement::insert}, {"UPDATE", &Statement::update},
            {"DELETE", &Statement::erase},  {"CREATE", &Statement::create}, {"DROP", &Statement::drop},
            {"ALTER", &Statement::rename}};
        const auto kind = kinds.find(upperCase(nextWord()));
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
    MemoryTable& table() {
        const std::string name = nextWord();
        const auto found = tables_.find(upperCase(name));
        return found != tables_.end() ? found->second : (refuseWord(name), found->second);
    }
    void lookInto(const MemoryTable& table) {
        for (const MemoryTable::Column& one : table.columns) {
            scope_.push_back(upperCase(one.name));
        }
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
            rows.resize(std::min<std::size_t>(rows.size(), std::stoul(nextWord())));
        }
        const std::size_t end = std::exchange(at_, items);
        project(rows);
        expect("FROM");
        at_ = end;
    }
    std::vector<Values> source() {
        const MemoryTable& first = table();
        lookInto(first);
        flags_ = listFlagColumns(first);
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
        const auto more = listFlagColumns(second);
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
    static std::vector<bool> listFlagColumns(const MemoryTable& table) {
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
        list([&] { keys.push_back(isAsciiDigit(words_.at(at_)[0]) ? nthItem(std::stoul(nextWord())) : term()); });
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
            const std::string first = upperCase(words_.at(at_));
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
            list([&] { places.push_back(column(nextWord())); });
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
            const std::size_t place = column(nextWord());
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
        const std::string name = upperCase(nextWord());
        MemoryTable made;
        if (accept("AS")) {
            accept("SELECT");
            const auto from = std::ranges::find(words_, "FROM", upperCase) + 1;
            made.rows = selected();
            made.columns = tables_.at(upperCase(*from)).columns;
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
                const std::string key = nextWord();
                std::ranges::find(made.columns, key, &MemoryTable::Column::name)->isKey = true;
            });
            expect(")");
            return;
        }
        MemoryTable::Column column{nextWord()};
        column.isFlag = upperCase(words_.at(at_)) == "BOOLEAN";
        for (; at_ < words_.size() && words_[at_] != "," && words_[at_] != ")"; ++at_) {
            column.isKey = column.isKey || upperCase(words_[at_]) == "PRIMARY";
        }
        made.columns.push_back(column);
    }
    void drop() {
        expect("TABLE");
        tables_.erase(upperCase(nextWord()));
    }
    void rename() {
        expect("TABLE");
        const std::string from = upperCase(nextWord());
        expect("RENAME");
        expect("TO");
        auto node = tables_.extract(from);
        node.key() = upperCase(nextWord());
        tables_.insert(std::move(node));
    }

    MemoryTables& tables_;
    std::vector<bool> flags_;
    MemoryResult result_;
};

}  // namespace

MemoryTable findTable(const MemoryTables& tables, const std::string& name) {
    const auto found = tables.find(upperCase(name));
    return found != tables.end() ? found->second : MemoryTable();
}

MemoryResult runStatement(MemoryTables& tables, const std::vector<std::string>& statement, const Values& parameters) {
    return Statement(tables, statement, parameters).run();
}

}  // namespace orv
