#pragma once

#include "platform/design.h"

namespace orv {

// Fields. Required fields have kRequiredField.
inline constexpr Colour kDisabledField{0xe0e0e0};
inline constexpr Colour kOptionalField{0xffffff};

// Check boxes.
inline constexpr Colour kTickOff{0xffdddd};
inline constexpr Colour kTickOffText{0x000000};
inline constexpr Colour kTickOn{0xff8080};
inline constexpr Colour kTickOnText{0xffffff};

// The drawing below the controls.
inline constexpr Colour kPageBack{0xfff6f6};
inline constexpr Colour kGroupBox{0xffdddd};
inline constexpr Colour kBand{0xcc6666};
inline constexpr Colour kBar{0x996666};
inline constexpr Colour kNoticeBar{0xff8080};
inline constexpr Colour kHeading{0xffffff};

}  // namespace orv
