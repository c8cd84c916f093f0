#pragma once

#include <optional>
#include <span>

#include "adapters/pictures/open_file.h"
#include "adapters/pictures/picture_header.h"
#include "platform/machine/picture_library.h"

namespace orv {

/// How many bytes `otherHeader` needs.
inline constexpr std::size_t kHeaderBytes = 32;

/// What the first bytes say when they begin a PNG, BMP or GIF file; nothing otherwise.
std::optional<PictureHeader> otherHeader(std::span<const std::uint8_t> first);

/// The picture (the first, when the file holds several) on white ground, reduced to what is kept. The file is decoded
/// at its full size, within 512 MB.
Pixels otherPixels(const OpenFile& file, const PictureHeader& header);

}  // namespace orv
