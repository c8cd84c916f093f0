#pragma once

#include <cstdint>

namespace orv {

/// The codes that `PictureInfo::format` carries.
enum class PictureFormat : std::int32_t { Jpeg = 1, Png = 2, Bmp = 3, Gif = 4, Tiff = 5 };

/// What a file claims of its picture, the picture upright.
struct PictureHeader {
    PictureFormat format = PictureFormat::Jpeg;
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::int32_t bits = 0;
    int channels = 3;
    /// The pixels are places in a table of colours.
    bool indexed = false;
    /// How the stored picture has to be turned: the Exif code 1 to 8.
    int orientation = 1;
};

}  // namespace orv
