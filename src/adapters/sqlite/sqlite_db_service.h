#pragma once

#include <chrono>

#include "platform/machine/file_system.h"
#include "platform/suite/db_service.h"

namespace orv {

/// The store in one SQLite file, shared by the terminals of a small office.
///
/// - A transaction takes the write lock when it begins, so that two terminals never wait for each other in a round; a
///   store that another one holds is waited for, then the call fails.
/// - `DbOpenRs` takes statements that yield rows and change nothing, `DbExecute` those that change the store, each one
///   statement a call. Neither changes settings of the engine.
/// - `DbError` keeps the last failure until the next one or `DbReset`.
class SqliteDbService : public DbService {
public:
    static constexpr std::chrono::milliseconds kBusyWait{5000};

    /// `files` gives the place of the file on this machine, and must outlive the service.
    explicit SqliteDbService(const FileSystem& files, std::chrono::milliseconds busyWait = kBusyWait)
        : files_(files), busyWait_(busyWait) {}

    FailureRecord DbError() const override { return failure_; }
    void DbReset() override { failure_ = {}; }
    /// Closes what the connection held. A failure leaves it closed.
    void DbOpen(ConnectionPtr& connection, const std::string& path, bool& ok) override;
    /// A failure leaves the recordset closed.
    void DbOpenRs(ConnectionPtr& connection, RecordsetPtr& recordset, const std::string& sql, bool& ok) override;
    void DbExecute(ConnectionPtr& connection, const std::string& sql, std::int32_t& rows) override;
    void DbClose(ConnectionPtr& connection, bool& ok) override;
    void DbCloseRs(RecordsetPtr& recordset, bool& ok) override;
    void DbBeginTrans(ConnectionPtr& connection, bool& ok) override;
    void DbRollback(ConnectionPtr& connection, bool& ok) override;
    /// Fails where no transaction is open, which is so too when the engine has ended it: its changes are gone then.
    void DbCommit(ConnectionPtr& connection, bool& ok) override;

private:
    template <typename Action>
    bool guarded(Action action);

    const FileSystem& files_;
    std::chrono::milliseconds busyWait_;
    FailureRecord failure_;
};

}  // namespace orv
