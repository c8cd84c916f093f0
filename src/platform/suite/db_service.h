#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/scope.h"
#include "platform/suite/failure_record.h"
#include "platform/value.h"

namespace orv {

/// An open database with contents private to the service. Its destructor rolls back and closes.
class Connection : public Interface {
public:
};

/// The rows of one select, in order. Reading without a current row, or by an unknown name, throws a RunTimeError.
class Recordset : public Interface {
public:
    /// Returns the exact number of rows.
    virtual std::int32_t RecordCount() const = 0;
    /// True after the last row, and at once if there are no rows.
    virtual bool Eof() const = 0;
    virtual void MoveFirst() = 0;
    virtual void MoveNext() = 0;
    virtual void MoveLast() = 0;
    /// True if the rows have a field of that name.
    virtual bool Has(const std::string& name) const = 0;
    /// Returns a field of the current row by case-insensitive name. "A.USER_ID" names the first of two columns with the
    /// same name in a join. A database null stays null.
    virtual Value Fields(const std::string& name) const = 0;
    /// Returns a field by its index in the select list, from 0.
    virtual Value Fields(int index) const = 0;
};

using ConnectionPtr = std::unique_ptr<Connection>;
using RecordsetPtr = std::unique_ptr<Recordset>;

/// The suite's interface to a database file. Operations report through `ok` (or negative rows) and never throw.
/// `DbError` says why the last one failed.
class DbService : public Interface {
public:
    virtual FailureRecord DbError() const = 0;
    /// Clears the last failure.
    virtual void DbReset() = 0;
    /// Opens the file at `path`, a path of the system. Creates and changes nothing.
    virtual void DbOpen(ConnectionPtr& connection, const std::string& path, bool& ok) = 0;
    virtual void DbOpenRs(ConnectionPtr& connection, RecordsetPtr& recordset, const std::string& sql, bool& ok) = 0;
    /// `rows` receives the number of rows affected, negative on failure.
    virtual void DbExecute(ConnectionPtr& connection, const std::string& sql, std::int32_t& rows) = 0;
    /// Also succeeds if nothing is open.
    virtual void DbClose(ConnectionPtr& connection, bool& ok) = 0;
    virtual void DbCloseRs(RecordsetPtr& recordset, bool& ok) = 0;
    virtual void DbBeginTrans(ConnectionPtr& connection, bool& ok) = 0;
    /// Also succeeds if no transaction is open.
    virtual void DbRollback(ConnectionPtr& connection, bool& ok) = 0;
    virtual void DbCommit(ConnectionPtr& connection, bool& ok) = 0;
};

}  // namespace orv
