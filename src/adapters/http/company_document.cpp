#include "adapters/http/company_document.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "platform/ascii.h"
#include "platform/run_time_error.h"
#include "platform/scope.h"
#include "platform/suite/db_service.h"
#include "platform/suite/sql_text.h"

namespace orv {
namespace {

using Document = nlohmann::ordered_json;

constexpr std::size_t kLongestId = 64;

[[noreturn]] void raiseFrom(const DbService& db) {
    const FailureRecord why = db.DbError();
    throw RunTimeError(Failure::Internal, why.text + "（" + why.code + "）");
}

class ReadOnlyVisit : NonCopyable {
public:
    ReadOnlyVisit(DbService& db, const std::string& path) : db_(db) {
        bool ok = false;
        db_.DbOpen(connection_, path, ok);
        if (!ok) {
            raiseFrom(db_);
        }
    }
    ~ReadOnlyVisit() {
        bool ok = false;
        db_.DbClose(connection_, ok);
    }

    RecordsetPtr select(const std::string& sql) {
        bool ok = false;
        RecordsetPtr rows;
        db_.DbOpenRs(connection_, rows, sql, ok);
        if (!ok) {
            raiseFrom(db_);
        }
        return rows;
    }

private:
    DbService& db_;
    ConnectionPtr connection_;
};

std::string makeSelect(const SentTable& table, const std::string& userId) {
    std::string sql = "SELECT ";
    for (const SentColumn& column : table.columns) {
        sql.append(&column == &table.columns.front() ? "" : ", ").append(column.name);
    }
    return sql.append(" FROM ").append(table.name).append(" WHERE USER_ID = ") + sqlText(userId);
}

/// Stores return a boolean in different forms: as a boolean, a number or a word.
bool toFlag(const Value& value) {
    const std::string text = toText(value);
    return text != "0" && text != "False" && text != "false" && text != "FALSE" && !text.empty();
}

Document toCell(const SentColumn& column, const Value& value) {
    if (value.isNull()) {
        return nullptr;
    }
    if (column.isFlag) {
        return toFlag(value);
    }
    const auto* number = std::get_if<std::int64_t>(&value.content());
    return number ? Document(*number) : Document(toText(value));
}

Document readRow(ReadOnlyVisit& store, const SentTable& table, const std::string& userId) {
    const RecordsetPtr rows = store.select(makeSelect(table, userId));
    if (rows->RecordCount() != 1) {
        throw RunTimeError(Failure::Internal,
                           "送信する会社のデータが1件ではありません。（" + std::string(table.name) + "）");
    }
    Document row = Document::object();
    for (const SentColumn& column : table.columns) {
        const std::string name(column.name);
        row[name] = toCell(column, rows->Fields(name));
    }
    return row;
}

/// The id becomes part of statements, of file names and of an argument string.
bool isPlain(std::string_view id) { return std::ranges::all_of(id, isAsciiAlphanumeric); }

}  // namespace

std::string companyDocument(DbService& db, std::span<const SentTable> tables, const std::string& storePath,
                            const std::string& userId) {
    ReadOnlyVisit store(db, storePath);
    Document document;
    for (const SentTable& table : tables) {
        document[std::string(table.name)] = readRow(store, table, userId);
    }
    return document.dump(-1, ' ', false, Document::error_handler_t::replace);
}

std::optional<std::string> idInAnswer(std::string_view body) {
    const auto answer = nlohmann::json::parse(body, nullptr, false);
    if (!answer.is_object() || !answer.contains("id") || !answer["id"].is_string()) {
        return std::nullopt;
    }
    auto id = answer["id"].get<std::string>();
    if (id.empty() || id.size() > kLongestId || !isPlain(id)) {
        return std::nullopt;
    }
    return id;
}

}  // namespace orv
