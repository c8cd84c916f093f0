#pragma once

#include <string>

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

/// One statement in a transaction of its own; how many rows it touches does not matter. False: `DbError` tells why.
[[nodiscard]] bool changeOnce(const std::string& sql);

}  // namespace orv
