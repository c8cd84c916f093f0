#include "adapters/raster/raster_formats.h"

#include <png.h>

#include <algorithm>
#include <array>

#include "platform/run_time_error.h"
#include "platform/scope.h"

namespace orv {
namespace {

using Written = std::vector<std::uint8_t>;

/// The library's writer. An error returns by a long jump, so each step has only plain values.
class Writer : NonCopyable {
public:
    Writer() : png_(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr)) {
        info_ = png_ == nullptr ? nullptr : png_create_info_struct(png_);
        if (info_ == nullptr) {
            png_destroy_write_struct(&png_, nullptr);
            throw RunTimeError(Failure::OutOfMemory);
        }
        png_set_write_fn(png_, &written_, append, nullptr);
    }
    ~Writer() { png_destroy_write_struct(&png_, &info_); }

    template <typename Step>
    void guarded(Step step) {
        if (setjmp(png_jmpbuf(png_)) != 0) {
            throw RunTimeError(Failure::Internal);
        }
        step(png_, info_);
    }
    Written written() { return std::move(written_); }

private:
    static void append(png_structp png, png_bytep bytes, png_size_t count) {
        auto& written = *static_cast<Written*>(png_get_io_ptr(png));
        written.insert(written.end(), bytes, bytes + count);
    }

    Written written_;
    png_structp png_;
    png_infop info_ = nullptr;
};

int colourType(const PictureHeader& header) {
    constexpr std::array kByChannels{PNG_COLOR_TYPE_GRAY, PNG_COLOR_TYPE_GRAY_ALPHA, PNG_COLOR_TYPE_RGB,
                                     PNG_COLOR_TYPE_RGB_ALPHA};
    return header.indexed ? PNG_COLOR_TYPE_PALETTE : kByChannels[static_cast<std::size_t>(header.channels - 1)];
}

void setColours(png_structp png, png_infop info, const QList<QRgb>& colours) {
    std::array<png_color, 256> map{};
    std::array<png_byte, 256> alpha{};
    int seeThrough = 0;
    const int count = static_cast<int>(std::min<qsizetype>(colours.size(), 256));
    for (int i = 0; i < count; ++i) {
        const auto place = static_cast<std::size_t>(i);
        map[place] = {static_cast<png_byte>(qRed(colours[i])), static_cast<png_byte>(qGreen(colours[i])),
                      static_cast<png_byte>(qBlue(colours[i]))};
        alpha[place] = static_cast<png_byte>(qAlpha(colours[i]));
        seeThrough = alpha[place] < 255 ? i + 1 : seeThrough;
    }
    png_set_PLTE(png, info, map.data(), count);
    if (seeThrough > 0) {
        png_set_tRNS(png, info, alpha.data(), seeThrough, nullptr);
    }
}

Written written(const Raster& raster, const PictureHeader& header, int filters) {
    Writer writer;
    writer.guarded([&](png_structp png, png_infop info) {
        constexpr int kTightest = 9;
        png_set_compression_level(png, kTightest);
        png_set_filter(png, PNG_FILTER_TYPE_BASE, filters);
        png_set_IHDR(png, info, static_cast<png_uint_32>(raster.image.width()),
                     static_cast<png_uint_32>(raster.image.height()), bitDepth(header), colourType(header),
                     PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        if (header.indexed) {
            setColours(png, info, raster.colours);
        }
        if (!raster.profile.isEmpty()) {
            png_set_iCCP(png, info, "icc", PNG_COMPRESSION_TYPE_BASE,
                         reinterpret_cast<png_const_bytep>(raster.profile.constData()),
                         static_cast<png_uint_32>(raster.profile.size()));
        }
        png_write_info(png, info);
        if (bitDepth(header) == 16) {
            png_set_swap(png);
        }
    });
    for (int y = 0; y < raster.image.height(); ++y) {
        const auto row = packedRow(raster, header, y);
        writer.guarded([bytes = row.data()](png_structp png, png_infop) { png_write_row(png, bytes); });
    }
    writer.guarded([](png_structp png, png_infop info) { png_write_end(png, info); });
    return writer.written();
}

}  // namespace

Written pngBytes(const Raster& raster, const PictureHeader& header) {
    Written filtered = written(raster, header, PNG_ALL_FILTERS);
    Written plain = written(raster, header, PNG_FILTER_NONE);
    return plain.size() < filtered.size() ? plain : filtered;
}

}  // namespace orv
