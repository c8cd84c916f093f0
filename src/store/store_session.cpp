#include "store/store_session.h"

#include "config/settings.h"
#include "core/record/globals.h"
#include "logging/error_pair.h"
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

}  // namespace orv
