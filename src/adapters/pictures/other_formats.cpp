#include "adapters/pictures/other_formats.h"

#include <QFile>
#include <QImage>
#include <QImageReader>
#include <cstdlib>
#include <string_view>

#include "adapters/pictures/byte_order.h"
#include "adapters/pictures/picture_end.h"
#include "adapters/pictures/picture_failure.h"

namespace orv {
namespace {

using namespace std::string_view_literals;

constexpr int kDecoderMegabytes = 512;

std::int32_t smallNumber(Bytes first, std::size_t at) { return static_cast<std::int32_t>(lowFirst(first, at, 2)); }

std::int32_t signedNumber(Bytes first, std::size_t at) { return static_cast<std::int32_t>(lowFirst(first, at, 4)); }

PictureHeader pngHeader(Bytes first) {
    constexpr std::array kChannelsByKind{1, 0, 3, 1, 2, 0, 4};
    const std::size_t kind = first[25];
    const int channels = kind < kChannelsByKind.size() ? kChannelsByKind[kind] : 0;
    return {PictureFormat::Png, static_cast<std::int64_t>(highFirst(first, 16, 4)),
            static_cast<std::int64_t>(highFirst(first, 20, 4)), first[24] * channels};
}

PictureHeader bmpHeader(Bytes first) {
    constexpr std::int32_t kOldKind = 12;
    if (signedNumber(first, 14) == kOldKind) {
        return {PictureFormat::Bmp, smallNumber(first, 18), smallNumber(first, 20), smallNumber(first, 24)};
    }
    // Rows that run from the top are marked by a negative height.
    const std::int64_t height = signedNumber(first, 22);
    return {PictureFormat::Bmp, signedNumber(first, 18), std::abs(height), smallNumber(first, 28)};
}

PictureHeader gifHeader(Bytes first) {
    return {PictureFormat::Gif, smallNumber(first, 6), smallNumber(first, 8), (first[10] & 7) + 1};
}

struct Kind {
    std::string_view mark;
    const char* name;
    PictureFormat format;
    PictureHeader (*header)(Bytes);
};

constexpr auto kKinds = std::to_array<Kind>({
    {"\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR"sv, "png", PictureFormat::Png, pngHeader},
    {"BM"sv, "bmp", PictureFormat::Bmp, bmpHeader},
    {"GIF87a"sv, "gif", PictureFormat::Gif, gifHeader},
    {"GIF89a"sv, "gif", PictureFormat::Gif, gifHeader},
});

QImage decoded(const OpenFile& file, PictureFormat format) {
    QFile device;
    if (!device.open(file.fromStart(), QIODevice::ReadOnly)) {
        throw RunTimeError(Failure::DeviceIo);
    }
    QImageReader::setAllocationLimit(kDecoderMegabytes);
    QImageReader reader(&device, std::ranges::find(kKinds, format, &Kind::format)->name);
    reader.setAutoDetectImageFormat(false);
    return reader.read();
}

/// The numbers of one row, on white ground.
QImage plainRow(const QImage& image, int y) {
    QImage row = image.copy(0, y, image.width(), 1).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    auto* pixels = reinterpret_cast<QRgb*>(row.scanLine(0));
    for (QRgb& pixel : std::span(pixels, static_cast<std::size_t>(row.width()))) {
        const int ground = 255 - qAlpha(pixel);
        pixel = qRgb(qRed(pixel) + ground, qGreen(pixel) + ground, qBlue(pixel) + ground);
    }
    return row;
}

/// Where the piece `i` of `pieces` begins when `whole` is cut evenly.
int cut(int whole, int pieces, int i) { return static_cast<int>(std::int64_t{whole} * i / pieces); }

struct Sum {
    std::uint32_t red = 0;
    std::uint32_t green = 0;
    std::uint32_t blue = 0;
    std::uint32_t count = 0;

    void add(QRgb pixel) {
        red += static_cast<std::uint32_t>(qRed(pixel));
        green += static_cast<std::uint32_t>(qGreen(pixel));
        blue += static_cast<std::uint32_t>(qBlue(pixel));
        ++count;
    }
    std::uint32_t mean() const {
        const auto part = [this](std::uint32_t sum) { return (sum + count / 2) / count; };
        return 0xFF000000U | part(red) << 16 | part(green) << 8 | part(blue);
    }
};

/// One row of the reduced picture, the means of what its places cover.
void appendMeans(const QImage& image, int top, int bottom, Pixels& kept) {
    std::vector<Sum> sums(static_cast<std::size_t>(kept.width));
    for (int y = top; y < bottom; ++y) {
        const QImage row = plainRow(image, y);
        const auto* pixels = reinterpret_cast<const QRgb*>(row.constScanLine(0));
        for (int x = 0; x < kept.width; ++x) {
            const int end = cut(image.width(), kept.width, x + 1);
            for (int i = cut(image.width(), kept.width, x); i < end; ++i) {
                sums[static_cast<std::size_t>(x)].add(pixels[i]);
            }
        }
    }
    for (const Sum& sum : sums) {
        kept.argb.push_back(sum.mean());
    }
}

Pixels reduced(const QImage& image) {
    const int step = std::max(1, std::max(image.width(), image.height()) / kKeptLongSide);
    Pixels kept{std::max(1, image.width() / step), std::max(1, image.height() / step), {}};
    for (int y = 0; y < kept.height; ++y) {
        appendMeans(image, cut(image.height(), kept.height, y), cut(image.height(), kept.height, y + 1), kept);
    }
    return kept;
}

}  // namespace

std::optional<PictureHeader> otherHeader(Bytes first) {
    const std::string_view text(reinterpret_cast<const char*>(first.data()), first.size());
    const auto kind = std::ranges::find_if(kKinds, [text](const Kind& one) { return text.starts_with(one.mark); });
    if (kind == kKinds.end()) {
        return std::nullopt;
    }
    if (first.size() < kHeaderBytes) {
        throw pictureError(PictureFailure::Damaged);
    }
    return kind->header(first);
}

Pixels otherPixels(const OpenFile& file, const PictureHeader& header) {
    constexpr std::int64_t kMegabyte = 1024 * 1024;
    const std::int64_t pixelBytes = header.bits > 32 ? 8 : 4;
    if (header.width * header.height * pixelBytes > kDecoderMegabytes * kMegabyte) {
        throw pictureError(PictureFailure::NeedsTooMuchMemory);
    }
    requireWhole(file, header.format);
    const QImage image = decoded(file, header.format);
    if (image.isNull() || image.width() != header.width || image.height() != header.height) {
        throw pictureError(PictureFailure::Damaged);
    }
    return reduced(image);
}

}  // namespace orv
