#pragma once

#include <string>

#include "platform/machine/window_system.h"
#include "platform/services.h"

namespace orv {

/// Shows on the active page, while in scope, which work the program is doing.
class Working {
public:
    explicit Working(const std::string& what) { services().windows->working(what); }
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;
    ~Working() { services().windows->working({}); }
};

}  // namespace orv
