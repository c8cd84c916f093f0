#pragma once

#include <string>

namespace orv {

/// What a desk says to a request.
struct DeskAnswer {
    int status = 200;
    std::string body;
};

}  // namespace orv
