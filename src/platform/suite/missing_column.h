#pragma once

#include <string>
#include <string_view>

#include "platform/suite/failure_record.h"

namespace orv {

/// Returns the failure of a store that an older version of the program created. `column` is the name of a column that
/// it does not have, or the engine's text about it.
inline FailureRecord missingColumn(std::string_view column) {
    return {"この版のプログラムで使う列（" + std::string(column) +
                "）が、データベースにありません。管理者に「orv_store upgrade」の実行を依頼してください。",
            "DBCOL01"};
}

}  // namespace orv
