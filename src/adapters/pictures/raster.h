#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <vector>

#include "adapters/pictures/picture_header.h"

namespace orv {

/// A decoded picture of one of the formats without loss.
struct Raster {
    QImage image;
    /// Of an indexed picture: the colours that its file has, and the only ones that it gets back.
    QList<QRgb> colours;
    QByteArray profile;
    /// The samples mean what those of the same number in the other formats mean: grey, RGB, alpha, a table's places.
    bool plainColours = true;
};

/// Bits of one sample.
constexpr int depthOf(const PictureHeader& header) { return header.bits / header.channels; }

/// The places in the table of colours of one row, a byte each.
std::vector<std::uint8_t> indicesOf(const Raster& raster, int y);

/// One row as `header` has its samples: places in the table, grey, grey and alpha, RGB or RGBA. Of 16 bits in the
/// machine's own order; what is narrower than a byte is packed, the first in the highest bits.
std::vector<std::uint8_t> packedRow(const Raster& raster, const PictureHeader& header, int y);

}  // namespace orv
