#include "adapters/sqlite/sqlite_database.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>
#include <thread>

#include "adapters/sqlite/guarded_vfs.h"
#include "adapters/sqlite/sqlite_failure.h"
#include "platform/ascii.h"
#include "platform/utf8.h"
#include "platform/waiting.h"

namespace orv {
namespace {

// Also flushes the folder when the journal is deleted. Otherwise a power failure could restore the journal, and with it
// the state before the commit.
constexpr const char* kFullDurability = "PRAGMA synchronous = EXTRA";
constexpr const char* kReadSchema = "SELECT 1 FROM sqlite_schema LIMIT 1";
constexpr std::chrono::milliseconds kPause{1};
constexpr int kLongestValue = 16 << 20;
constexpr int kStepsBetween = 100;  // of the engine: microseconds, or milliseconds for the longest values
// Views of other programs can use it.
constexpr int kLeftTraits = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;

struct Opening {
    StoreAccess access;
    int flags;
    bool isImmutable;
};

constexpr auto kOpenings = std::to_array<Opening>({
    {StoreAccess::ReadWrite, SQLITE_OPEN_READWRITE, false},
    {StoreAccess::ReadOnly, SQLITE_OPEN_READONLY, false},
    {StoreAccess::Create, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOFOLLOW, false},
    {StoreAccess::OwnFile, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOFOLLOW, false},
    {StoreAccess::OwnCopy, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOFOLLOW | SQLITE_OPEN_URI, true},
});

/// Returns the address with which the engine takes no locks and looks for no journal.
std::string immutable(const std::string& path) {
    std::string address = "file:";
    for (const char c : path) {
        const bool isSpecial = c == '%' || c == '?' || c == '#';
        address += isSpecial ? "%" + std::string(c == '%' ? "25" : c == '?' ? "3f" : "23") : std::string(1, c);
    }
    return address + "?immutable=1";
}

/// Another program can have stored any bytes in a text column, while all callers of the store rely on UTF-8.
std::string repairedUtf8(std::string_view bytes) {
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    return std::ranges::all_of(bytes, isAscii) ? std::string(bytes) : toUtf8(toCharacters(bytes));
}

StoreFailure lastFailure(sqlite3* database, int result) {
    const char* words = sqlite3_errmsg(database);
    return sqliteFailure(result, words == nullptr ? "" : words);
}

void refuseUnlessOk(sqlite3* database, int result) {
    if (result != SQLITE_OK) {
        throw lastFailure(database, result);
    }
}

/// Returns the first characters of a text, or the whole text if it is shorter. Null for null.
void left(sqlite3_context* context, int, sqlite3_value** arguments) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(arguments[0]));
    if (bytes == nullptr || sqlite3_value_type(arguments[1]) == SQLITE_NULL) {
        return;
    }
    const std::int64_t length = sqlite3_value_int64(arguments[1]);
    if (length < 0) {
        sqlite3_result_error(context, "Left: negative length", -1);
        return;
    }
    const std::u32string text = toCharacters({bytes, static_cast<std::size_t>(sqlite3_value_bytes(arguments[0]))});
    const std::string start = toUtf8(std::u32string_view(text).substr(0, static_cast<std::size_t>(length)));
    sqlite3_result_text(context, start.data(), static_cast<int>(start.size()), SQLITE_TRANSIENT);
}

/// Called by the engine before each new attempt; 0 ends them. The engine's own pauses increase to a tenth of a second,
/// many times the duration of a save. The file would be idle while all wait, and the last to arrive would be the first
/// to continue.
int waitAgain(void* data, int tries) {
    auto& state = *static_cast<CallState*>(data);
    const auto now = CallState::Clock::now();
    if (tries == 0) {
        state.waitingSince = now;
    }
    if (now - state.waitingSince >= state.busy) {
        return 0;
    }
    std::this_thread::sleep_for(kPause);
    whileWaiting();
    return 1;
}

/// The engine ends its statement for any value but 0.
int isOverTime(void* data) { return CallState::Clock::now() > static_cast<CallState*>(data)->deadline ? 1 : 0; }

/// Reading a table's columns, or checking the file, is not a setting.
bool isSetting(int action, const char* name) {
    const bool asks =
        action == SQLITE_PRAGMA && (equalWithoutCase(name, "table_info") || equalWithoutCase(name, "integrity_check"));
    return (action == SQLITE_PRAGMA && !asks) || action == SQLITE_ATTACH || action == SQLITE_DETACH;
}

