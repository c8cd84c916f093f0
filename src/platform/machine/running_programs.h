#pragma once

#include <string>

namespace orv {

/// The runs of this program on this computer. Each takes names for what it works on; no two hold the same name.
class RunningPrograms {
public:
    RunningPrograms() = default;
    RunningPrograms(const RunningPrograms&) = delete;
    RunningPrograms& operator=(const RunningPrograms&) = delete;
    virtual ~RunningPrograms() = default;

    /// False if another run holds the name. Its window then comes to the front. A run that has ended holds nothing.
    [[nodiscard]] virtual bool take(const std::string& name) = 0;
    virtual void leave(const std::string& name) = 0;
};

}  // namespace orv
