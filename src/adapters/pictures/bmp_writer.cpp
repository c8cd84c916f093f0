#include "adapters/pictures/bmp_writer.h"

#include <algorithm>
#include <array>
#include <span>

#include "adapters/pictures/picture_failure.h"

namespace orv {
namespace {

using Written = std::vector<std::uint8_t>;

constexpr std::size_t kHeaders = 14 + 40;
/// 5, 6 and 5 bits of the three colours.
constexpr std::array<std::uint32_t, 3> kMasks{0xF800, 0x07E0, 0x001F};
constexpr std::uint32_t kByMasks = 3;

void put(Written& bytes, std::size_t number, int length) {
    for (int i = 0; i < length; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
    }
}

/// What stands between the headers and the rows: masks or a table of colours.
Written tableOf(const Raster& raster, int bits) {
    Written table;
    if (bits == 16) {
        for (const std::uint32_t mask : kMasks) {
            put(table, mask, 4);
        }
    }
    for (const QRgb colour : raster.colours) {
        put(table, colour & 0xFFFFFF, 4);
    }
    return table;
}

Written rowOf(const Raster& raster, const PictureHeader& header, int y) {
    if (header.indexed) {
        return packedRow(raster, header, y);
    }
    Written bytes;
    const QImage row = raster.image.copy(0, y, raster.image.width(), 1).convertToFormat(QImage::Format_ARGB32);
    for (const QRgb pixel :
         std::span(reinterpret_cast<const QRgb*>(row.constScanLine(0)), static_cast<std::size_t>(row.width()))) {
        const unsigned narrow = (pixel >> 8 & 0xF800) | (pixel >> 5 & 0x07E0) | (pixel >> 3 & 0x001F);
        put(bytes, header.bits == 16 ? narrow : pixel, header.bits / 8);
    }
    return bytes;
}

bool isWritable(int bits) {
    constexpr auto kDepths = std::to_array<int>({1, 4, 8, 16, 24, 32});
    return std::ranges::count(kDepths, bits) != 0;
}

}  // namespace

Written bmpBytes(const Raster& raster, const PictureHeader& header) {
    if (!isWritable(header.bits)) {
        throw pictureError(PictureFailure::NotWritable);
    }
    const int height = raster.image.height();
    const Written table = tableOf(raster, header.bits);
    Written rows;
    for (int y = height - 1; y >= 0; --y) {
        const Written row = rowOf(raster, header, y);
        rows.insert(rows.end(), row.begin(), row.end());
        rows.resize((rows.size() + 3) / 4 * 4);
    }
    const std::size_t start = kHeaders + table.size();
    Written bytes{'B', 'M'};
    put(bytes, start + rows.size(), 4);
    put(bytes, 0, 4);
    put(bytes, start, 4);
    put(bytes, 40, 4);
    put(bytes, static_cast<std::size_t>(raster.image.width()), 4);
    put(bytes, static_cast<std::size_t>(height), 4);
    put(bytes, 1, 2);
    put(bytes, static_cast<std::size_t>(header.bits), 2);
    put(bytes, header.bits == 16 ? kByMasks : 0, 4);
    put(bytes, rows.size(), 4);
    put(bytes, 0, 8);
    put(bytes, static_cast<std::size_t>(raster.colours.size()), 4);
    put(bytes, 0, 4);
    bytes.insert(bytes.end(), table.begin(), table.end());
    bytes.insert(bytes.end(), rows.begin(), rows.end());
    return bytes;
}

}  // namespace orv
