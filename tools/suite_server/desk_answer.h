#pragma once

#include <string>

namespace orv {

/// The answer to a request.
struct DeskAnswer {
    int status = 200;
    std::string body;
};

}  // namespace orv
