#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/suite/db_service.h"

namespace orv {

/// `Create` is for who makes new embedded stores, `OwnCopy` for one that was made so and that nobody else knows: it is
/// read without locks and journals.
enum class StoreAccess : std::uint8_t { ReadWrite, ReadOnly, Create, OwnCopy };

/// Something in a store that is no row: a table, an index, a view, a trigger and whatever else the engine knows.
struct StoreObject {
    std::string kind;
    std::string name;
};

/// The objects that a select of kind and name has found.
std::vector<StoreObject> objectsIn(const RecordsetPtr& rows);

/// An open store, whatever engine is behind it. Every failure is a RunTimeError, mostly a StoreFailure; a failed
/// statement leaves an open transaction as it was before it.
class StoreConnection : public Connection {
public:
    /// The rows of one statement that yields rows and changes nothing. `parameters` stand for `$1`, `$2` and so on.
    virtual RecordsetPtr select(const std::string& sql, const Values& parameters) = 0;
    /// Runs one statement that changes the store and yields no rows. The rows that it inserted, deleted or matched.
    virtual std::int32_t change(const std::string& sql, const Values& parameters) = 0;

    virtual bool inTransaction() const = 0;
    virtual void begin() = 0;
    /// Begins a transaction that only reads, and sees the store all the time as it is now.
    virtual void beginSnapshot() = 0;
    virtual void commit() = 0;
    /// Ends the transaction, if one is open; a failure only where it is still open then.
    virtual void rollBack() = 0;

    /// The columns of the table, in their order; none where there is no such table.
    virtual std::vector<std::string> columns(const std::string& table) = 0;
    /// The columns of the table's primary key, in the key's order.
    virtual std::vector<std::string> keyColumns(const std::string& table) = 0;

    /// What other programs and people could have put into the store, tables too; nothing that the engine keeps for
    /// itself or for a table.
    virtual std::vector<StoreObject> objects() = 0;

    /// Runs statements of whatever kind, many at once, for who keeps the store; the program itself has no use for it.
    virtual void runScript(const std::string& sql) = 0;
    /// What the engine finds wrong in what it has stored, in its own words; nothing where it has no such check.
    virtual std::vector<std::string> damages() = 0;
};

/// Opens the store that a file of this machine is or names.
using StoreOpener = std::function<std::unique_ptr<StoreConnection>(const std::string& nativePath, StoreAccess access)>;

}  // namespace orv
