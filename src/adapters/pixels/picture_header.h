#pragma once

#include <cstdint>

namespace orv {

/// The codes of `PictureInfo::format`.
enum class PictureFormat : std::int32_t { Jpeg = 1, Png = 2, Bmp = 3, Gif = 4, Tiff = 5 };

/// The properties that a file claims for its picture, with the picture upright.
struct PictureHeader {
    PictureFormat format = PictureFormat::Jpeg;
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::int32_t bits = 0;
    int channels = 3;
    /// True if the pixels are indices into a colour table.
    bool indexed = false;
    /// The rotation that the stored picture needs, as an Exif code 1 to 8.
    int orientation = 1;
};

}  // namespace orv
