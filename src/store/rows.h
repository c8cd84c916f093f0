#pragma once

#include <string>

#include "platform/suite/db_service.h"

namespace orv {

/// The rows of one select on the open store. Destroying it closes the recordset; callers that must know how the closing
/// went call `close` themselves.
class Rows {
public:
    explicit Rows(const std::string& sql);
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;
    ~Rows();

    /// False: the select failed, `DbError` tells why.
    [[nodiscard]] bool ok() const { return ok_; }
    Recordset& operator*() const;
    Recordset* operator->() const { return &**this; }
    /// False: `DbError` tells why.
    [[nodiscard]] bool close();

private:
    bool ok_ = false;
    bool closed_ = false;
};

}  // namespace orv
