#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/suite/failure_record.h"
#include "platform/value.h"

namespace orv {

/// An open database. What is in it is the service's business; destroying it closes it and rolls back.
class Connection {
public:
    Connection() = default;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    virtual ~Connection() = default;
};

/// The rows of one select, in order. A reading that has no row under it, or an unknown name, raises a RunTimeError.
class Recordset {
public:
    Recordset() = default;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;
    virtual ~Recordset() = default;

    /// The exact number of rows.
    virtual std::int32_t RecordCount() const = 0;
    /// True behind the last row, and at once where there are no rows.
    virtual bool Eof() const = 0;
    virtual void MoveFirst() = 0;
    virtual void MoveNext() = 0;
    virtual void MoveLast() = 0;
    /// The field of the row under the cursor. Names without regard to case; "A.USER_ID" names the first of two
    /// columns of one name in a join. A database null stays null.
    virtual Value Fields(const std::string& name) const = 0;
    /// The field by its place in the select list, from 0.
    virtual Value Fields(int index) const = 0;
};

using ConnectionPtr = std::unique_ptr<Connection>;
using RecordsetPtr = std::unique_ptr<Recordset>;

/// The suite's gateway to a database file. Operations report by `ok` (or by negative rows) and never raise;
/// `DbError` tells why the last one failed.
class DbService {
public:
    DbService() = default;
    DbService(const DbService&) = delete;
    DbService& operator=(const DbService&) = delete;
    virtual ~DbService() = default;

    virtual FailureRecord DbError() const = 0;
    /// Forgets the last failure.
    virtual void DbReset() = 0;
    /// Opens the file at `path` (a path of the system). Creates nothing and alters nothing.
    virtual void DbOpen(ConnectionPtr& connection, const std::string& path, bool& ok) = 0;
    virtual void DbOpenRs(ConnectionPtr& connection, RecordsetPtr& recordset, const std::string& sql, bool& ok) = 0;
    /// `rows`: the rows touched; negative on failure.
    virtual void DbExecute(ConnectionPtr& connection, const std::string& sql, std::int32_t& rows) = 0;
    /// Ok also where nothing is open.
    virtual void DbClose(ConnectionPtr& connection, bool& ok) = 0;
    virtual void DbCloseRs(RecordsetPtr& recordset, bool& ok) = 0;
    virtual void DbBeginTrans(ConnectionPtr& connection, bool& ok) = 0;
    /// Ok also where no transaction is open.
    virtual void DbRollback(ConnectionPtr& connection, bool& ok) = 0;
    virtual void DbCommit(ConnectionPtr& connection, bool& ok) = 0;
};

}  // namespace orv
