#include "adapters/store/store_service.h"

#include <new>

#include "adapters/store/store_failure.h"

namespace orv {
namespace {

StoreConnection& requireOpen(const ConnectionPtr& connection) {
    auto* own = dynamic_cast<StoreConnection*>(connection.get());
    if (own == nullptr) {
        refuse(kNotOpen);
    }
    return *own;
}

}  // namespace

/// Runs `action` and converts any failure to the failure record.
template <typename Action>
bool StoreService::guarded(Action action) {
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

void StoreService::DbOpen(ConnectionPtr& connection, const std::string& path, bool& ok) {
    ok = guarded([&] {
        connection.reset();
        connection = opener_(files_.nativePath(path), StoreAccess::ReadWrite);
    });
}

void StoreService::DbOpenRs(ConnectionPtr& connection, RecordsetPtr& recordset, const std::string& sql, bool& ok) {
    ok = guarded([&] {
        recordset.reset();
        recordset = requireOpen(connection).select(sql, {});
    });
}

void StoreService::DbExecute(ConnectionPtr& connection, const std::string& sql, std::int32_t& rows) {
    rows = -1;
    static_cast<void>(guarded([&] { rows = requireOpen(connection).change(sql, {}); }));
}

void StoreService::DbClose(ConnectionPtr& connection, bool& ok) {
    connection.reset();
    ok = true;
}

void StoreService::DbCloseRs(RecordsetPtr& recordset, bool& ok) {
    recordset.reset();
    ok = true;
}

void StoreService::DbBeginTrans(ConnectionPtr& connection, bool& ok) {
    ok = guarded([&] {
        StoreConnection& store = requireOpen(connection);
        if (store.inTransaction()) {
            refuse(kTransactionOpen);
        }
        store.begin();
    });
}

void StoreService::DbRollback(ConnectionPtr& connection, bool& ok) {
    ok = connection == nullptr || guarded([&] { requireOpen(connection).rollBack(); });
}

void StoreService::DbCommit(ConnectionPtr& connection, bool& ok) {
    ok = guarded([&] {
        StoreConnection& store = requireOpen(connection);
        if (!store.inTransaction()) {
            refuse(kNoTransaction);
        }
        store.commit();
    });
}

}  // namespace orv
