#include "adapters/sqlite/sqlite_db_service.h"

#include <new>

#include "adapters/sqlite/left_rewriter.h"
#include "adapters/sqlite/sqlite_database.h"
#include "adapters/sqlite/sqlite_failure.h"
#include "adapters/sqlite/sqlite_recordset.h"
#include "adapters/sqlite/store_file_check.h"

namespace orv {
namespace {

struct SqliteConnection : Connection {
    SqliteConnection(const std::string& nativePath, std::chrono::milliseconds busyWait)
        : database(nativePath, StoreAccess::ReadWrite, busyWait) {
        database.refuseSettings();
    }

    SqliteDatabase database;
};

SqliteDatabase& opened(const ConnectionPtr& connection) {
    auto* own = dynamic_cast<SqliteConnection*>(connection.get());
    if (own == nullptr) {
        throw StoreFailure(Failure::ObjectNotSet, "DBCONN01", "データベースが開かれていません。");
    }
    return own->database;
}

void control(const SqliteDatabase& database, const char* sql) { SqliteStatement(database, sql).step(); }

}  // namespace

/// Runs `action`; a failure of whatever kind becomes the failure record.
template <typename Action>
bool SqliteDbService::guarded(Action action) {
    try {
        action();
        return true;
    } catch (const StoreFailure& failure) {
        failure_ = {failure.description(), failure.code()};
    } catch (const RunTimeError& failure) {
        failure_ = {failure.description(), std::to_string(failure.number())};
    } catch (const std::bad_alloc&) {
        const RunTimeError failure(Failure::OutOfMemory);
        failure_ = {failure.description(), std::to_string(failure.number())};
    }
    return false;
}

void SqliteDbService::DbOpen(ConnectionPtr& connection, const std::string& path, bool& ok) {
    ok = guarded([&] {
        connection.reset();
        const std::string native = files_.nativePath(path);
        checkStoreFile(native);
        connection = std::make_unique<SqliteConnection>(native, busyWait_);
    });
}

void SqliteDbService::DbOpenRs(ConnectionPtr& connection, RecordsetPtr& recordset, const std::string& sql, bool& ok) {
    ok = guarded([&] {
        recordset.reset();
        SqliteStatement statement(opened(connection), quoteLeftCalls(sql));
        if (!statement.isSelect()) {
            throw StoreFailure(Failure::InvalidCall, "DBSQL04", "読み出しの命令ではありません。");
        }
        recordset = std::make_unique<SqliteRecordset>(statement);
    });
}

void SqliteDbService::DbExecute(ConnectionPtr& connection, const std::string& sql, std::int32_t& rows) {
    rows = -1;
    static_cast<void>(guarded([&] {
        SqliteStatement statement(opened(connection), quoteLeftCalls(sql));
        if (!statement.isChange()) {
            throw StoreFailure(Failure::InvalidCall, "DBSQL05", "更新の命令ではありません。");
        }
        rows = statement.run();
    }));
}

void SqliteDbService::DbClose(ConnectionPtr& connection, bool& ok) {
    connection.reset();
    ok = true;
}

void SqliteDbService::DbCloseRs(RecordsetPtr& recordset, bool& ok) {
    recordset.reset();
    ok = true;
}

void SqliteDbService::DbBeginTrans(ConnectionPtr& connection, bool& ok) {
    ok = guarded([&] {
        const SqliteDatabase& database = opened(connection);
        if (database.inTransaction()) {
            throw StoreFailure(Failure::InvalidCall, "DBTRAN01", "トランザクションがすでに始まっています。");
        }
        control(database, "BEGIN IMMEDIATE");
    });
}

void SqliteDbService::DbRollback(ConnectionPtr& connection, bool& ok) {
    ok = connection == nullptr || guarded([&] { opened(connection).rollBack(); });
}

void SqliteDbService::DbCommit(ConnectionPtr& connection, bool& ok) {
    ok = guarded([&] {
        const SqliteDatabase& database = opened(connection);
        if (!database.inTransaction()) {
            throw StoreFailure(Failure::InvalidCall, "DBTRAN02",
                               "トランザクションが始まっていないか、エラーのため取り消されています。");
        }
        control(database, "COMMIT");
    });
}

}  // namespace orv
