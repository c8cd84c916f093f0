#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <vector>

#include "adapters/pixels/picture_header.h"

namespace orv {

/// A decoded picture of one of the lossless formats.
struct Raster {
    QImage image;
    /// The colours in an indexed picture's file, which are the only ones written back.
    QList<QRgb> colours;
    QByteArray profile;
    /// True if the samples have the usual meaning for their number: grey, RGB, alpha, colour table.
    bool plainColours = true;
};

/// Returns the bits of one sample.
constexpr int bitDepth(const PictureHeader& header) { return header.bits / header.channels; }

/// Returns one row's indices into the colour table, one byte each.
std::vector<std::uint8_t> toIndices(const Raster& raster, int y);

/// Returns one row in the form of `header`: indices, grey, grey and alpha, RGB or RGBA. 16-bit samples have the
/// machine's byte order. Samples smaller than a byte are packed, the first in the highest bits.
std::vector<std::uint8_t> packedRow(const Raster& raster, const PictureHeader& header, int y);

}  // namespace orv
