#include "adapters/pictures/raster_picture.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <span>
#include <utility>

#include "adapters/pictures/bmp_writer.h"
#include "adapters/pictures/gif_file.h"
#include "adapters/pictures/picture_sizes.h"
#include "adapters/pictures/png_writer.h"
#include "adapters/pictures/raster_reader.h"
#include "adapters/pictures/resampler.h"
#include "adapters/pictures/tiff_file.h"
#include "adapters/pictures/whole_file.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr std::size_t kChannels = 4;

/// The filter overshoots at edges, and no colour may be stronger than its place is solid.
template <typename Sample>
void putRow(std::vector<Sample> row, uchar* target) {
    for (std::size_t at = 0; at < row.size(); at += kChannels) {
        for (std::size_t c = 0; c + 1 < kChannels; ++c) {
            row[at + c] = std::min(row[at + c], row[at + kChannels - 1]);
        }
    }
    std::memcpy(target, row.data(), row.size() * sizeof(Sample));
}

template <typename Sample>
QImage resampledAs(QImage::Format format, const QImage& source, int width, int height) {
    QImage target(width, height, format);
    if (target.isNull()) {
        throw RunTimeError(Failure::OutOfMemory);
    }
    int y = 0;
    Resampler<Sample> resampler({source.width(), source.height()}, {width, height}, kChannels,
                                [&](const auto& row) { putRow(row, target.scanLine(y++)); });
    for (int line = 0; line < source.height(); ++line) {
        const QImage row = source.copy(0, line, source.width(), 1).convertToFormat(format);
        resampler.push(reinterpret_cast<const Sample*>(row.constScanLine(0)));
    }
    return target;
}

QImage resampled(const QImage& source, int width, int height) {
    if (source.width() == width && source.height() == height) {
        return source;
    }
    const bool deep = source.depth() > 32 || source.format() == QImage::Format_Grayscale16;
    return deep ? resampledAs<std::uint16_t>(QImage::Format_RGBA64_Premultiplied, source, width, height)
                : resampledAs<std::uint8_t>(QImage::Format_RGBA8888_Premultiplied, source, width, height);
}

/// On white ground.
Pixels argbOf(const QImage& image) {
    Pixels pixels{image.width(), image.height(), {}};
    for (int y = 0; y < image.height(); ++y) {
        const QImage row = image.copy(0, y, image.width(), 1).convertToFormat(QImage::Format_ARGB32_Premultiplied);
        for (const QRgb pixel :
             std::span(reinterpret_cast<const QRgb*>(row.constScanLine(0)), static_cast<std::size_t>(row.width()))) {
            const int ground = 255 - qAlpha(pixel);
            pixels.argb.push_back(qRgb(qRed(pixel) + ground, qGreen(pixel) + ground, qBlue(pixel) + ground));
        }
    }
    return pixels;
}

std::vector<std::uint8_t> written(const Raster& raster, const PictureHeader& header) {
    switch (header.format) {
        case PictureFormat::Png:
            return pngBytes(raster, header);
        case PictureFormat::Bmp:
            return bmpBytes(raster, header);
        case PictureFormat::Gif:
            return gifBytes(raster);
        default:
            return tiffBytes(raster, header);
    }
}

class RasterPicture : public Picture {
public:
    RasterPicture(const FileSystem& files, const PictureHeader& header, Raster raster)
        : files_(files), header_(header), raster_(std::move(raster)) {}

    int width() const override { return static_cast<int>(header_.width); }
    int height() const override { return static_cast<int>(header_.height); }

    Pixels scaled(int width, int height) const override {
        requireNoGrowth(own(), {width, height});
        return argbOf(resampled(raster_.image, width, height));
    }

    void size(int width, int height) override {
        requireSides({width, height});
        raster_.image = resampled(raster_.image, width, height);
        header_.width = width;
        header_.height = height;
        written_.clear();
    }

    void save(const std::string& path, std::int32_t format, std::int32_t, int quality) const override {
        requireOwnKind(format == static_cast<std::int32_t>(header_.format));
        requireQuality(quality);
        if (written_.empty()) {
            requireKeptWhole({raster_.image.width(), raster_.image.height()}, own());
            written_ = written(raster_, header_);
        }
        writeWholeFile(files_, path, written_);
    }

private:
    PictureSize own() const { return {width(), height()}; }

    const FileSystem& files_;
    PictureHeader header_;
    Raster raster_;
    /// Made at the first save: the quality does not change it.
    mutable std::vector<std::uint8_t> written_;
};

}  // namespace

std::unique_ptr<Picture> loadRaster(const FileSystem& files, const OpenFile& file, const PictureHeader& header,
                                    PictureSize within) {
    Raster raster = readRaster(file, header);
    const double share = keptShare(header, within);
    const auto kept = [share](int side) { return std::max(1, static_cast<int>(std::ceil(side * share))); };
    raster.image = resampled(raster.image, kept(raster.image.width()), kept(raster.image.height()));
    return std::make_unique<RasterPicture>(files, header, std::move(raster));
}

}  // namespace orv
