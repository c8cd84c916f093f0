#include "adapters/raster/raster_formats.h"

#include <tiffio.h>
#include <tiffio.hxx>

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <memory>
#include <sstream>
#include <utility>
#include <vector>

#include "adapters/pixels/exif_orientation.h"
#include "adapters/pixels/picture_failure.h"
#include "platform/machine/picture_library.h"

namespace orv {
namespace {

/// Limits the memory that the library requests at once for a file.
constexpr tmsize_t kLargestPiece = 400'000'000;

struct Close {
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};
using Tiff = std::unique_ptr<TIFF, Close>;

struct FreeOptions {
    void operator()(TIFFOpenOptions* options) const { TIFFOpenOptionsFree(options); }
};

void require(bool whole) {
    if (!whole) {
        throw pictureError(PictureFailure::Damaged);
    }
}

/// Failures are reported through results; the library's messages would go to the terminal.
int keepQuiet(TIFF*, void*, const char*, const char*, va_list) { return 1; }

// The library reads through these functions: its own ones take another kind of descriptor on each system.

std::FILE* toFile(thandle_t handle) { return static_cast<std::FILE*>(handle); }

tmsize_t readPart(thandle_t handle, void* bytes, tmsize_t size) {
    return static_cast<tmsize_t>(std::fread(bytes, 1, static_cast<std::size_t>(size), toFile(handle)));
}

tmsize_t writeNothing(thandle_t, void*, tmsize_t) { return 0; }

toff_t seekTo(thandle_t handle, toff_t offset, int origin) {
    constexpr auto kNowhere = static_cast<toff_t>(-1);
    const bool isPossible = offset <= static_cast<toff_t>(std::numeric_limits<long>::max());
    const bool isDone = isPossible && std::fseek(toFile(handle), static_cast<long>(offset), origin) == 0;
    return isDone ? static_cast<toff_t>(std::ftell(toFile(handle))) : kNowhere;
}

int keepOpen(thandle_t) { return 0; }

/// Leaves the position as it is.
toff_t measureSize(thandle_t handle) {
    const long place = std::ftell(toFile(handle));
    const toff_t size = seekTo(handle, 0, SEEK_END);
    std::fseek(toFile(handle), place, SEEK_SET);
    return size;
}

/// Does not map the file to memory, because a file that shrinks meanwhile would crash the program. The file must remain
/// open.
Tiff openTiff(const OpenFile& file) {
    const std::unique_ptr<TIFFOpenOptions, FreeOptions> options(TIFFOpenOptionsAlloc());
    TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), kLargestPiece);
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), keepQuiet, nullptr);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), keepQuiet, nullptr);
    Tiff tiff(TIFFClientOpenExt("", "rm", file.fromStart(), readPart, writeNothing, seekTo, keepOpen, measureSize,
                                nullptr, nullptr, options.get()));
    require(tiff != nullptr);
    return tiff;
}

template <typename Number>
Number readNumber(const Tiff& tiff, std::uint32_t tag) {
    Number number{};
    TIFFGetFieldDefaulted(tiff.get(), tag, &number);
    return number;
}

/// Returns colours of 8 bits each, whatever depth the file has.
QList<QRgb> readColours(const Tiff& tiff, int bits) {
    std::uint16_t* red = nullptr;
    std::uint16_t* green = nullptr;
    std::uint16_t* blue = nullptr;
    require(bits <= 8 && TIFFGetField(tiff.get(), TIFFTAG_COLORMAP, &red, &green, &blue) == 1);
    QList<QRgb> colours;
    for (int i = 0; i < 1 << bits; ++i) {
        colours.push_back(qRgb(red[i] >> 8, green[i] >> 8, blue[i] >> 8));
    }
    return colours;
}

QByteArray readProfile(const Tiff& tiff) {
    std::uint32_t length = 0;
    void* bytes = nullptr;
    if (TIFFGetField(tiff.get(), TIFFTAG_ICCPROFILE, &length, &bytes) != 1) {
        return {};
    }
    return {static_cast<const char*>(bytes), static_cast<qsizetype>(length)};
}

/// Print colours, and colours that no screen has, cannot be written back from the decoded picture.
bool isWritable(const Raster& raster, const PictureHeader& header) {
    const int depth = bitDepth(header);
    const bool own = raster.plainColours && header.channels <= 4 &&
                     (depth == 8 || depth == 16 || (header.channels == 1 && depth < 8));
    return own && header.bits == depth * header.channels && (depth & (depth - 1)) == 0;
}