/// True for a read of rows that the statement does not change: those of a nested select or of a second table.
bool readsOtherRows(CallState& state, int action, const char* table) {
    const bool namesTable =
        action == SQLITE_READ || action == SQLITE_INSERT || action == SQLITE_UPDATE || action == SQLITE_DELETE;
    if (namesTable && state.table.empty()) {
        state.table = table;
    }
    return action == SQLITE_SELECT || (namesTable && state.table != table);
}

/// The actions of a trigger in the store are not those of the statement.
int authorize(void* data, int action, const char* name, const char*, const char*, const char* trigger) {
    auto& state = *static_cast<CallState*>(data);
    const bool isForeignRead = state.isChange && trigger == nullptr && readsOtherRows(state, action, name);
    return isForeignRead || isSetting(action, name) ? SQLITE_DENY : SQLITE_OK;
}

/// A text or a blob. The engine requires that the bytes are read before their number.
Value textValue(sqlite3_stmt* row, int column, int type) {
    const void* bytes = type == SQLITE_BLOB ? sqlite3_column_blob(row, column) : sqlite3_column_text(row, column);
    const auto length = static_cast<std::size_t>(sqlite3_column_bytes(row, column));
    return bytes == nullptr ? std::string() : repairedUtf8({static_cast<const char*>(bytes), length});
}

struct Binder {
    sqlite3_stmt* statement;
    int place;

