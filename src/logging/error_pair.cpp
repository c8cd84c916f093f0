#include "logging/error_pair.h"

#include <utility>

#include "core/record/globals.h"

namespace orv {

bool fail(std::string text, std::string code) {
    gErrMsg = std::move(text);
    gErrCode = std::move(code);
    return false;
}

bool failFrom(const FailureRecord& record) { return fail(record.text, record.code); }

void clearPair() {
    gErrMsg.clear();
    gErrCode.clear();
}

}  // namespace orv
