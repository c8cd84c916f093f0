#include "logging/error_pair.h"

#include <utility>

#include "core/record/globals.h"

namespace orv {

bool fail(std::string text, std::string code) {
    setPair({std::move(text), std::move(code)});
    return false;
}

bool failFrom(const FailureRecord& record) { return fail(record.text, record.code); }

void setPair(FailureRecord record) {
    gErrMsg = std::move(record.text);
    gErrCode = std::move(record.code);
}

void clearPair() { setPair({}); }

PairKeeper::PairKeeper() : pair_{gErrMsg, gErrCode} {}
PairKeeper::~PairKeeper() { setPair(std::move(pair_)); }

}  // namespace orv
