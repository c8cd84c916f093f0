#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/suite/db_service.h"
#include "platform/value.h"

namespace orv {

/// `Create` makes a new embedded store. `OwnFile` and `OwnCopy` are for such a store that no other program knows: the
/// first writes it, the second reads it without locks and journals. None of the three follows a link.
enum class StoreAccess : std::uint8_t { ReadWrite, ReadOnly, Create, OwnFile, OwnCopy };

/// An object in a store other than a row: a table, an index, a view, a trigger or any other kind of the engine.
struct StoreObject {
    std::string kind;
    std::string name;
    std::string definition;  // the statement that made a table, if the engine keeps it
};

/// Returns the objects found by a select of kind, name and definition.
inline std::vector<StoreObject> objectsIn(const RecordsetPtr& rows) {
    std::vector<StoreObject> all;
    for (; !rows->Eof(); rows->MoveNext()) {
        all.push_back({toText(rows->Fields(0)), toText(rows->Fields(1)), toText(rows->Fields(2))});
    }
    return all;
}

/// An open store of any engine. Every failure is a RunTimeError, mostly a StoreFailure. A failed statement leaves an
/// open transaction unchanged.
class StoreConnection : public Connection {
public:
    /// Runs one statement that returns rows and changes nothing. `parameters` replace `$1`, `$2` and so on.
    virtual RecordsetPtr select(const std::string& sql, const Values& parameters) = 0;
    /// Runs one statement that changes the store, and returns the number of rows inserted, deleted or matched.
    virtual std::int32_t change(const std::string& sql, const Values& parameters) = 0;

    virtual bool inTransaction() const = 0;
    virtual void begin() = 0;
    /// Begins a read-only transaction that sees the present state of the store throughout.
    virtual void beginSnapshot() = 0;
    virtual void commit() = 0;
    /// Ends the transaction, if one is open. Throws only if it is still open afterwards.
    virtual void rollBack() = 0;

    /// Returns the columns of the table in order, or none for an unknown table.
    virtual std::vector<std::string> columns(const std::string& table) = 0;
    /// Returns the columns of the table's primary key, in the key's order.
    virtual std::vector<std::string> keyColumns(const std::string& table) = 0;

    /// Returns the objects that other programs and users could have created, including tables. Excludes the engine's
    /// own objects and those that belong to a table.
    virtual std::vector<StoreObject> objects() = 0;

    /// Runs several statements of any kind, for maintenance. The program itself does not use it.
    virtual void runScript(const std::string& sql) = 0;
    /// Returns the faults that the engine finds in its data, in its own words, or none if it has no such check.
    virtual std::vector<std::string> damages() = 0;
};

/// Opens the store in a file of this machine, or the one that the file names.
using StoreOpener = std::function<std::unique_ptr<StoreConnection>(const std::string& nativePath, StoreAccess access)>;

}  // namespace orv
