#pragma once

#include <string>

#include "platform/suite/failure_record.h"

namespace orv {

/// Fills the pair and returns false, so that a function body can end with it.
[[nodiscard]] bool fail(std::string text, std::string code);
[[nodiscard]] bool failFrom(const FailureRecord& record);

/// Clears the pair after its failure was reported.
void clearPair();

}  // namespace orv
