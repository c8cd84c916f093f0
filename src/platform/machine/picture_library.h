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
    /// Makes the picture that size.
    virtual void size(int width, int height) = 0;
    /// Writes the picture over what stands at `path`, in the file format and with the depth that `info` gave.
    /// `quality`: from 2, the best picture and the largest file, to 255, the smallest file.
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
    virtual std::unique_ptr<Picture> load(const std::string& path) const = 0;
};

}  // namespace orv
