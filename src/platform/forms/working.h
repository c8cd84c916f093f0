#pragma once

#include <string>

#include "platform/machine/window_system.h"
#include "platform/scope.h"
#include "platform/services.h"

namespace orv {

/// Shows on the active page, while in scope, which work the program is doing.
class Working : NonCopyable {
public:
    explicit Working(const std::string& what) { services().windows->working(what); }
    ~Working() { services().windows->working({}); }
};

}  // namespace orv
