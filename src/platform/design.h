#pragma once

#include <cstdint>
#include <string_view>

namespace orv {

/// A colour in the order blue, green, red: 0x00BBGGRR.
struct Colour {
    std::uint32_t bgr = 0;

    friend bool operator==(const Colour&, const Colour&) = default;
};

/// The background of a field that must be filled in. Assistive technology reads such a field as required.
inline constexpr Colour kRequiredField{0xddddff};

/// A point in design pixels. A page is 794 by 572 of them; the view scales them to the screen.
struct Point {
    int x = 0;
    int y = 0;
};

struct Box {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    int right() const { return x + width; }
    int bottom() const { return y + height; }
    friend bool operator==(const Box&, const Box&) = default;
};

inline constexpr int kPageWidth = 794;
inline constexpr int kPageHeight = 572;

/// The place of one control. The caption of a field is drawn right-aligned in the `captionWidth` pixels before it, its
/// unit directly after it.
struct Placement {
    std::string_view control;
    int index = -1;
    Box box;
    int captionWidth = 0;
};

}  // namespace orv
