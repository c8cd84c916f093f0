#pragma once

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

}  // namespace orv
