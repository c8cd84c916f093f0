#pragma once

#include <cstdint>

namespace orv {

/// The codes that `PictureInfo::format` carries.
enum class PictureFormat : std::int32_t { Jpeg = 1, Png = 2, Bmp = 3, Gif = 4 };

/// What a file claims of its picture, the picture upright.
struct PictureHeader {
    PictureFormat format = PictureFormat::Jpeg;
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::int32_t bits = 0;
};

/// A loaded picture keeps no more of itself than a screen needs: at least this many pixels on its long side, when it
/// has them, and fewer than twice as many.
inline constexpr int kKeptLongSide = 1024;

}  // namespace orv
