#include "adapters/pictures/picture_end.h"

#include <array>
#include <cstdlib>

#include "adapters/pictures/byte_order.h"
#include "adapters/pictures/picture_failure.h"

namespace orv {
namespace {

/// The file byte by byte. Its end is a damaged picture.
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

// BMP

enum Compression : std::uint64_t { kRuns8 = 1, kRuns4 = 2 };

/// Walks the run-length codes up to the one that ends the picture.
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

// GIF

/// The codes of one picture, out of its chain of blocks; an empty block ends the chain.
class CodeStream {
public:
    explicit CodeStream(ByteStream& stream) : stream_(stream) {}

    unsigned next(unsigned bits) {
        while (held_ < bits) {
            buffer_ |= nextByte() << held_;
            held_ += 8;
        }
        const unsigned code = buffer_ & ((1U << bits) - 1);
        buffer_ >>= bits;
        held_ -= bits;
        return code;
    }

private:
    unsigned nextByte() {
        if (left_ == 0) {
            left_ = stream_.next();
        }
        if (left_ == 0) {
            throw pictureError(PictureFailure::Damaged);
        }
        --left_;
        return stream_.next();
    }

    ByteStream& stream_;
    unsigned buffer_ = 0;
    unsigned held_ = 0;
    unsigned left_ = 0;
};

/// How many pixels each code stands for; all that is needed of a decoder to see whether the picture is complete.
class CodeLengths {
public:
    explicit CodeLengths(unsigned rootBits) : rootBits_(rootBits) { clear(); }

    unsigned bits() const { return bits_; }
    unsigned clearCode() const { return 1U << rootBits_; }

    void clear() {
        bits_ = rootBits_ + 1;
        next_ = clearCode() + 2;
        last_ = 0;
    }

    std::uint64_t take(unsigned code) {
        const bool known = code < clearCode() || (code > clearCode() + 1 && code < next_);
        if (!known && (code != next_ || last_ == 0)) {
            throw pictureError(PictureFailure::Damaged);
        }
        const unsigned length = code < clearCode() ? 1 : known ? lengths_[code] : last_ + 1;
        if (last_ != 0 && next_ < lengths_.size()) {
            lengths_[next_++] = last_ + 1;
            bits_ += next_ == 1U << bits_ && bits_ < 12 ? 1U : 0U;
        }
        last_ = length;
        return length;
    }

private:
    unsigned rootBits_;
    unsigned bits_ = 0;
    unsigned next_ = 0;
    unsigned last_ = 0;
    std::array<unsigned, 4096> lengths_{};
};

void requirePixels(ByteStream& stream, std::uint64_t pixels) {
    const unsigned rootBits = stream.next();
    if (rootBits < 1 || rootBits > 8) {
        throw pictureError(PictureFailure::Damaged);
    }
    CodeStream codes(stream);
    CodeLengths lengths(rootBits);
    std::uint64_t seen = 0;
    while (seen < pixels) {
        const unsigned code = codes.next(lengths.bits());
        if (code == lengths.clearCode() + 1) {
            throw pictureError(PictureFailure::Damaged);
        }
        if (code == lengths.clearCode()) {
            lengths.clear();
        } else {
            seen += lengths.take(code);
        }
    }
}

unsigned tableBytes(unsigned flags) { return (flags & 0x80) != 0 ? 3U << ((flags & 7) + 1) : 0; }

void skipBlocks(ByteStream& stream) {
    while (const unsigned length = stream.next()) {
        stream.skip(length);
    }
}

unsigned twoBytes(ByteStream& stream) {
    const unsigned low = stream.next();
    return low | stream.next() << 8;
}

void requireWholeGif(const OpenFile& file) {
    constexpr unsigned kExtension = 0x21;
    constexpr unsigned kPicture = 0x2C;
    ByteStream stream(file, 10);
    const unsigned flags = stream.next();
    stream.skip(2 + tableBytes(flags));
    unsigned introducer = stream.next();
    for (; introducer == kExtension; introducer = stream.next()) {
        stream.skip(1);
        skipBlocks(stream);
    }
    if (introducer != kPicture) {
        throw pictureError(PictureFailure::Damaged);
    }
    stream.skip(4);
    const std::uint64_t width = twoBytes(stream);
    const std::uint64_t height = twoBytes(stream);
    stream.skip(tableBytes(stream.next()));
    requirePixels(stream, width * height);
}

}  // namespace

void requireWhole(const OpenFile& file, PictureFormat format) {
    if (format == PictureFormat::Bmp) {
        requireWholeBmp(file);
    } else if (format == PictureFormat::Gif) {
        requireWholeGif(file);
    }
}

}  // namespace orv
