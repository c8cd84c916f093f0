#include "adapters/postgres/postgres_store.h"

#include <libpq-fe.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <span>

#include "adapters/postgres/nested_reads.h"
#include "adapters/postgres/postgres_failure.h"
#include "adapters/postgres/postgres_library.h"
#include "adapters/store/fetched_rows.h"
#include "platform/ascii.h"

namespace orv {
namespace {

constexpr StoreRefusal kCommitUnknown{"DBCONN08", Failure::ConnectionFailed,
                                      "データベースのサーバーとの接続が書き込みの完了前に切れました。"
                                      "保存されたかどうかわからないため、会社を開き直して内容を確認してください。"};

constexpr auto kReadingWords = std::to_array<std::string_view>({"select", "with", "values"});
constexpr auto kChangingWords = std::to_array<std::string_view>({"insert", "update", "delete"});

// A read is rolled back at its end, so that side effects, such as a changed setting, do not remain.
constexpr const char* kReadInside = "SAVEPOINT orv_call; SET LOCAL transaction_read_only = on";
constexpr const char* kChangeInside = "SAVEPOINT orv_call";
constexpr const char* kUndoInside = "ROLLBACK TO SAVEPOINT orv_call; RELEASE SAVEPOINT orv_call";
constexpr const char* kKeepInside = "RELEASE SAVEPOINT orv_call";

constexpr const char* kColumns =
    "SELECT attname FROM pg_attribute WHERE attrelid = to_regclass($1) AND attnum > 0 AND NOT attisdropped"
    " ORDER BY attnum";
constexpr const char* kKeyColumns =
    "SELECT a.attname FROM pg_index i, unnest(i.indkey) WITH ORDINALITY AS k (number, place), pg_attribute a"
    " WHERE i.indrelid = to_regclass($1) AND i.indisprimary AND a.attrelid = i.indrelid AND a.attnum = k.number"
    " ORDER BY k.place";

// Objects in the schemas in which names are looked up, except those of extensions. Like a trigger, a default that calls
// a function, an index and a type can run code.
constexpr const char* kObjects =
    "WITH own AS (SELECT oid FROM pg_namespace WHERE nspname = ANY (current_schemas(false))),"
    " extra AS (SELECT objid FROM pg_depend WHERE deptype = 'e'),"
    " tables AS (SELECT oid, relname, relkind FROM pg_class"
    "  WHERE relnamespace IN (SELECT oid FROM own) AND oid NOT IN (SELECT objid FROM extra)),"
    " kinds (relkind, kind) AS (VALUES ('r', 'table'), ('p', 'partitioned table'), ('f', 'foreign table'), ('v', "
    "'view'),"
    "  ('m', 'view'), ('S', 'sequence'), ('c', 'type')),"
    " columns AS (SELECT attname, attgenerated, pg_get_expr(adbin, adrelid) AS value FROM pg_attribute"
    "  LEFT JOIN pg_attrdef ON adrelid = attrelid AND adnum = attnum WHERE attrelid IN (SELECT oid FROM tables))"
    " SELECT *, '' FROM (SELECT kind, relname FROM tables JOIN kinds ON tables.relkind::text = kinds.relkind"
    " UNION SELECT 'index', relname FROM pg_index JOIN pg_class ON pg_class.oid = indexrelid"
    "  WHERE NOT indisprimary AND indrelid IN (SELECT oid FROM tables)"
    " UNION SELECT 'type', typname FROM pg_type WHERE typrelid = 0 AND typtype IN ('d', 'e', 'r')"
    "  AND typnamespace IN (SELECT oid FROM own) AND oid NOT IN (SELECT objid FROM extra)"
    " UNION SELECT 'trigger', tgname FROM pg_trigger WHERE NOT tgisinternal AND tgrelid IN (SELECT oid FROM tables)"
    " UNION SELECT 'rule', rulename FROM pg_rewrite WHERE rulename <> '_RETURN' AND ev_class IN (SELECT oid FROM "
    "tables)"
    " UNION SELECT 'policy', polname FROM pg_policy WHERE polrelid IN (SELECT oid FROM tables)"
    " UNION SELECT 'function', proname FROM pg_proc"
    "  WHERE pronamespace IN (SELECT oid FROM own) AND oid NOT IN (SELECT objid FROM extra)"
    " UNION SELECT 'constraint', conname FROM pg_constraint WHERE contype IN ('c', 'f', 'u', 'x')"
    "  AND conrelid IN (SELECT oid FROM tables)"
    " UNION SELECT 'computed column', attname FROM columns WHERE attgenerated <> ''"
    " UNION SELECT 'computed default', attname FROM columns WHERE attgenerated = '' AND strpos(value, '(') > 0"
    ") AS objects ORDER BY 1, 2";

// The server's numbers of the types that are not read as texts.
constexpr Oid kBool = 16;
constexpr auto kWholeNumbers = std::to_array<Oid>({20, 21, 23});
constexpr auto kBrokenNumbers = std::to_array<Oid>({700, 701, 1700});

std::string_view firstWord(std::string_view sql) {
    const std::string_view text = trimmedLeft(sql, kAllBlanks);
    return {text.begin(), std::ranges::find_if_not(text, isAsciiLetter)};
}

/// With parameters, the server accepts one statement per message and rejects more. It ignores empty ones after it.
void requireStatement(std::string_view sql, std::span<const std::string_view> words, const StoreRefusal& otherwise) {
    if (sql.find('\0') != std::string_view::npos) {
        refuse(kBadCharacter);
    }
    std::string_view rest = trimmedRight(sql, kAllBlanks);
    if (rest.ends_with(';')) {
        rest.remove_suffix(1);
        if (trimmedRight(rest, kAllBlanks).ends_with(';')) {
            refuse(kManyStatements);
        }
    }
    const std::string_view word = firstWord(rest);
    if (word.empty()) {
        refuse(kNoStatement);
    }
    if (std::ranges::none_of(words, [&](std::string_view known) { return equalWithoutCase(word, known); })) {
        refuse(otherwise);
    }
}

template <typename Number>
Value parseNumber(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? Value(number) : Value(std::string(text));
}

Value readValue(const PGresult* result, int row, int column) {
    if (pq().getisnull(result, row, column) != 0) {
        return {};
    }
    const std::string_view text(pq().getvalue(result, row, column),
                                static_cast<std::size_t>(pq().getlength(result, row, column)));
    const Oid type = pq().ftype(result, column);
    if (type == kBool) {
        return text == "t";
    }
    if (std::ranges::find(kWholeNumbers, type) != kWholeNumbers.end()) {
        return parseNumber<std::int64_t>(text);
    }
    if (std::ranges::find(kBrokenNumbers, type) != kBrokenNumbers.end()) {
        return parseNumber<double>(text);
    }
    return std::string(text);
}

/// A null takes four bytes of the answer and many times that in memory.
RecordsetPtr readRows(const PGresult* result, std::size_t most) {
    const auto values = static_cast<std::size_t>(pq().ntuples(result)) * static_cast<std::size_t>(pq().nfields(result));
    if (values > most / sizeof(Value)) {
        refuse(kAnswerTooLong);
    }
    std::vector<std::string> names;
    for (int column = 0; column < pq().nfields(result); ++column) {
        names.emplace_back(pq().fname(result, column));
    }
    auto rows = std::make_unique<FetchedRows>(std::move(names));
    for (int row = 0; row < pq().ntuples(result); ++row) {
        for (int column = 0; column < pq().nfields(result); ++column) {
            rows->add(readValue(result, row, column));
        }
    }
    return rows;
}

std::int32_t touchedRows(PGresult* result) {
    const std::string_view digits = pq().cmdTuples(result);
    std::int64_t rows = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), rows);
    return static_cast<std::int32_t>(std::min<std::int64_t>(rows, std::numeric_limits<std::int32_t>::max()));
}

