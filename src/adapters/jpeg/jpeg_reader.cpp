#include "adapters/jpeg/jpeg_picture.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>

#include "adapters/jpeg/jpeg_guard.h"
#include "adapters/pixels/exif_orientation.h"
#include "platform/scope.h"
#include "platform/waiting.h"

// jerror.h makes an enumeration of the library's messages, and needs jpeglib.h before it.
#include <jerror.h>

namespace orv {
namespace {

constexpr long kDecoderMemory = 320L * 1024 * 1024;
/// Each pass of a file visits the whole picture. This is 20 passes of the largest picture.
constexpr std::int64_t kPixelPasses = 2'000'000'000;
constexpr int kProfileMarker = JPEG_APP0 + 2;

/// Owns the library's decompressor.
class Decompressor : NonCopyable {
public:
    /// Reads the header after the object is constructed, so that the destructor runs after a failure.
    explicit Decompressor(std::FILE* jpeg) : Decompressor() {
        guard_.guarded([this, jpeg] {
            jpeg_stdio_src(&info_, jpeg);
            jpeg_save_markers(&info_, kProfileMarker, 0xFFFF);
            jpeg_read_header(&info_, TRUE);
        });
    }
    ~Decompressor() { jpeg_destroy_decompress(&info_); }

    const jpeg_decompress_struct& info() const { return info_; }

    std::vector<std::uint8_t> profile() {
        JOCTET* bytes = nullptr;
        unsigned length = 0;
        guard_.guarded([&] { jpeg_read_icc_profile(&info_, &bytes, &length); });
        const std::unique_ptr<JOCTET, decltype(&std::free)> owner(bytes, std::free);
        return {bytes, bytes + length};
    }

    /// Decodes without converting the colours.
    void start(unsigned eighths) {
        info_.out_color_space = info_.jpeg_color_space;
        info_.scale_num = eighths;
        info_.scale_denom = 8;
        guard_.guarded([this] { jpeg_start_decompress(&info_); });
    }

    void readRow(std::uint8_t* row) {
        guard_.guarded([this, row]() mutable { jpeg_read_scanlines(&info_, &row, 1); });
    }

    /// Reads the rest up to the end mark.
    void finish() {
        guard_.guarded([this] { jpeg_finish_decompress(&info_); });
    }

private:
    Decompressor() {
        guard_.watch(reinterpret_cast<j_common_ptr>(&info_));
        guard_.guarded([this] { jpeg_create_decompress(&info_); });
        info_.mem->max_memory_to_use = kDecoderMemory;
        progress_.progress_monitor = watchReading;
        info_.progress = &progress_;
    }

    /// Called by the library repeatedly while it reads.
    static void watchReading(j_common_ptr common) {
        whileWaiting();
        const auto& info = *reinterpret_cast<j_decompress_ptr>(common);
        if (std::int64_t{info.input_scan_number} * info.image_width * info.image_height > kPixelPasses) {
            JpegGuard::leaveWith(common, JERR_NO_BACKING_STORE);
        }
    }

    JpegGuard guard_;
    jpeg_decompress_struct info_{};
    jpeg_progress_mgr progress_{};
};

/// Returns one of these scales only, because the library is slow for the eighths between them.
unsigned smallestScale(double share) {
    unsigned eighths = 1;
    while (eighths < 8 && eighths < share * 8) {
        eighths *= 2;
    }
    return eighths;
}

/// The constants are those of the JPEG file interchange format.
void toLuminance(Bitmap& bitmap) {
    const auto rounded = [](double value) { return static_cast<std::uint8_t>(std::clamp(value + 0.5, 0.0, 255.0)); };
    for (std::size_t at = 0; at < bitmap.samples.size(); at += 3) {
        std::uint8_t* sample = &bitmap.samples[at];
        const double red = sample[0];
        const double green = sample[1];
        const double blue = sample[2];
        const double light = 0.299 * red + 0.587 * green + 0.114 * blue;
        sample[0] = rounded(light);
        sample[1] = rounded(128 + (blue - light) / 1.772);
        sample[2] = rounded(128 + (red - light) / 1.402);
    }
}

bool isKnown(J_COLOR_SPACE colours) {
    return colours == JCS_GRAYSCALE || colours == JCS_YCbCr || colours == JCS_RGB || colours == JCS_CMYK ||
           colours == JCS_YCCK;
}

}  // namespace

PictureHeader jpegHeader(const OpenFile& file) {
    const int orientation = exifOrientation(file.fromStart());
    const bool swap = swapsSides(orientation);
    const Decompressor decompressor(file.fromStart());
    const auto& info = decompressor.info();
    return {PictureFormat::Jpeg,
            swap ? info.image_height : info.image_width,
            swap ? info.image_width : info.image_height,
            info.num_components * info.data_precision,
            info.num_components,
            false,
            orientation};
}

JpegImage jpegImage(const OpenFile& file, double share) {
    Decompressor decompressor(file.fromStart());
    const auto& info = decompressor.info();
    if (!isKnown(info.jpeg_color_space)) {
        throw pictureError(PictureFailure::UnsupportedKind);
    }
    JpegImage image{{}, info.jpeg_color_space, info.saw_Adobe_marker == TRUE, decompressor.profile()};
    decompressor.start(smallestScale(share));
    image.bitmap = blankBitmap(static_cast<int>(info.output_width), static_cast<int>(info.output_height),
                               static_cast<std::size_t>(info.output_components));
    while (info.output_scanline < info.output_height) {
        decompressor.readRow(image.bitmap.row(static_cast<int>(info.output_scanline)));
    }
    decompressor.finish();
    if (image.colours == JCS_RGB) {
        toLuminance(image.bitmap);
        image.colours = JCS_YCbCr;
    }
    return image;
}

}  // namespace orv
