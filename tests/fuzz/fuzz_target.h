#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace orv::test {

/// One door through which bytes come from outside. `run` feeds it any bytes and throws when what must hold does not.
struct FuzzTarget {
    std::string_view name;
    void (*run)(const std::string& bytes);
    /// What to begin with, and what once was a fault.
    std::vector<std::string> seeds;
};

std::vector<FuzzTarget> fuzzTargets();

FuzzTarget argumentTarget();
FuzzTarget settingsTarget();
FuzzTarget codePageTarget();
FuzzTarget messageTableTarget();
FuzzTarget helpTarget();
FuzzTarget pictureTarget();
FuzzTarget siblingTarget();
FuzzTarget serverAnswerTarget();
FuzzTarget statementTarget();
FuzzTarget eraDateTarget();

/// What must hold whatever comes. Not for use where the system's trap is around it.
inline void require(bool holds, const char* what) {
    if (!holds) {
        throw std::logic_error(what);
    }
}

/// Valid UTF-8 without control characters but those given.
bool isShowable(std::string_view text, std::string_view controls = "");

}  // namespace orv::test