std::string opening(const ServerLimits& limits, std::string_view mode) {
    const auto setting = [](const char* name, std::chrono::milliseconds time) {
        return std::string("; SET LOCAL ") + name + " = " + std::to_string(time.count());
    };
    std::string text("BEGIN ISOLATION LEVEL ");
    text.append(mode).append("; SET LOCAL standard_conforming_strings = on");
    return text + setting("lock_timeout", limits.lock) + setting("statement_timeout", limits.statement) +
           setting("idle_in_transaction_session_timeout", limits.idle);
}

class PostgresStore : public StoreConnection {
public:
    PostgresStore(const ServerSettings& settings, const ServerLimits& limits, StoreAccess access)
        : link_(settings, limits.patience),
          mostBytes_(limits.patience.bytes),
          beginRead_(opening(limits, "READ COMMITTED READ ONLY")),
          beginSnapshot_(opening(limits, "REPEATABLE READ READ ONLY")),
          begin_(access == StoreAccess::ReadOnly ? beginRead_ : opening(limits, "READ COMMITTED")) {}

    RecordsetPtr select(const std::string& sql, const Values& parameters) override {
        requireStatement(sql, kReadingWords, kNoSelect);
        const bool isInside = inTransaction();
        command(isInside ? kReadInside : beginRead_);
        const ServerResult result = link_.ask(sql, parameters);
        static_cast<void>(link_.askAll(isInside ? kUndoInside : "ROLLBACK"));
        require(result, PGRES_TUPLES_OK, kNoSelect);
        return readRows(result.get(), mostBytes_);
    }

