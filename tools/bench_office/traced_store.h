#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/suite/db_service.h"

namespace bench {

/// Forwards every call and records the statements of each connection.
class TracedStore : public orv::DbService {
public:
    explicit TracedStore(orv::DbService& store) : store_(store) {}

    /// Returns a text for each connection opened since the last call, in order, with one statement per line.
    std::vector<std::string> take();

    orv::FailureRecord DbError() const override { return store_.DbError(); }
    void DbReset() override { store_.DbReset(); }
    void DbOpen(orv::ConnectionPtr& connection, const std::string& path, bool& ok) override;
    void DbOpenRs(orv::ConnectionPtr& connection, orv::RecordsetPtr& recordset, const std::string& sql,
                  bool& ok) override;
    void DbExecute(orv::ConnectionPtr& connection, const std::string& sql, std::int32_t& rows) override;
    void DbClose(orv::ConnectionPtr& connection, bool& ok) override { store_.DbClose(connection, ok); }
    void DbCloseRs(orv::RecordsetPtr& recordset, bool& ok) override { store_.DbCloseRs(recordset, ok); }
    void DbBeginTrans(orv::ConnectionPtr& connection, bool& ok) override;
    void DbRollback(orv::ConnectionPtr& connection, bool& ok) override;
    void DbCommit(orv::ConnectionPtr& connection, bool& ok) override;

private:
    void note(const orv::ConnectionPtr& connection, const std::string& statement);

    orv::DbService& store_;
    std::vector<std::string> sessions_;
    std::map<const orv::Connection*, std::size_t> sessionOf_;
};

}  // namespace bench
