#include "adapters/raster/raster.h"

#include <QRgba64>
#include <array>
#include <span>

namespace orv {
namespace {

using Samples = std::vector<std::uint8_t>;

QImage copyRow(const QImage& image, int y) { return image.copy(0, y, image.width(), 1); }

Samples packed(const Samples& values, int bits) {
    Samples bytes((values.size() * static_cast<std::size_t>(bits) + 7) / 8);
    std::size_t place = 0;
    for (const std::uint8_t value : values) {
        const auto shift = 8 - bits - static_cast<int>(place % 8);
        bytes[place / 8] = static_cast<std::uint8_t>(bytes[place / 8] | value << shift);
        place += static_cast<std::size_t>(bits);
    }
    return bytes;
}

/// Converts a premultiplied pixel. If the file has no alpha channel, transparent pixels (a single colour can mark them)
/// become white.
std::array<std::uint16_t, 4> toSamples(QRgba64 pixel, int channels) {
    const auto background = static_cast<std::uint16_t>(0xFFFF - pixel.alpha());
    const auto onWhite = [background](std::uint16_t value) { return static_cast<std::uint16_t>(value + background); };
    const QRgba64 plain = pixel.unpremultiplied();
    switch (channels) {
        case 2:
            return {plain.red(), plain.alpha()};
        case 4:
            return {plain.red(), plain.green(), plain.blue(), plain.alpha()};
        default:
            return {onWhite(pixel.red()), onWhite(pixel.green()), onWhite(pixel.blue())};
    }
}

/// Returns samples of 16 bits. Grey pictures have the same value in all three colours.
std::vector<std::uint16_t> deepRow(const QImage& image, int channels, int y) {
    const QImage row = copyRow(image, y).convertToFormat(QImage::Format_RGBA64_Premultiplied);
    std::vector<std::uint16_t> samples;
    samples.reserve(static_cast<std::size_t>(row.width()) * static_cast<std::size_t>(channels));
    for (const QRgba64 pixel :
         std::span(reinterpret_cast<const QRgba64*>(row.constScanLine(0)), static_cast<std::size_t>(row.width()))) {
        const auto all = toSamples(pixel, channels);
        samples.insert(samples.end(), all.begin(), all.begin() + channels);
    }
    return samples;
}

}  // namespace

Samples toIndices(const Raster& raster, int y) {
    const QImage row = copyRow(raster.image, y).convertToFormat(QImage::Format_Indexed8, raster.colours);
    return {row.constScanLine(0), row.constScanLine(0) + row.width()};
}

Samples packedRow(const Raster& raster, const PictureHeader& header, int y) {
    const int depth = bitDepth(header);
    if (header.indexed) {
        return packed(toIndices(raster, y), depth);
    }
    const auto deep = deepRow(raster.image, header.channels, y);
    if (depth == 16) {
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(deep.data());
        return {bytes, bytes + deep.size() * 2};
    }
    const unsigned most = (1U << depth) - 1;
    Samples values;
    values.reserve(deep.size());
    for (const std::uint16_t sample : deep) {
        values.push_back(static_cast<std::uint8_t>((sample * most + 0x7FFF) / 0xFFFF));
    }
    return packed(values, depth);
}

}  // namespace orv
