#include "adapters/pictures/tiff_file.h"

#include <tiffio.h>
#include <unistd.h>
#include <tiffio.hxx>

#include <memory>
#include <sstream>

#include "adapters/pictures/picture_failure.h"

namespace orv {
namespace {

/// A file can't make the library ask for more at a time.
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

/// What is wrong is told by the results; the library's texts would go to the terminal.
int keepQuiet(TIFF*, void*, const char*, const char*, va_list) { return 1; }

/// Without mapping the file to memory: one that shrinks meanwhile would end the program.
Tiff opened(const OpenFile& file) {
    const std::unique_ptr<TIFFOpenOptions, FreeOptions> options(TIFFOpenOptionsAlloc());
    TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), kLargestPiece);
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), keepQuiet, nullptr);
    TIFFOpenOptionsSetWarningHandlerExtR(options.get(), keepQuiet, nullptr);
    const int descriptor = dup(fileno(file.fromStart()));
    lseek(descriptor, 0, SEEK_SET);
    Tiff tiff(TIFFFdOpenExt(descriptor, "", "rm", options.get()));
    if (!tiff) {
        close(descriptor);
        throw pictureError(PictureFailure::Damaged);
    }
    return tiff;
}

template <typename Number>
Number numberOf(const Tiff& tiff, std::uint32_t tag) {
    Number number{};
    TIFFGetFieldDefaulted(tiff.get(), tag, &number);
    return number;
}

/// Of 8 bits each, whatever the file has.
QList<QRgb> coloursOf(const Tiff& tiff, int bits) {
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

QByteArray profileOf(const Tiff& tiff) {
    std::uint32_t length = 0;
    void* bytes = nullptr;
    if (TIFFGetField(tiff.get(), TIFFTAG_ICCPROFILE, &length, &bytes) != 1) {
        return {};
    }
    return {static_cast<const char*>(bytes), static_cast<qsizetype>(length)};
}

/// Neither print colours nor those that no screen has can be written back from what is read.
bool isWritable(const Raster& raster, const PictureHeader& header) {
    const int depth = depthOf(header);
    const bool own = raster.plainColours && header.channels <= 4 &&
                     (depth == 8 || depth == 16 || (header.channels == 1 && depth < 8));
    return own && header.bits == depth * header.channels && (depth & (depth - 1)) == 0;
}

bool hasPlainColours(const Tiff& tiff) {
    const auto photometric = numberOf<std::uint16_t>(tiff, TIFFTAG_PHOTOMETRIC);
    return photometric <= PHOTOMETRIC_PALETTE || photometric == PHOTOMETRIC_YCBCR;
}

void setKind(const Tiff& tiff, const PictureHeader& header, const Raster& raster) {
    const bool alpha = header.channels == 2 || header.channels == 4;
    const int depth = depthOf(header);
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
    const Tiff tiff = opened(file);
    const int channels = numberOf<std::uint16_t>(tiff, TIFFTAG_SAMPLESPERPIXEL);
    const int depth = numberOf<std::uint16_t>(tiff, TIFFTAG_BITSPERSAMPLE);
    require(channels > 0 && depth > 0 && depth <= 64);
    const auto photometric = numberOf<std::uint16_t>(tiff, TIFFTAG_PHOTOMETRIC);
    return {PictureFormat::Tiff,
            numberOf<std::uint32_t>(tiff, TIFFTAG_IMAGEWIDTH),
            numberOf<std::uint32_t>(tiff, TIFFTAG_IMAGELENGTH),
            channels * depth,
            channels,
            photometric == PHOTOMETRIC_PALETTE};
}

Raster readTiff(const OpenFile& file, const PictureHeader& header) {
    const Tiff tiff = opened(file);
    QImage image(static_cast<int>(header.width), static_cast<int>(header.height),
                 QImage::Format_RGBA8888_Premultiplied);
    require(!image.isNull());
    constexpr int kStopAtError = 1;
    require(TIFFReadRGBAImageOriented(
                tiff.get(), static_cast<std::uint32_t>(header.width), static_cast<std::uint32_t>(header.height),
                reinterpret_cast<std::uint32_t*>(image.bits()), ORIENTATION_TOPLEFT, kStopAtError) == 1);
    return {image, header.indexed ? coloursOf(tiff, depthOf(header)) : QList<QRgb>(), profileOf(tiff),
            hasPlainColours(tiff)};
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
