#include "traced_store.h"

#include <utility>

namespace bench {

std::vector<std::string> TracedStore::take() {
    sessionOf_.clear();
    return std::exchange(sessions_, {});
}

void TracedStore::DbOpen(orv::ConnectionPtr& connection, const std::string& path, bool& ok) {
    store_.DbOpen(connection, path, ok);
    if (ok) {
        sessionOf_[connection.get()] = sessions_.size();
        sessions_.emplace_back();
    }
}

void TracedStore::DbOpenRs(orv::ConnectionPtr& connection, orv::RecordsetPtr& recordset, const std::string& sql,
                           bool& ok) {
    note(connection, sql);
    store_.DbOpenRs(connection, recordset, sql, ok);
}

void TracedStore::DbExecute(orv::ConnectionPtr& connection, const std::string& sql, std::int32_t& rows) {
    note(connection, sql);
    store_.DbExecute(connection, sql, rows);
}

void TracedStore::DbBeginTrans(orv::ConnectionPtr& connection, bool& ok) {
    note(connection, "BEGIN");
    store_.DbBeginTrans(connection, ok);
}

void TracedStore::DbRollback(orv::ConnectionPtr& connection, bool& ok) {
    note(connection, "ROLLBACK");
    store_.DbRollback(connection, ok);
}

void TracedStore::DbCommit(orv::ConnectionPtr& connection, bool& ok) {
    note(connection, "COMMIT");
    store_.DbCommit(connection, ok);
}

void TracedStore::note(const orv::ConnectionPtr& connection, const std::string& statement) {
    const auto session = sessionOf_.find(connection.get());
    if (session != sessionOf_.end()) {
        sessions_[session->second] += statement + ";\n";
    }
}

}  // namespace bench