    std::int32_t change(const std::string& sql, const Values& parameters) override {
        requireStatement(sql, kChangingWords, kNoChange);
        refuseNestedReads(sql);
        const bool isInside = inTransaction();
        command(isInside ? kChangeInside : begin_);
        const ServerResult result = link_.ask(sql, parameters);
        if (pq().resultStatus(result.get()) != PGRES_COMMAND_OK) {
            static_cast<void>(link_.askAll(isInside ? kUndoInside : "ROLLBACK"));
        }
        require(result, PGRES_COMMAND_OK, kNoChange);
        if (isInside) {
            command(kKeepInside);
        } else {
            commit();
        }
        return touchedRows(result.get());
    }

    bool inTransaction() const override { return link_.inTransaction(); }

    void begin() override { command(begin_); }
    void beginSnapshot() override { command(beginSnapshot_); }

    void commit() override {
        const ServerResult result = link_.askAll("COMMIT");
        if (result == nullptr) {
            refuse(kCommitUnknown);
        }
        require(result, PGRES_COMMAND_OK, kNoTransaction);
        if (std::string_view(pq().cmdStatus(result.get())) != "COMMIT") {
            refuse(kNoTransaction);
        }
    }

    /// If the connection is lost, the server rolls back by itself.
    void rollBack() override {
        if (inTransaction()) {
            static_cast<void>(link_.askAll("ROLLBACK"));
        }
    }

    std::vector<std::string> columns(const std::string& table) override {
        return firstTexts(select(kColumns, {table}));
    }
    std::vector<std::string> keyColumns(const std::string& table) override {
        return firstTexts(select(kKeyColumns, {table}));
    }

    void runScript(const std::string& sql) override { command(sql); }
    std::vector<std::string> damages() override { return {}; }

    std::vector<StoreObject> objects() override { return objectsIn(select(kObjects, {})); }

private:
    void command(const std::string& sql) { require(link_.askAll(sql), PGRES_COMMAND_OK, kNoTransaction); }

    /// Throws the reason if the message did not end as required.
    void require(const ServerResult& result, int wanted, const StoreRefusal& otherwise) const {
        if (result == nullptr) {
            refuse(link_.whyCut());
        }
        const int status = pq().resultStatus(result.get());
        const char* state = pq().resultErrorField(result.get(), PG_DIAG_SQLSTATE);
        if (state != nullptr) {
            const char* words = pq().resultErrorField(result.get(), PG_DIAG_MESSAGE_PRIMARY);
            throw serverFailure(state, words == nullptr ? "" : words);
        }
        if (status == PGRES_EMPTY_QUERY) {
            refuse(kNoStatement);
        }
        if (status != wanted) {
            refuse(otherwise);
        }
    }

    ServerLink link_;
    std::size_t mostBytes_;
    std::string beginRead_;
    std::string beginSnapshot_;
    std::string begin_;
};

}  // namespace

StoreOpener postgresStore(const ServerLimits& limits) {
    return [limits](const std::string& nativePath, StoreAccess access) {
        return std::make_unique<PostgresStore>(readServerText(nativePath), limits, access);
    };
}

}  // namespace orv
