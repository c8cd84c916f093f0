#pragma once

#include <string>

#include "platform/scope.h"
#include "platform/suite/failure_record.h"

namespace orv {

/// Fills the pair and returns false, so that a function body can end with it.
[[nodiscard]] bool fail(std::string text, std::string code);
[[nodiscard]] bool failFrom(const FailureRecord& record);

/// Fills the pair where the work goes on although something failed.
void setPair(FailureRecord record);
/// Clears the pair after its failure was reported.
void clearPair();

/// Keeps the pair over a clean-up: at the end of the scope it is again as it was at the start.
class [[nodiscard]] PairKeeper : NonCopyable {
public:
    PairKeeper();
    ~PairKeeper();

private:
    FailureRecord pair_;
};

}  // namespace orv
