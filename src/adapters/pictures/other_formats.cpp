#include "adapters/pictures/other_formats.h"

#include <QFile>
#include <QImage>
#include <QImageReader>
#include <cstdlib>
#include <string_view>

#include "adapters/pictures/picture_failure.h"

namespace orv {
namespace {

using namespace std::string_view_literals;
using Bytes = std::span<const std::uint8_t>;

constexpr int kDecoderMegabytes = 512;

std::int64_t littleEndian(Bytes bytes, std::size_t at, std::size_t length) {
    std::int64_t value = 0;
    for (std::size_t i = length; i-- > 0;) {
        value = value << 8 | bytes[at + i];
    }
    return value;
}

std::int64_t bigEndian(Bytes bytes, std::size_t at) {
    std::int64_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        value = value << 8 | bytes[at + i];
    }
    return value;
}

PictureHeader pngHeader(Bytes first) {
    constexpr std::array kChannelsByKind{1, 0, 3, 1, 2, 0, 4};
    const std::size_t kind = first[25];
    const int channels = kind < kChannelsByKind.size() ? kChannelsByKind[kind] : 0;
    return {PictureFormat::Png, bigEndian(first, 16), bigEndian(first, 20), first[24] * channels};
}

PictureHeader bmpHeader(Bytes first) {
    constexpr std::int64_t kOldKind = 12;
    if (littleEndian(first, 14, 4) == kOldKind) {
        return {PictureFormat::Bmp, littleEndian(first, 18, 2), littleEndian(first, 20, 2),
                static_cast<std::int32_t>(littleEndian(first, 24, 2))};
    }
    const auto width = static_cast<std::int32_t>(littleEndian(first, 18, 4));
    // Rows that run from the top are marked by a negative height.
    const auto height = static_cast<std::int32_t>(littleEndian(first, 22, 4));
    return {PictureFormat::Bmp, width, std::abs(std::int64_t{height}),
            static_cast<std::int32_t>(littleEndian(first, 28, 2))};
}

PictureHeader gifHeader(Bytes first) {
    return {PictureFormat::Gif, littleEndian(first, 6, 2), littleEndian(first, 8, 2), (first[10] & 7) + 1};
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

const char* nameOf(PictureFormat format) {
    return std::ranges::find(kKinds, format, &Kind::format)->name;
}

QImage decoded(const OpenFile& file, PictureFormat format) {
    QFile device;
    if (!device.open(file.fromStart(), QIODevice::ReadOnly)) {
        throw RunTimeError(Failure::DeviceIo);
    }
    QImageReader::setAllocationLimit(kDecoderMegabytes);
    QImageReader reader(&device, nameOf(format));
    reader.setAutoDetectImageFormat(false);
    return reader.read();
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
    const QImage image = decoded(file, header.format);
    if (image.isNull()) throw pictureError(PictureFailure::Damaged);
    return {};
}

}  // namespace orv
