#include "store/store_session.h"

#include "config/settings.h"
#include "core/record/globals.h"
#include "logging/trap.h"
#include "platform/services.h"

namespace orv {

StoreSession::~StoreSession() {
    if (open_) {
        bool ignored = false;
        services().db->DbClose(gConn, ignored);
    }
}

bool StoreSession::openFresh() {
    bool ignored = false;
    services().db->DbClose(gConn, ignored);
    return open();
}

bool StoreSession::open() {
    DbService& db = *services().db;
    db.DbReset();
    open_ = true;
    bool ok = false;
    db.DbOpen(gConn, com().MdbOrvEstateDB(), ok);
    return ok || failFrom(db.DbError());
}

bool StoreSession::close() {
    open_ = false;
    bool ok = false;
    services().db->DbClose(gConn, ok);
    return ok || failFrom(services().db->DbError());
}

Transaction::~Transaction() {
    if (open_) {
        static_cast<void>(rollback());  // the failure that left it open has been reported
    }
}

bool Transaction::begin() {
    services().db->DbBeginTrans(gConn, open_);
    return open_;
}

bool Transaction::commit() {
    bool ok = false;
    services().db->DbCommit(gConn, ok);
    open_ = !ok;
    return ok;
}

bool Transaction::rollback() {
    open_ = false;
    bool ok = false;
    services().db->DbRollback(gConn, ok);
    return ok;
}

std::optional<FailureRecord> changeOnce(const std::string& sql) {
    Transaction transaction;
    std::int32_t rows = -1;
    if (transaction.begin()) {
        services().db->DbExecute(gConn, sql, rows);
    }
    if (rows >= 0 && transaction.commit()) {
        return std::nullopt;
    }
    return services().db->DbError();
}

}  // namespace orv