/// True if the library can convert the samples to 8 bits. Deeper ones would lose precision.
bool hasPlainColours(const Tiff& tiff, const PictureHeader& header) {
    const auto photometric = readNumber<std::uint16_t>(tiff, TIFFTAG_PHOTOMETRIC);
    return bitDepth(header) <= 8 && (photometric <= PHOTOMETRIC_PALETTE || photometric == PHOTOMETRIC_YCBCR);
}

/// A memory layout of rows that equals the one in the file.
struct RowKind {
    int photometric;
    int channels;
    int depth;
    QImage::Format format;
};
constexpr auto kRowKinds = std::to_array<RowKind>({
    {PHOTOMETRIC_MINISBLACK, 1, 8, QImage::Format_Grayscale8},
    {PHOTOMETRIC_MINISBLACK, 1, 16, QImage::Format_Grayscale16},
    {PHOTOMETRIC_RGB, 3, 8, QImage::Format_RGB888},
    {PHOTOMETRIC_RGB, 3, 16, QImage::Format_RGBX64},
});

/// Returns Format_Invalid if the file has other rows, or none.
QImage::Format rowFormat(const Tiff& tiff, const PictureHeader& header) {
    const bool rows = TIFFIsTiled(tiff.get()) == 0 &&
                      readNumber<std::uint16_t>(tiff, TIFFTAG_PLANARCONFIG) == PLANARCONFIG_CONTIG &&
                      readNumber<std::uint16_t>(tiff, TIFFTAG_SAMPLEFORMAT) == SAMPLEFORMAT_UINT;
    const auto photometric = readNumber<std::uint16_t>(tiff, TIFFTAG_PHOTOMETRIC);
    const auto kind = std::ranges::find_if(kRowKinds, [&](const RowKind& one) {
        return one.photometric == photometric && one.channels == header.channels && one.depth == bitDepth(header);
    });
    return rows && kind != kRowKinds.end() ? kind->format : QImage::Format_Invalid;
}

QImage blankImage(PictureSize size, QImage::Format format) {
    QImage image(size.width, size.height, format);
    if (image.isNull()) {
        throw pictureError(PictureFailure::NeedsTooMuchMemory);
    }
    return image;
}

void putRow(const std::vector<std::uint8_t>& row, QImage& image, int y) {
    if (image.format() != QImage::Format_RGBX64) {
        std::ranges::copy(row, image.scanLine(y));
        return;
    }
    constexpr std::size_t kPixel = 3 * sizeof(std::uint16_t);
    uchar* target = image.scanLine(y);
    for (std::size_t at = 0; at < row.size(); at += kPixel) {
        target = std::copy_n(&row[at], kPixel, target);
        target = std::fill_n(target, sizeof(std::uint16_t), static_cast<uchar>(0xFF));
    }
}

QImage readRows(const Tiff& tiff, const PictureHeader& header, PictureSize stored, QImage::Format format) {
    QImage image = blankImage(stored, format);
    std::vector<std::uint8_t> row(static_cast<std::size_t>(TIFFScanlineSize(tiff.get())));
    require(row.size() == static_cast<std::size_t>(stored.width) * static_cast<std::size_t>(header.bits / 8));
    for (int y = 0; y < stored.height; ++y) {
        require(TIFFReadScanline(tiff.get(), row.data(), static_cast<std::uint32_t>(y)) == 1);
        putRow(row, image, y);
    }
    return image;
}

QImage readByLibrary(const Tiff& tiff, PictureSize stored, int orientation) {
    QImage image = blankImage(stored, QImage::Format_RGBA8888_Premultiplied);
    constexpr int kStopAtError = 1;
    require(TIFFReadRGBAImageOriented(tiff.get(), static_cast<std::uint32_t>(stored.width),
                                      static_cast<std::uint32_t>(stored.height),
                                      reinterpret_cast<std::uint32_t*>(image.bits()), orientation, kStopAtError) == 1);
    return image;
}

void setKind(const Tiff& tiff, const PictureHeader& header, const Raster& raster) {
    const bool alpha = header.channels == 2 || header.channels == 4;
    const int depth = bitDepth(header);
    TIFFSetField(tiff.get(), TIFFTAG_SAMPLESPERPIXEL, header.channels);
    TIFFSetField(tiff.get(), TIFFTAG_BITSPERSAMPLE, depth);
    TIFFSetField(tiff.get(), TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff.get(), TIFFTAG_PHOTOMETRIC,
                 header.indexed        ? PHOTOMETRIC_PALETTE
                 : header.channels < 3 ? PHOTOMETRIC_MINISBLACK
                                       : PHOTOMETRIC_RGB);
    if (alpha) {
        const std::uint16_t kind = EXTRASAMPLE_UNASSALPHA;
        TIFFSetField(tiff.get(), TIFFTAG_EXTRASAMPLES, 1, &kind);
    }
    TIFFSetField(tiff.get(), TIFFTAG_COMPRESSION, depth == 1 ? COMPRESSION_CCITTFAX4 : COMPRESSION_ADOBE_DEFLATE);
    if (depth >= 8) {
        TIFFSetField(tiff.get(), TIFFTAG_ZIPQUALITY, 9);
        TIFFSetField(tiff.get(), TIFFTAG_PREDICTOR, header.indexed ? PREDICTOR_NONE : PREDICTOR_HORIZONTAL);
    }
    if (!raster.profile.isEmpty()) {
        TIFFSetField(tiff.get(), TIFFTAG_ICCPROFILE, static_cast<std::uint32_t>(raster.profile.size()),
                     raster.profile.constData());
    }
}

