#pragma once

#include <cstdint>

#include "platform/machine/picture_library.h"

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

/// Returns the share of a picture's sides needed to fit it into `within` later: twice the final size, for the filter.
/// Returns 1 if that is not smaller than the picture, or if there is no promise.
double keptShare(const PictureHeader& header, PictureSize within);

// Checks for invalid calls. Each throws the failure for one.
void requireSides(PictureSize size);
void requireNoGrowth(PictureSize own, PictureSize asked);
void requireQuality(int quality);
/// A picture that was reduced while loading cannot be written.
void requireKeptWhole(PictureSize kept, PictureSize own);

/// Throws the failure for a kind of picture that cannot be written back.
void requireOwnKind(bool own);

}  // namespace orv
