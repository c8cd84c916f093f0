#pragma once

#include <string>

namespace orv {

/// Why a closed service failed last: a text for the operator and a code for the log. Both empty: no failure.
struct FailureRecord {
    std::string text;
    std::string code;

    friend bool operator==(const FailureRecord&, const FailureRecord&) = default;
};

}  // namespace orv
