#include "store/transaction.h"

#include "core/record/globals.h"
#include "platform/services.h"

namespace orv {

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
