#include "adapters/store/store_failure.h"

#include <utility>

#include "adapters/words/printable.h"
#include "platform/suite/missing_column.h"

namespace orv {

StoreFailure::StoreFailure(Failure number, std::string code, std::string description)
    : RunTimeError(number, std::move(description)), code_(std::move(code)) {}

StoreFailure missingColumnFailure(std::string_view words) {
    const FailureRecord failure = missingColumn(printable(words));
    return {Failure::InvalidCall, failure.code, failure.text};
}

std::string withDetail(std::string_view text, std::string_view detail) {
    std::string whole(text);
    if (!detail.empty()) {
        whole.append("（").append(printable(detail)).append("）");
    }
    return whole;
}

void refuse(const StoreRefusal& refusal, std::string_view detail) {
    throw StoreFailure(refusal.number, std::string(refusal.code), withDetail(refusal.text, detail));
}

}  // namespace orv
