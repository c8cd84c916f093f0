#include "adapters/jpeg/jpeg_picture.h"

#include <utility>

#include "adapters/jpeg/jpeg_writer.h"
#include "adapters/pixels/exif_orientation.h"
#include "adapters/pixels/picture_failure.h"
#include "adapters/pixels/picture_header.h"
#include "adapters/pixels/resampler.h"

namespace orv {
namespace {

Bitmap resampled(const Bitmap& source, int width, int height) {
    if (source.width == width && source.height == height) {
        return source;
    }
    Bitmap target{width, height, source.channels, {}};
    target.samples.reserve(target.stride() * static_cast<std::size_t>(height));
    Resampler<std::uint8_t> resampler(
        {source.width, source.height}, {width, height}, source.channels,
        [&target](const auto& row) { target.samples.insert(target.samples.end(), row.begin(), row.end()); });
    for (int y = 0; y < source.height; ++y) {
        resampler.push(source.row(y));
    }
    return target;
}

/// Keeps the picture as stored and rotates it when it is used, because it is mostly small by then.
class JpegPicture : public Picture {
public:
    JpegPicture(FileSystem& files, const PictureHeader& header, JpegImage image)
        : files_(files),
          width_(static_cast<int>(header.width)),
          height_(static_cast<int>(header.height)),
          orientation_(header.orientation),
          image_(std::move(image)) {}

    int width() const override { return width_; }
    int height() const override { return height_; }

    Pixels scaled(int width, int height) const override {
        requireNoGrowth({width_, height_}, {width, height});
        return toArgb(uprightAt(width, height));
    }

    void size(int width, int height) override {
        requireSides({width, height});
        image_ = uprightAt(width, height);
        width_ = width;
        height_ = height;
        orientation_ = 1;
        writer_.reset();
    }

    void save(const std::string& path, std::int32_t format, std::int32_t, int quality) const override {
        requireOwnKind(format == static_cast<std::int32_t>(PictureFormat::Jpeg));
        requireQuality(quality);
        if (!writer_) {
            requireKeptWhole(stored(image_.bitmap.width, image_.bitmap.height), {width_, height_});
            writer_ = std::make_unique<JpegWriter>(uprightAt(width_, height_));
        }
        files_.write(path, writer_->written(quality));
    }

private:
    /// Swaps width and height if the rotation does.
    PictureSize stored(int width, int height) const {
        return swapsSides(orientation_) ? PictureSize{height, width} : PictureSize{width, height};
    }

    JpegImage uprightAt(int width, int height) const {
        const PictureSize size = stored(width, height);
        Bitmap small = resampled(image_.bitmap, size.width, size.height);
        return {orientation_ == 1 ? std::move(small) : turned(small, orientation_), image_.colours, image_.adobe,
                image_.profile};
    }

    FileSystem& files_;
    int width_;
    int height_;
    int orientation_;
    JpegImage image_;
    /// Created at the first save, because a search saves the same picture ten times.
    mutable std::unique_ptr<JpegWriter> writer_;
};

}  // namespace

std::unique_ptr<Picture> loadJpeg(FileSystem& files, const OpenFile& file, const PictureHeader& header,
                                  PictureSize within) {
    return std::make_unique<JpegPicture>(files, header, jpegImage(file, keptShare(header, within)));
}

}  // namespace orv
