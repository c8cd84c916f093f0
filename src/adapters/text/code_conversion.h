#pragma once

#include <array>
#include <string_view>

#include "platform/scope.h"

namespace orv {

/// One direction of the system's own conversion between CP932 and UTF-16, high byte first.
class CodeConversion : NonCopyable {
public:
    enum class Direction { Decode, Encode };

    /// Throws failure 51 if the system does not have the code page.
    explicit CodeConversion(Direction direction);
    ~CodeConversion();

    /// Converts from the start as far as the system knows the characters. The result is valid until the next call.
    std::string_view operator()(std::string_view bytes);

private:
    Direction direction_;
    void* handle_ = nullptr;
    std::array<char, 512> converted_{};  // larger than the longest row of codes
};

}  // namespace orv
