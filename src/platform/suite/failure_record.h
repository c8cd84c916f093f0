#pragma once

#include <string>

namespace orv {

/// The last failure of a closed service: a text for the operator and a code for the log. Both are empty without a
/// failure.
struct FailureRecord {
    std::string text;
    std::string code;

    friend bool operator==(const FailureRecord&, const FailureRecord&) = default;
};

}  // namespace orv
