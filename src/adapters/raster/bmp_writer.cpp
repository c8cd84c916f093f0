#include "adapters/raster/raster_formats.h"

#include <algorithm>
#include <array>
#include <span>

#include "adapters/pixels/picture_failure.h"

namespace orv {
namespace {

using Written = std::vector<std::uint8_t>;

constexpr std::size_t kHeaders = 14 + 40;
/// Masks for 5, 6 and 5 bits of the three colours.
constexpr std::array<std::uint32_t, 3> kMasks{0xF800, 0x07E0, 0x001F};
constexpr std::uint32_t kByMasks = 3;

void put(Written& bytes, std::size_t number, int length) {
    for (int i = 0; i < length; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
    }
}

/// Returns the part between the headers and the rows: masks or a colour table.
Written writeColours(const Raster& raster, int bits) {
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

Written writeRow(const Raster& raster, const PictureHeader& header, int y) {
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

/// The picture's rows as in the file, from the bottom.
struct StoredRows {
    std::uint32_t coding = 0;
    Written bytes;
};

StoredRows plainRows(const Raster& raster, const PictureHeader& header) {
    StoredRows rows{header.bits == 16 ? kByMasks : 0, {}};
    for (int y = raster.image.height() - 1; y >= 0; --y) {
        const Written row = writeRow(raster, header, y);
        rows.bytes.insert(rows.bytes.end(), row.begin(), row.end());
        rows.bytes.resize((rows.bytes.size() + 3) / 4 * 4);
    }
    return rows;
}

constexpr std::uint32_t kByRuns = 1;
constexpr std::size_t kLongestRun = 255;
/// A shorter run is not smaller than single indices.
constexpr std::size_t kWorthIt = 3;

std::size_t runAt(const Written& row, std::size_t at) {
    const std::size_t last = std::min(row.size(), at + kLongestRun);
    std::size_t end = at + 1;
    while (end < last && row[end] == row[at]) {
        ++end;
    }
    return end - at;
}

std::size_t singlesAt(const Written& row, std::size_t at) {
    const std::size_t last = std::min(row.size(), at + kLongestRun);
    std::size_t end = at;
    while (end < last && runAt(row, end) < kWorthIt) {
        ++end;
    }
    return end - at;
}

void putSingles(Written& bytes, const Written& row, std::size_t at, std::size_t count) {
    put(bytes, 0, 1);
    put(bytes, count, 1);
    const auto first = row.begin() + static_cast<std::ptrdiff_t>(at);
    bytes.insert(bytes.end(), first, first + static_cast<std::ptrdiff_t>(count));
    bytes.resize((bytes.size() + 1) / 2 * 2);
}

void putRuns(Written& bytes, const Written& row) {
    for (std::size_t at = 0; at < row.size();) {
        const std::size_t singles = singlesAt(row, at);
        if (singles >= kWorthIt) {
            putSingles(bytes, row, at, singles);
            at += singles;
        } else {
            const std::size_t run = runAt(row, at);
            put(bytes, run, 1);
            put(bytes, row[at], 1);
            at += run;
        }
    }
}

StoredRows writeRuns(const Raster& raster) {
    constexpr std::uint32_t kEndOfRow = 0x0000;
    constexpr std::uint32_t kEndOfPicture = 0x0100;
    StoredRows rows{kByRuns, {}};
    for (int y = raster.image.height() - 1; y >= 0; --y) {
        putRuns(rows.bytes, toIndices(raster, y));
        put(rows.bytes, kEndOfRow, 2);
    }
    put(rows.bytes, kEndOfPicture, 2);
    return rows;
}

StoredRows smallestRows(const Raster& raster, const PictureHeader& header) {
    StoredRows plain = plainRows(raster, header);
    if (header.bits != 8) {
        return plain;
    }
    StoredRows runs = writeRuns(raster);
    return runs.bytes.size() < plain.bytes.size() ? runs : plain;
}

}  // namespace

Written bmpBytes(const Raster& raster, const PictureHeader& header) {
    if (!isWritable(header.bits)) {
        throw pictureError(PictureFailure::NotWritable);
    }
    const Written table = writeColours(raster, header.bits);
    const StoredRows rows = smallestRows(raster, header);
    const std::size_t start = kHeaders + table.size();
    Written bytes{'B', 'M'};
    put(bytes, start + rows.bytes.size(), 4);
    put(bytes, 0, 4);
    put(bytes, start, 4);
    put(bytes, 40, 4);
    put(bytes, static_cast<std::size_t>(raster.image.width()), 4);
    put(bytes, static_cast<std::size_t>(raster.image.height()), 4);
    put(bytes, 1, 2);
    put(bytes, static_cast<std::size_t>(header.bits), 2);
    put(bytes, rows.coding, 4);
    put(bytes, rows.bytes.size(), 4);
    put(bytes, 0, 8);
    put(bytes, static_cast<std::size_t>(raster.colours.size()), 4);
    put(bytes, 0, 4);
    bytes.insert(bytes.end(), table.begin(), table.end());
    bytes.insert(bytes.end(), rows.bytes.begin(), rows.bytes.end());
    return bytes;
}

}  // namespace orv
