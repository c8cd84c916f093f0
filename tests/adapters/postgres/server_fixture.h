#pragma once

#include <chrono>

#include "adapters/postgres/postgres_store.h"
#include "adapters/store/store_service.h"
#include "private_server.h"
#include "support/store_files.h"

namespace orv {

/// Long enough for any stalled machine.
inline constexpr ServerLimits kLongLimits = {
    .patience = {.connect = std::chrono::minutes(3), .answer = std::chrono::minutes(3)},
    .lock = std::chrono::minutes(3),
    .statement = std::chrono::minutes(2),
    .idle = std::chrono::minutes(3)};

/// Returns the long limits except one, which the test will exceed.
template <typename Change>
ServerLimits butFor(Change change) {
    ServerLimits limits = kLongLimits;
    change(limits);
    return limits;
}

inline PrivateServer& sharedServer() {
    static PrivateServer server;
    return server;
}

}  // namespace orv
