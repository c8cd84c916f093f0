#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/scope.h"

namespace orv {

/// Data from the header of a picture file, with the picture upright.
struct PictureInfo {
    std::int32_t sizeDisk = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t bits = 0;
    std::int32_t format = 0;
};

/// Rows from the top, 0xffRRGGBB.
struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> argb;
};

struct PictureSize {
    int width = 0;
    int height = 0;
};

// The limits of the quality factor of JPEG files: the best picture and the smallest file. Factor 1 is never used.
inline constexpr int kBestQuality = 2;
inline constexpr int kSmallestQuality = 255;

/// One loaded picture. It no longer needs its file.
class Picture : public Interface {
public:
    virtual int width() const = 0;
    virtual int height() const = 0;
    /// Returns the whole picture at that size, which is at most its own.
    virtual Pixels scaled(int width, int height) const = 0;
    /// Resizes the picture itself and discards the original. Sides start at 1; enlarging is possible.
    virtual void size(int width, int height) = 0;
    /// Writes the picture to `path`, completely or not at all. Fails for any `format` other than the picture's own.
    /// Ignores `bits` and keeps the depth. `quality` is `kBestQuality` to `kSmallestQuality` for JPEG. The other
    /// formats are lossless and as small as possible.
    virtual void save(const std::string& path, std::int32_t format, std::int32_t bits, int quality) const = 0;
};

/// Reads pictures by their content, whatever the file name. An incomplete picture, or one with more than 100 million
/// pixels, is a RunTimeError with a Japanese text.
class PictureLibrary : public Interface {
public:
    /// Reads only the header.
    virtual PictureInfo info(const std::string& path) const = 0;
    /// `within` promises that the picture will not be shown or saved larger than this size. A larger picture can then
    /// be kept at about twice that size, which saves most of the time and memory. It cannot be saved before it is
    /// resized. Without a promise every pixel is kept.
    virtual std::unique_ptr<Picture> load(const std::string& path, PictureSize within = {}) const = 0;
};

}  // namespace orv