void setColours(const Tiff& tiff, const QList<QRgb>& colours, int bits) {
    std::vector<std::uint16_t> red;
    std::vector<std::uint16_t> green;
    std::vector<std::uint16_t> blue;
    for (const QRgb colour : colours) {
        red.push_back(static_cast<std::uint16_t>(qRed(colour) * 257));
        green.push_back(static_cast<std::uint16_t>(qGreen(colour) * 257));
        blue.push_back(static_cast<std::uint16_t>(qBlue(colour) * 257));
    }
    for (auto* channel : {&red, &green, &blue}) {
        channel->resize(1U << bits);
    }
    TIFFSetField(tiff.get(), TIFFTAG_COLORMAP, red.data(), green.data(), blue.data());
}

}  // namespace

PictureHeader tiffHeader(const OpenFile& file) {
    const Tiff tiff = openTiff(file);
    const int channels = readNumber<std::uint16_t>(tiff, TIFFTAG_SAMPLESPERPIXEL);
    const int depth = readNumber<std::uint16_t>(tiff, TIFFTAG_BITSPERSAMPLE);
    require(channels > 0 && depth > 0 && depth <= 64);
    const auto photometric = readNumber<std::uint16_t>(tiff, TIFFTAG_PHOTOMETRIC);
    const int asked = readNumber<std::uint16_t>(tiff, TIFFTAG_ORIENTATION);
    const int orientation = asked >= 1 && asked <= 8 ? asked : 1;
    const auto width = readNumber<std::uint32_t>(tiff, TIFFTAG_IMAGEWIDTH);
    const auto height = readNumber<std::uint32_t>(tiff, TIFFTAG_IMAGELENGTH);
    const bool swap = swapsSides(orientation);
    return {PictureFormat::Tiff,
            swap ? height : width,
            swap ? width : height,
            channels * depth,
            channels,
            photometric == PHOTOMETRIC_PALETTE,
            orientation};
}

Raster readTiff(const OpenFile& file, const PictureHeader& header) {
    const Tiff tiff = openTiff(file);
    const PictureSize size{static_cast<int>(header.width), static_cast<int>(header.height)};
    const PictureSize stored = swapsSides(header.orientation) ? PictureSize{size.height, size.width} : size;
    const QImage::Format format = rowFormat(tiff, header);
    const bool inRows = format != QImage::Format_Invalid;
    QImage image = inRows ? readRows(tiff, header, stored, format) : readByLibrary(tiff, stored, header.orientation);
    return {std::move(image), header.indexed ? readColours(tiff, bitDepth(header)) : QList<QRgb>(), readProfile(tiff),
            inRows || hasPlainColours(tiff, header)};
}

std::vector<std::uint8_t> tiffBytes(const Raster& raster, const PictureHeader& header) {
    if (!isWritable(raster, header)) {
        throw pictureError(PictureFailure::NotWritable);
    }
    std::ostringstream stream;
    {
        const Tiff tiff(TIFFStreamOpen("", &stream));
        require(tiff != nullptr);
        const int height = raster.image.height();
        TIFFSetField(tiff.get(), TIFFTAG_IMAGEWIDTH, raster.image.width());
        TIFFSetField(tiff.get(), TIFFTAG_IMAGELENGTH, height);
        TIFFSetField(tiff.get(), TIFFTAG_ROWSPERSTRIP, height);
        setKind(tiff, header, raster);
        if (header.indexed) {
            setColours(tiff, raster.colours, header.bits);
        }
        for (int y = 0; y < height; ++y) {
            auto row = packedRow(raster, header, y);
            require(TIFFWriteScanline(tiff.get(), row.data(), static_cast<std::uint32_t>(y)) == 1);
        }
    }
    const std::string bytes = stream.str();
    return {bytes.begin(), bytes.end()};
}

}  // namespace orv
