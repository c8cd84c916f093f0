#pragma once

#include <chrono>

#include "adapters/postgres/postgres_store.h"
#include "adapters/store/store_service.h"
#include "private_server.h"
#include "support/store_files.h"

namespace orv {

inline constexpr ServerLimits kShortLimits = {
    .patience = {.connect = std::chrono::milliseconds(1000), .answer = std::chrono::milliseconds(1000)},
    .lock = std::chrono::milliseconds(300),
    .statement = std::chrono::milliseconds(500),
    .idle = std::chrono::milliseconds(400)};

/// The server that the tests of this program share; it ends with the program.
inline PrivateServer& sharedServer() {
    static PrivateServer server;
    return server;
}

}  // namespace orv
