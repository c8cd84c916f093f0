#pragma once

#include <string>

#include "platform/suite/failure_record.h"

namespace orv {

/// Fills the pair and returns false, so that a body ends with it.
[[nodiscard]] bool fail(std::string text, std::string code);
[[nodiscard]] bool failFrom(const FailureRecord& record);

/// Blanks the pair: its failure has been reported.
void clearPair();

}  // namespace orv
