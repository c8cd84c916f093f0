#pragma once

#include <chrono>

#include "adapters/postgres/postgres_store.h"
#include "adapters/store/store_service.h"
#include "private_server.h"
#include "support/store_files.h"

namespace orv {

/// No stalled machine comes near these.
inline constexpr ServerLimits kLongLimits = {
    .patience = {.connect = std::chrono::minutes(3), .answer = std::chrono::minutes(3)},
    .lock = std::chrono::minutes(3),
    .statement = std::chrono::minutes(2),
    .idle = std::chrono::minutes(3)};

/// The long limits but for one, which the test is about to exceed.
template <typename Change>
ServerLimits butFor(Change change) {
    ServerLimits limits = kLongLimits;
    change(limits);
    return limits;
}

/// The server that the tests of this program share; it ends with the program.
inline PrivateServer& sharedServer() {
    static PrivateServer server;
    return server;
}

}  // namespace orv
