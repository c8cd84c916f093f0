#pragma once

#include <utility>

#include "adapters/store/store_connection.h"
#include "platform/machine/file_system.h"

namespace orv {

/// The suite's interface to a store of any kind.
///
/// - `DbOpenRs` accepts statements that return rows and change nothing, `DbExecute` those that change the store.
///   Each call runs one statement.
/// - `DbError` keeps the last failure until the next one or `DbReset`.
class StoreService : public DbService {
public:
    /// `files` locates the file on this machine, and must outlive the service.
    StoreService(const FileSystem& files, StoreOpener opener) : files_(files), opener_(std::move(opener)) {}

    FailureRecord DbError() const override { return failure_; }
    void DbReset() override { failure_ = {}; }
    /// Closes the objects of the connection. They are closed even after a failure.
    void DbOpen(ConnectionPtr& connection, const std::string& path, bool& ok) override;
    /// On failure the recordset is closed.
    void DbOpenRs(ConnectionPtr& connection, RecordsetPtr& recordset, const std::string& sql, bool& ok) override;
    void DbExecute(ConnectionPtr& connection, const std::string& sql, std::int32_t& rows) override;
    void DbClose(ConnectionPtr& connection, bool& ok) override;
    void DbCloseRs(RecordsetPtr& recordset, bool& ok) override;
    void DbBeginTrans(ConnectionPtr& connection, bool& ok) override;
    void DbRollback(ConnectionPtr& connection, bool& ok) override;
    /// Fails if no transaction is open. That is also so if the engine has ended it; its changes are then lost.
    void DbCommit(ConnectionPtr& connection, bool& ok) override;

private:
    template <typename Action>
    bool guarded(Action action);

    const FileSystem& files_;
    StoreOpener opener_;
    FailureRecord failure_;
};

}  // namespace orv
