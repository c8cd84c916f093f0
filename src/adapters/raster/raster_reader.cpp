#include "adapters/raster/raster_picture.h"

#include <QColorSpace>
#include <QFile>
#include <QImageReader>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>

#include "adapters/pixels/exif_orientation.h"
#include "adapters/pixels/picture_failure.h"
#include "adapters/raster/raster_formats.h"

namespace orv {
namespace {

using namespace std::string_view_literals;

constexpr int kDecoderMegabytes = 512;

std::int32_t smallNumber(Bytes first, std::size_t at) { return static_cast<std::int32_t>(lowFirst(first, at, 2)); }

std::int32_t signedNumber(Bytes first, std::size_t at) { return static_cast<std::int32_t>(lowFirst(first, at, 4)); }

PictureHeader pngHeader(const OpenFile&, Bytes first) {
    constexpr std::array kChannelsByKind{1, 0, 3, 1, 2, 0, 4};
    constexpr std::size_t kIndexed = 3;
    const std::size_t kind = first[25];
    const int channels = kind < kChannelsByKind.size() ? kChannelsByKind[kind] : 0;
    if (channels == 0) {
        throw pictureError(PictureFailure::Damaged);
    }
    return {PictureFormat::Png,
            static_cast<std::int64_t>(highFirst(first, 16, 4)),
            static_cast<std::int64_t>(highFirst(first, 20, 4)),
            first[24] * channels,
            channels,
            kind == kIndexed};
}

PictureHeader bmpHeader(const OpenFile&, Bytes first) {
    constexpr std::int32_t kOldKind = 12;
    const bool old = signedNumber(first, 14) == kOldKind;
    const std::int32_t bits = smallNumber(first, old ? 24 : 28);
    const std::int64_t width = old ? smallNumber(first, 18) : signedNumber(first, 18);
    // A negative height marks rows that are stored from the top.
    const std::int64_t height = old ? smallNumber(first, 20) : std::abs(std::int64_t{signedNumber(first, 22)});
    return {PictureFormat::Bmp, width, height, bits, bits <= 8 ? 1 : bits == 32 ? 4 : 3, bits <= 8};
}

PictureHeader gifHeader(const OpenFile&, Bytes first) {
    return {PictureFormat::Gif, smallNumber(first, 6), smallNumber(first, 8), (first[10] & 7) + 1, 1, true};
}

PictureHeader readTiffHeader(const OpenFile& file, Bytes) { return tiffHeader(file); }

struct Kind {
    std::string_view mark;
    PictureHeader (*header)(const OpenFile& file, Bytes first);
};

constexpr auto kKinds = std::to_array<Kind>({
    {"\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR"sv, pngHeader},
    {"BM"sv, bmpHeader},
    {"GIF87a"sv, gifHeader},
    {"GIF89a"sv, gifHeader},
    {"II*\0"sv, readTiffHeader},
    {"MM\0*"sv, readTiffHeader},
});

/// Reads PNG and BMP.
Raster readByQt(const OpenFile& file, const PictureHeader& header) {
    QFile device;
    if (!device.open(file.fromStart(), QIODevice::ReadOnly)) {
        throw RunTimeError(Failure::DeviceIo);
    }
    QImageReader::setAllocationLimit(kDecoderMegabytes);
    QImageReader reader(&device, header.format == PictureFormat::Png ? "png" : "bmp");
    reader.setAutoDetectImageFormat(false);
    const QImage image = reader.read();
    const QColorSpace space = image.colorSpace();
    const bool own = space.isValid() && space != QColorSpace(QColorSpace::SRgb);
    return {image, header.indexed ? image.colorTable() : QList<QRgb>(), own ? space.iccProfile() : QByteArray()};
}

Raster readByFormat(const OpenFile& file, const PictureHeader& header) {
    switch (header.format) {
        case PictureFormat::Gif:
            return readGif(file);
        case PictureFormat::Tiff:
            return readTiff(file, header);
        case PictureFormat::Bmp:
            requireWholeBmp(file);
            return readByQt(file, header);
        default:
            return readByQt(file, header);
    }
}

}  // namespace

std::optional<PictureHeader> rasterHeader(const OpenFile& file, Bytes first) {
    const std::string_view text(reinterpret_cast<const char*>(first.data()), first.size());
    const auto kind = std::ranges::find_if(kKinds, [text](const Kind& one) { return text.starts_with(one.mark); });
    if (kind == kKinds.end()) {
        return std::nullopt;
    }
    if (first.size() < kHeaderBytes) {
        throw pictureError(PictureFailure::Damaged);
    }
    return kind->header(file, first);
}

Raster readRaster(const OpenFile& file, const PictureHeader& header) {
    constexpr std::int64_t kMegabyte = 1024 * 1024;
    const std::int64_t pixelBytes = header.bits > 32 ? 8 : 4;
    if (header.width * header.height * pixelBytes > kDecoderMegabytes * kMegabyte) {
        throw pictureError(PictureFailure::NeedsTooMuchMemory);
    }
    Raster raster = readByFormat(file, header);
    const bool swapped = swapsSides(header.orientation);
    if (raster.image.isNull() || raster.image.width() != (swapped ? header.height : header.width) ||
        raster.image.height() != (swapped ? header.width : header.height)) {
        throw pictureError(PictureFailure::Damaged);
    }
    raster.image.setColorSpace({});
    return raster;
}

}  // namespace orv
