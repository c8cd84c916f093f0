#include "adapters/pixels/exif_orientation.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "adapters/pixels/byte_order.h"

namespace orv {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kExifMark = "Exif\0\0"sv;
constexpr std::uint64_t kOrientationTag = 0x0112;
constexpr std::size_t kEntrySize = 12;
/// Cameras write Exif first, so only this many segments are searched.
constexpr int kMostSegments = 64;

/// `tiff` follows the mark. Its first letter names the byte order.
int orientationIn(Bytes tiff) {
    const bool highFirst = !tiff.empty() && tiff[0] == 'M';
    const auto number = [=](std::size_t at, std::size_t length) { return numberAt(tiff, at, length, highFirst); };
    const std::size_t directory = number(4, 4);
    const std::size_t entries = number(directory, 2);
    for (std::size_t i = 0; i < entries; ++i) {
        const std::size_t entry = directory + 2 + i * kEntrySize;
        if (number(entry, 2) == kOrientationTag) {
            const auto value = static_cast<int>(number(entry + 8, 2));
            return value >= 1 && value <= 8 ? value : 1;
        }
    }
    return 1;
}

bool isExif(Bytes segment) {
    const std::string_view text(reinterpret_cast<const char*>(segment.data()), segment.size());
    return text.starts_with(kExifMark);
}

struct Segment {
    int marker = 0;
    std::size_t length = 0;
};

/// Comments and application data, which precede the picture's own tables.
bool isSide(int marker) { return (marker >= 0xE0 && marker <= 0xEF) || marker == 0xFE; }

std::optional<Segment> nextSegment(std::FILE* jpeg) {
    std::array<std::uint8_t, 4> head{};
    if (std::fread(head.data(), 1, head.size(), jpeg) != head.size() || head[0] != 0xFF || !isSide(head[1])) {
        return std::nullopt;
    }
    const std::size_t length = static_cast<std::size_t>(head[2] << 8 | head[3]);
    if (length < 2) {
        return std::nullopt;
    }
    return Segment{head[1], length - 2};
}

}  // namespace

int exifOrientation(std::FILE* jpeg) {
    std::fseek(jpeg, 2, SEEK_SET);
    for (int i = 0; i < kMostSegments; ++i) {
        const auto segment = nextSegment(jpeg);
        if (!segment) {
            return 1;
        }
        std::vector<std::uint8_t> bytes(segment->length);
        bytes.resize(std::fread(bytes.data(), 1, bytes.size(), jpeg));
        if (segment->marker == 0xE1 && isExif(bytes)) {
            return orientationIn(Bytes(bytes).subspan(kExifMark.size()));
        }
    }
    return 1;
}

Bitmap turned(const Bitmap& source, int orientation) {
    const bool swap = swapsSides(orientation);
    const bool fromRight = mirrorsColumns(orientation);
    const bool fromBottom = mirrorsLines(orientation);
    Bitmap target =
        blankBitmap(swap ? source.height : source.width, swap ? source.width : source.height, source.channels);
    for (int y = 0; y < target.height; ++y) {
        for (int x = 0; x < target.width; ++x) {
            const int across = swap ? y : x;
            const int down = swap ? x : y;
            const int column = fromRight ? source.width - 1 - across : across;
            const int line = fromBottom ? source.height - 1 - down : down;
            std::copy_n(source.row(line) + static_cast<std::size_t>(column) * source.channels, source.channels,
                        target.row(y) + static_cast<std::size_t>(x) * source.channels);
        }
    }
    return target;
}

}  // namespace orv
