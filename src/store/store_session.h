#pragma once

#include <optional>
#include <string>

#include "platform/scope.h"
#include "platform/suite/failure_record.h"

namespace orv {

/// The store, open during one event. The destructor always closes it.
class StoreSession : NonCopyable {
public:
    ~StoreSession();

    /// Closes an open store and opens it again. On false the pair holds the failure.
    [[nodiscard]] bool openFresh();
    /// The same for an event during which no store is open yet.
    [[nodiscard]] bool open();
    /// On false the pair holds the failure.
    [[nodiscard]] bool close();

private:
    bool open_ = false;
};

/// A transaction on the open store. The destructor rolls back unless it was committed.
class Transaction : NonCopyable {
public:
    ~Transaction();

    // On false `DbError` says why.
    [[nodiscard]] bool begin();
    [[nodiscard]] bool commit();
    [[nodiscard]] bool rollback();

private:
    bool open_ = false;
};

/// Runs one statement in its own transaction, with any number of affected rows. Returns nothing after a commit,
/// otherwise the store's failure. A failed rollback does not replace that failure.
[[nodiscard]] std::optional<FailureRecord> changeOnce(const std::string& sql);

}  // namespace orv
