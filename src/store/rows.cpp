#include "store/rows.h"

#include "core/record/globals.h"
#include "platform/run_time_error.h"
#include "platform/services.h"

namespace orv {

Rows::Rows(const std::string& sql) { services().db->DbOpenRs(gConn, gRs, sql, ok_); }

Rows::~Rows() {
    if (!closed_) {
        static_cast<void>(close());  // a destructor cannot report a failed close
    }
}

Recordset& Rows::operator*() const {
    if (!gRs) {
        throw RunTimeError(Failure::ObjectNotSet);
    }
    return *gRs;
}

bool Rows::close() {
    closed_ = true;
    bool ok = false;
    services().db->DbCloseRs(gRs, ok);
    return ok;
}

}  // namespace orv