    int operator()(Null) const { return sqlite3_bind_null(statement, place); }
    int operator()(const std::string& text) const {
        return sqlite3_bind_text64(statement, place, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
    int operator()(std::int64_t number) const { return sqlite3_bind_int64(statement, place, number); }
    int operator()(double number) const { return sqlite3_bind_double(statement, place, number); }
    int operator()(bool flag) const { return sqlite3_bind_int(statement, place, flag ? 1 : 0); }
    int operator()(const DateTime&) const { return SQLITE_MISMATCH; }
    int operator()(const Values&) const { return SQLITE_MISMATCH; }
};

}  // namespace

void SqliteDatabase::Closer::operator()(sqlite3* handle) const noexcept { sqlite3_close_v2(handle); }

SqliteDatabase::SqliteDatabase(const std::string& nativePath, StoreAccess access, const SqliteLimits& limits)
    : limits_(limits),
      state_(std::make_unique<CallState>(CallState{.busy = limits.busy})),
      vfs_(std::make_unique<GuardedVfs>()) {
    try {
        open(nativePath, access);
    } catch (const StoreFailure&) {
        vfs_->refuseForeignJournal();
        throw;
    }
}

SqliteDatabase::~SqliteDatabase() = default;

void SqliteDatabase::open(const std::string& nativePath, StoreAccess access) {
    // Each connection is used by one thread only, so no call has to lock it.
    constexpr int kAlways = SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX;
    const Opening& opening = *std::ranges::find(kOpenings, access, &Opening::access);
    const std::string place = opening.isImmutable ? immutable(nativePath) : nativePath;
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(place.c_str(), &opened, opening.flags | kAlways, vfs_->name());
    handle_.reset(opened);
    refuseUnlessOk(opened, result);
    harden();
    allow(limits_.statement);  // a damaged tree of pages can make the schema endless
    SqliteStatement(*this, kFullDurability).step();
    SqliteStatement(*this, kReadSchema).step();
}

/// Prevents content of the file from making the engine do more than read and write rows.
void SqliteDatabase::harden() const {
    sqlite3* const database = handle();
    refuseUnlessOk(database, sqlite3_busy_handler(database, waitAgain, state_.get()));
    refuseUnlessOk(database, sqlite3_create_function_v2(database, "Left", 2, kLeftTraits, nullptr, left, nullptr,
                                                        nullptr, nullptr));
    for (const auto& [setting, value] :
         {std::pair{SQLITE_DBCONFIG_DEFENSIVE, 1}, {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0}}) {
        refuseUnlessOk(database, sqlite3_db_config(database, setting, value, nullptr));
    }
    sqlite3_limit(database, SQLITE_LIMIT_LENGTH, kLongestValue);
    sqlite3_progress_handler(database, kStepsBetween, isOverTime, state_.get());
}

void SqliteDatabase::refuseSettings() { sqlite3_set_authorizer(handle(), authorize, state_.get()); }

void SqliteDatabase::expectChange(bool isChange) const {
    state_->isChange = isChange;
    state_->table.clear();
}

void SqliteDatabase::allow(std::chrono::milliseconds time) const { state_->deadline = CallState::Clock::now() + time; }

void SqliteDatabase::dropPrograms() {
    refuseUnlessOk(handle(), sqlite3_db_config(handle(), SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr));
    runScript(
        "PRAGMA writable_schema = ON;"
        "DELETE FROM sqlite_schema WHERE type NOT IN ('table', 'index') OR coalesce(rootpage, 0) = 0;"
        "PRAGMA writable_schema = RESET;");
    refuseUnlessOk(handle(), sqlite3_db_config(handle(), SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr));
}

bool SqliteDatabase::inTransaction() const { return sqlite3_get_autocommit(handle()) == 0; }

void SqliteDatabase::rollBack() {
    if (!inTransaction()) {
        return;
    }
    const int result = sqlite3_exec(handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    if (inTransaction()) {
        throw lastFailure(handle(), result);
    }
}

void SqliteDatabase::runScript(const std::string& sql) {
    allow(limits_.check);
    refuseUnlessOk(handle(), sqlite3_exec(handle(), sql.c_str(), nullptr, nullptr, nullptr));
}

void SqliteDatabase::copyTo(const SqliteDatabase& target) const {
    sqlite3_backup* copy = sqlite3_backup_init(target.handle(), "main", handle(), "main");
    if (copy == nullptr) {
        throw lastFailure(target.handle(), sqlite3_errcode(target.handle()));
    }
    const int result = sqlite3_backup_step(copy, -1);
    const int ended = sqlite3_backup_finish(copy);
    refuseUnlessOk(target.handle(), result == SQLITE_DONE ? ended : result);
}

void SqliteStatement::Finalizer::operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }

SqliteStatement::SqliteStatement(const SqliteDatabase& database, const std::string& sql)
    : database_(database.handle()) {
    if (sql.find('\0') != std::string::npos) {
        refuse(kBadCharacter);
    }
    sqlite3_stmt* prepared = nullptr;
    const char* rest = nullptr;
    refuseUnlessOk(database_, sqlite3_prepare_v2(database_, sql.c_str(), -1, &prepared, &rest));
    statement_.reset(prepared);
    if (prepared == nullptr) {
        refuse(kNoStatement);
    }
    if (!trimmedLeft(rest, kAllBlanks).empty()) {
        refuse(kManyStatements);
    }
}

void SqliteStatement::bind(int place, const Value& value) {
    refuseUnlessOk(database_, std::visit(Binder{statement_.get(), place}, value.content()));
}

bool SqliteStatement::step() {
    const int result = sqlite3_step(statement_.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE) {
        throw lastFailure(database_, result);
    }
    return result == SQLITE_ROW;
}

std::int32_t SqliteStatement::run() {
    const std::int64_t before = sqlite3_total_changes64(database_);
    while (step()) {
    }
    // A statement that changes no rows, such as CREATE, does not reset the engine's count of the previous statement.
    if (sqlite3_total_changes64(database_) == before) {
        return 0;
    }
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min<std::int64_t>(sqlite3_changes64(database_), most));
}

bool SqliteStatement::isSelect() const { return columnCount() > 0 && sqlite3_stmt_readonly(statement_.get()) != 0; }

bool SqliteStatement::isChange() const { return columnCount() == 0 && sqlite3_stmt_readonly(statement_.get()) == 0; }

int SqliteStatement::columnCount() const { return sqlite3_column_count(statement_.get()); }

std::string SqliteStatement::columnName(int column) const { return sqlite3_column_name(statement_.get(), column); }

bool SqliteStatement::isFlag(int column) const {
    const char* declared = sqlite3_column_decltype(statement_.get(), column);
    return declared != nullptr && equalWithoutCase(declared, "boolean");
}

Value SqliteStatement::value(int column) const {
    sqlite3_stmt* row = statement_.get();
    switch (const int type = sqlite3_column_type(row, column)) {
        case SQLITE_NULL:
            return {};
        case SQLITE_INTEGER:
            return std::int64_t{sqlite3_column_int64(row, column)};
        case SQLITE_FLOAT:
            return sqlite3_column_double(row, column);
        default:
            return textValue(row, column, type);
    }
}

}  // namespace orv
