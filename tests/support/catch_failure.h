#pragma once

#include "platform/run_time_error.h"

namespace orv {

/// Returns the number of the run-time failure that `body` throws, or 0.
template <class Body>
int catchFailure(const Body& body) {
    try {
        body();
    } catch (const RunTimeError& failure) {
        return failure.description().empty() ? -1 : failure.number();
    }
    return 0;
}

}  // namespace orv
