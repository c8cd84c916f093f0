#pragma once

#include <optional>
#include <string>

#include "platform/suite/failure_record.h"

namespace orv {

/// A transaction on the open store. One that is destroyed open is rolled back.
class Transaction {
public:
    Transaction() = default;
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction();

    // False of each: `DbError` tells why.
    [[nodiscard]] bool begin();
    [[nodiscard]] bool commit();
    [[nodiscard]] bool rollback();

private:
    bool open_ = false;
};

/// Runs one statement in a transaction of its own, whatever number of rows it touches. Empty when it has been
/// committed, else the store's failure; a failure of the rollback that follows does not replace it.
[[nodiscard]] std::optional<FailureRecord> changeOnce(const std::string& sql);

}  // namespace orv
