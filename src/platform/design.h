#pragma once

#include <cstdint>
#include <string_view>

namespace orv {

/// A colour in the order blue, green, red: 0x00BBGGRR.
struct Colour {
    std::uint32_t bgr = 0;

    friend bool operator==(const Colour&, const Colour&) = default;
};

// The background of fields. Assistive technology reads a field with the first one as required.
inline constexpr Colour kRequiredField{0xddddff};
inline constexpr Colour kOptionalField{0xffffff};
inline constexpr Colour kDisabledField{0xe0e0e0};

// Check boxes.
inline constexpr Colour kTickOff{0xffdddd};
inline constexpr Colour kTickOffText{0x000000};
inline constexpr Colour kTickOn{0xff8080};
inline constexpr Colour kTickOnText{0xffffff};

// The page and the drawing below its controls. The page's own button and the edge of a picture have the colour of a
// bar, with the text of a heading.
inline constexpr Colour kPageBack{0xfff6f6};
inline constexpr Colour kGroupBox{0xffdddd};
inline constexpr Colour kBand{0xcc6666};
inline constexpr Colour kBar{0x996666};
inline constexpr Colour kNoticeBar{0xff8080};
inline constexpr Colour kHeading{0xffffff};

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
