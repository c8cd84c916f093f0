#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/suite/db_service.h"

namespace orv {

enum class StoreAccess : std::uint8_t { ReadWrite, ReadOnly };

/// An open store, whatever engine is behind it. Every failure is a RunTimeError, mostly a StoreFailure; a failed
/// statement leaves an open transaction as it was before it.
class StoreConnection : public Connection {
public:
    /// The rows of one statement that yields rows and changes nothing. `parameters` stand for `$1`, `$2` and so on.
    virtual RecordsetPtr select(const std::string& sql, const Values& parameters) = 0;
    /// Runs one statement that changes the store and yields no rows. The rows that it inserted, deleted or matched.
    virtual std::int32_t change(const std::string& sql) = 0;

    virtual bool inTransaction() const = 0;
    virtual void begin() = 0;
    virtual void commit() = 0;
    /// Ends the transaction, if one is open; a failure only where it is still open then.
    virtual void rollBack() = 0;

    /// The columns of the table's primary key, in the key's order.
    virtual std::vector<std::string> keyColumns(const std::string& table) = 0;
};

/// Opens the store that a file of this machine is or names.
using StoreOpener = std::function<std::unique_ptr<StoreConnection>(const std::string& nativePath, StoreAccess access)>;

}  // namespace orv
