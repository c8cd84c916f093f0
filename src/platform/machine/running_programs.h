#pragma once

#include <string>

#include "platform/scope.h"

namespace orv {

/// The runs of this program on this computer. Each run reserves names for its work; no two hold the same name.
class RunningPrograms : public Interface {
public:
    /// False if another run holds the name; its window then comes to the front. A run that has ended holds no names.
    [[nodiscard]] virtual bool claim(const std::string& name) = 0;
    virtual void leave(const std::string& name) = 0;
};

}  // namespace orv
