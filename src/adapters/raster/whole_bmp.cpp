#include "adapters/raster/raster_formats.h"

#include <cstdlib>

#include "adapters/pixels/byte_order.h"
#include "adapters/pixels/picture_failure.h"

namespace orv {
namespace {

/// Reads the file byte by byte. An unexpected end means a damaged picture.
class ByteStream {
public:
    explicit ByteStream(const OpenFile& file, long from) : stream_(file.fromStart()) {
        std::fseek(stream_, from, SEEK_SET);
    }
    unsigned next() {
        const int byte = std::fgetc(stream_);
        if (byte == EOF) {
            throw pictureError(PictureFailure::Damaged);
        }
        return static_cast<unsigned>(byte);
    }
    void skip(unsigned count) {
        for (unsigned i = 0; i < count; ++i) {
            next();
        }
    }

private:
    std::FILE* stream_;
};

enum Compression : std::uint64_t { kRuns8 = 1, kRuns4 = 2 };

/// Reads the run-length codes up to the one that ends the picture.
void walkRuns(ByteStream stream, bool halfBytes) {
    while (true) {
        const unsigned count = stream.next();
        const unsigned code = stream.next();
        if (count != 0 || code == 0) {
            continue;
        }
        if (code == 1) {
            return;
        }
        const unsigned literal = halfBytes ? (code + 1) / 2 : code;
        stream.skip(code == 2 ? 2 : literal + literal % 2);
    }
}

}  // namespace

void requireWholeBmp(const OpenFile& file) {
    constexpr std::uint64_t kOldKind = 12;
    const auto first = file.firstBytes(54);
    const bool old = lowFirst(first, 14, 4) == kOldKind;
    const auto compression = old ? 0 : lowFirst(first, 30, 4);
    const auto start = lowFirst(first, 10, 4);
    if (compression == kRuns8 || compression == kRuns4) {
        return walkRuns(ByteStream(file, static_cast<long>(start)), compression == kRuns4);
    }
    const auto side = [&](std::size_t at) {
        return old ? lowFirst(first, at, 2)
                   : static_cast<std::uint64_t>(
                         std::abs(std::int64_t{static_cast<std::int32_t>(lowFirst(first, at, 4))}));
    };
    const auto rowBytes = (side(18) * lowFirst(first, old ? 24 : 28, 2) + 31) / 32 * 4;
    if (start + rowBytes * side(old ? 20 : 22) > static_cast<std::uint64_t>(file.size())) {
        throw pictureError(PictureFailure::Damaged);
    }
}

}  // namespace orv
