#include "plain_jpeg.h"

#include <cstdio>

#include <jpeglib.h>

#include <cmath>
#include <cstdlib>
#include <memory>
#include <stdexcept>

#include "adapters/pixels/resampler.h"

namespace bench {
namespace {

using File = std::unique_ptr<std::FILE, decltype(&std::fclose)>;

struct Sums {
    double a = 0, b = 0, aa = 0, bb = 0, ab = 0;
};

Sums windowSums(const orv::Bitmap& one, const orv::Bitmap& two, int left, int top, int side) {
    Sums sums;
    for (int y = top; y < top + side; ++y) {
        for (int x = left; x < left + side; ++x) {
            const double a = one.row(y)[x];
            const double b = two.row(y)[x];
            sums.a += a;
            sums.b += b;
            sums.aa += a * a;
            sums.bb += b * b;
            sums.ab += a * b;
        }
    }
    return sums;
}

/// The constants are those of the measure's authors for 8 bits per sample.
double windowLikeness(const Sums& sums, int count) {
    constexpr double kSmall = 6.5025;
    constexpr double kSmallSpread = 58.5225;
    const double a = sums.a / count;
    const double b = sums.b / count;
    const double spread = sums.aa / count - a * a + sums.bb / count - b * b;
    const double common = sums.ab / count - a * b;
    return (2 * a * b + kSmall) * (2 * common + kSmallSpread) / ((a * a + b * b + kSmall) * (spread + kSmallSpread));
}

}  // namespace

orv::Bitmap decoded(const std::string& path, bool onlyLight, unsigned eighths) {
    const File file(std::fopen(path.c_str(), "rb"), std::fclose);
    if (!file) {
        throw std::runtime_error(path);
    }
    jpeg_decompress_struct jpeg{};
    jpeg_error_mgr errors{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&jpeg);
    jpeg_stdio_src(&jpeg, file.get());
    jpeg_read_header(&jpeg, TRUE);
    jpeg.out_color_space = onlyLight ? JCS_GRAYSCALE : JCS_YCbCr;
    jpeg.scale_num = eighths;
    jpeg.scale_denom = 8;
    jpeg_start_decompress(&jpeg);
    orv::Bitmap bitmap = orv::blankBitmap(static_cast<int>(jpeg.output_width), static_cast<int>(jpeg.output_height),
                                          static_cast<std::size_t>(jpeg.output_components));
    while (jpeg.output_scanline < jpeg.output_height) {
        JSAMPROW row = bitmap.row(static_cast<int>(jpeg.output_scanline));
        jpeg_read_scanlines(&jpeg, &row, 1);
    }
    jpeg_finish_decompress(&jpeg);
    jpeg_destroy_decompress(&jpeg);
    return bitmap;
}

std::size_t encoded(const orv::Bitmap& bitmap, int libraryQuality) {
    jpeg_compress_struct jpeg{};
    jpeg_error_mgr errors{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&jpeg, &bytes, &size);
    jpeg.image_width = static_cast<JDIMENSION>(bitmap.width);
    jpeg.image_height = static_cast<JDIMENSION>(bitmap.height);
    jpeg.input_components = 3;
    jpeg.in_color_space = JCS_YCbCr;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, libraryQuality, TRUE);
    jpeg.optimize_coding = TRUE;
    jpeg_start_compress(&jpeg, TRUE);
    for (int y = 0; y < bitmap.height; ++y) {
        auto* row = const_cast<JSAMPROW>(bitmap.row(y));
        jpeg_write_scanlines(&jpeg, &row, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    std::free(bytes);
    return size;
}

orv::Bitmap resampled(const orv::Bitmap& source, int width, int height) {
    orv::Bitmap target{width, height, source.channels, {}};
    orv::Resampler<std::uint8_t> resampler(
        {source.width, source.height}, {width, height}, source.channels,
        [&target](const auto& row) { target.samples.insert(target.samples.end(), row.begin(), row.end()); });
    for (int y = 0; y < source.height; ++y) {
        resampler.push(source.row(y));
    }
    return target;
}

Likeness likeness(const orv::Bitmap& reference, const orv::Bitmap& other) {
    if (reference.width != other.width || reference.height != other.height) {
        throw std::runtime_error("the pictures are not of one size");
    }
    double error = 0;
    for (std::size_t i = 0; i < reference.samples.size(); ++i) {
        const double difference = static_cast<double>(reference.samples[i]) - other.samples[i];
        error += difference * difference;
    }
    constexpr int kSide = 8;
    constexpr int kStep = 4;
    double sum = 0;
    int windows = 0;
    for (int y = 0; y + kSide <= reference.height; y += kStep) {
        for (int x = 0; x + kSide <= reference.width; x += kStep) {
            sum += windowLikeness(windowSums(reference, other, x, y, kSide), kSide * kSide);
            ++windows;
        }
    }
    const double mean = error / static_cast<double>(reference.samples.size());
    return {10 * std::log10(255.0 * 255.0 / mean), sum / windows};
}

}  // namespace bench
