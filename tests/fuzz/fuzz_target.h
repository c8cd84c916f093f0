#pragma once

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "platform/utf8.h"

namespace orv::test {

/// An entry point for bytes from outside. `run` feeds it any bytes and throws if a required property fails.
struct FuzzTarget {
    std::string_view name;
    void (*run)(const std::string& bytes);
    /// Initial inputs, including those that once revealed a fault.
    std::vector<std::string> seeds;
};

inline void PrintTo(const FuzzTarget& target, std::ostream* stream) { *stream << target.name; }

/// Returns all targets.
std::vector<FuzzTarget> fuzzTargets();

/// Checks a property that must hold for any input. Do not use inside the system's trap.
inline void require(bool holds, const char* what) {
    if (!holds) throw std::logic_error(what);
}

/// True for valid UTF-8 without control characters, except those given.
inline bool isShowable(std::string_view text, std::string_view controls = "") {
    const std::u32string characters = toCharacters(text);
    return toUtf8(characters) == text && std::ranges::all_of(characters, [&](char32_t c) {
               return (c >= 0x20 && c != 0x7F) || controls.find(static_cast<char>(c)) != std::string_view::npos;
           });
}

}  // namespace orv::test
