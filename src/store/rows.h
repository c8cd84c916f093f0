#pragma once

#include <cstdint>
#include <string>

#include "platform/scope.h"
#include "platform/suite/db_service.h"

namespace orv {

/// The rows of one select on the open store. The destructor closes the recordset. Callers that need the result of
/// closing call `close`.
class Rows : NonCopyable {
public:
    explicit Rows(const std::string& sql);
    ~Rows();

    /// False if the select failed; `DbError` then says why.
    [[nodiscard]] bool ok() const { return ok_; }
    Recordset& operator*() const;
    Recordset* operator->() const { return &**this; }
    /// On false `DbError` says why.
    [[nodiscard]] bool close();

private:
    bool ok_ = false;
    bool closed_ = false;
};

/// Modes of `PF_GetRowCountZero`. Each selects a table and a condition.
inline constexpr std::int16_t kCountInfo = 10;
inline constexpr std::int16_t kCountAdd = 11;
inline constexpr std::int16_t kCountDate = 12;

/// True if the open store has no row of `userId` in the table of `mode`. False also if the query failed. Callers then
/// continue as if the row existed, and the pair holds the failure.
[[nodiscard]] bool PF_GetRowCountZero(const std::string& key2, const std::string& userId, std::int16_t mode,
                                      const std::string& key3);

/// Queries with the modes 10 to 12.
[[nodiscard]] inline bool isRowMissing(const std::string& userId, std::int16_t mode) {
    return PF_GetRowCountZero("", userId, mode, "");
}

}  // namespace orv
