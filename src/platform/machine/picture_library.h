#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace orv {

/// What the header of a picture file says, the picture upright.
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

/// One loaded picture. It no longer needs its file.
class Picture {
public:
    Picture() = default;
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;
    virtual ~Picture() = default;

    virtual int width() const = 0;
    virtual int height() const = 0;
    /// The whole picture at that size, at most its own.
    virtual Pixels scaled(int width, int height) const = 0;
    /// Brings the picture itself to that size; what it was is gone. Sides from 1; it may grow.
    virtual void size(int width, int height) = 0;
    /// Writes the picture over whatever file stands at `path`, whole or not at all. `format`: its own, any other is a
    /// failure. `bits`: it keeps its depth whatever is asked. `quality`: 2, the best, to 255, the smallest; of meaning
    /// to JPEG only, the other formats are written without loss and as small as they go.
    virtual void save(const std::string& path, std::int32_t format, std::int32_t bits, int quality) const = 0;
};

/// Reads pictures by their content, whatever their name. Anything that is no whole picture, and one of more than
/// 100 million pixels, is a RunTimeError with a Japanese text.
class PictureLibrary {
public:
    PictureLibrary() = default;
    PictureLibrary(const PictureLibrary&) = delete;
    PictureLibrary& operator=(const PictureLibrary&) = delete;
    virtual ~PictureLibrary() = default;

    /// Reads the header only.
    virtual PictureInfo info(const std::string& path) const = 0;
    /// `within`: a promise that the picture will be shown or brought to no more than fits in there. A larger one may
    /// then be kept at about twice that, which saves most of the time and memory, and can't be saved before it is
    /// sized. Without a promise every pixel is kept.
    virtual std::unique_ptr<Picture> load(const std::string& path, PictureSize within = {}) const = 0;
};

}  // namespace orv
