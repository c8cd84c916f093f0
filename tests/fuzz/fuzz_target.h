#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/utf8.h"

namespace orv::test {

/// One door through which bytes come from outside. `run` feeds it any bytes and throws when what must hold does not.
struct FuzzTarget {
    std::string_view name;
    void (*run)(const std::string& bytes);
    /// What to begin with, and what once was a fault.
    std::vector<std::string> seeds;
};

inline void PrintTo(const FuzzTarget& target, std::ostream* stream) { *stream << target.name; }

/// The doors that take bytes by themselves.
std::vector<FuzzTarget> byteTargets();
/// Every door.
std::vector<FuzzTarget> fuzzTargets();

/// What must hold whatever comes. Not for use where the system's trap is around it.
inline void require(bool holds, const char* what) {
    if (!holds) {
        throw std::logic_error(what);
    }
}

/// Valid UTF-8 without control characters but those given.
inline bool isShowable(std::string_view text, std::string_view controls = "") {
    const std::u32string characters = toCharacters(text);
    return toUtf8(characters) == text && std::ranges::all_of(characters, [&](char32_t c) {
               return (c >= 0x20 && c != 0x7F) || controls.find(static_cast<char>(c)) != std::string_view::npos;
           });
}

}  // namespace orv::test
