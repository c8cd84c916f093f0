#include "adapters/raster/raster_picture.h"

#include <QTransform>
#include <algorithm>
#include <cstring>
#include <span>
#include <utility>

#include "adapters/pixels/box_reducer.h"
#include "adapters/pixels/exif_orientation.h"
#include "adapters/pixels/picture_header.h"
#include "adapters/pixels/resampler.h"
#include "adapters/raster/raster_formats.h"
#include "platform/run_time_error.h"
#include "platform/waiting.h"

namespace orv {
namespace {

constexpr std::size_t kChannels = 4;
template <typename Sample>
constexpr QImage::Format kFormat = sizeof(Sample) == 1 ? QImage::Format_RGBA8888_Premultiplied
                                                       : QImage::Format_RGBA64_Premultiplied;

/// The filter overshoots at edges, and no colour value can exceed its alpha value.
template <typename Sample>
void putRow(std::vector<Sample> row, uchar* target) {
    for (std::size_t at = 0; at < row.size(); at += kChannels) {
        for (std::size_t c = 0; c + 1 < kChannels; ++c) {
            row[at + c] = std::min(row[at + c], row[at + kChannels - 1]);
        }
    }
    std::memcpy(target, row.data(), row.size() * sizeof(Sample));
}

QImage blankImage(PictureSize size, QImage::Format format) {
    QImage image(size.width, size.height, format);
    if (image.isNull()) {
        throw RunTimeError(Failure::OutOfMemory);
    }
    return image;
}

/// Handles one row at a time, so that no second copy of a large picture is needed.
template <typename Sample, typename Visit>
void forEachRow(const QImage& source, Visit visit) {
    for (int y = 0; y < source.height(); ++y) {
        const QImage row = source.copy(0, y, source.width(), 1).convertToFormat(kFormat<Sample>);
        visit(reinterpret_cast<const Sample*>(row.constScanLine(0)));
        whileWaiting();
    }
}

template <typename Sample>
QImage resampledAs(const QImage& source, int width, int height) {
    QImage target = blankImage({width, height}, kFormat<Sample>);
    int y = 0;
    Resampler<Sample> resampler({source.width(), source.height()}, {width, height}, kChannels,
                                [&](const auto& row) { putRow(row, target.scanLine(y++)); });
    forEachRow<Sample>(source, [&](const Sample* row) { resampler.push(row); });
    return target;
}

template <typename Sample>
QImage averagedAs(const QImage& source, int side) {
    BoxReducer<Sample> reducer({source.width(), source.height()}, kChannels, side);
    QImage target = blankImage(reducer.to(), kFormat<Sample>);
    int y = 0;
    forEachRow<Sample>(source, [&](const Sample* row) {
        reducer.add(row);
        if (++y % side == 0 || y == source.height()) {
            reducer.finishRow(reinterpret_cast<Sample*>(target.scanLine((y - 1) / side)));
        }
    });
    return target;
}

bool isDeep(const QImage& image) { return image.depth() > 32 || image.format() == QImage::Format_Grayscale16; }

QImage resampled(const QImage& source, int width, int height) {
    if (source.width() == width && source.height() == height) {
        return source;
    }
    return isDeep(source) ? resampledAs<std::uint16_t>(source, width, height)
                          : resampledAs<std::uint8_t>(source, width, height);
}

/// Reduces a picture of which `share` is needed. Keeps twice that size, because averaging blurs more than the filter.
QImage averaged(const QImage& source, double share) {
    const int side = static_cast<int>(0.5 / share);
    if (side < 2) {
        return source;
    }
    return isDeep(source) ? averagedAs<std::uint16_t>(source, side) : averagedAs<std::uint8_t>(source, side);
}

/// Transposes by a quarter turn and one mirroring more.
QImage upright(QImage stored, int orientation) {
    const bool swap = swapsSides(orientation);
    const QImage mirrored = std::move(stored).mirrored(mirrorsColumns(orientation), mirrorsLines(orientation) != swap);
    return swap ? mirrored.transformed(QTransform().rotate(90)) : mirrored;
}

/// Draws on a white background.
Pixels toArgb(const QImage& image) {
    Pixels pixels{image.width(), image.height(), {}};
    for (int y = 0; y < image.height(); ++y) {
        const QImage row = image.copy(0, y, image.width(), 1).convertToFormat(QImage::Format_ARGB32_Premultiplied);
        for (const QRgb pixel :
             std::span(reinterpret_cast<const QRgb*>(row.constScanLine(0)), static_cast<std::size_t>(row.width()))) {
            const int background = 255 - qAlpha(pixel);
            pixels.argb.push_back(
                qRgb(qRed(pixel) + background, qGreen(pixel) + background, qBlue(pixel) + background));
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
    RasterPicture(FileSystem& files, const PictureHeader& header, Raster raster)
        : files_(files), header_(header), raster_(std::move(raster)) {}

    int width() const override { return static_cast<int>(header_.width); }
    int height() const override { return static_cast<int>(header_.height); }

    Pixels scaled(int width, int height) const override {
        requireNoGrowth(own(), {width, height});
        return toArgb(resampled(raster_.image, width, height));
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
        files_.write(path, written_);
    }

private:
    PictureSize own() const { return {width(), height()}; }

    FileSystem& files_;
    PictureHeader header_;
    Raster raster_;
    /// Created at the first save, because the quality does not change it.
    mutable std::vector<std::uint8_t> written_;
};

}  // namespace

std::unique_ptr<Picture> loadRaster(FileSystem& files, const OpenFile& file, const PictureHeader& header,
                                    PictureSize within) {
    Raster raster = readRaster(file, header);
    raster.image = upright(averaged(raster.image, keptShare(header, within)), header.orientation);
    return std::make_unique<RasterPicture>(files, header, std::move(raster));
}

}  // namespace orv
