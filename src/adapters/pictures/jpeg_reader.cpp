#include "adapters/pictures/jpeg_reader.h"

#include <jpeglib.h>

#include <algorithm>
#include <array>
#include <csetjmp>

#include "adapters/pictures/exif_orientation.h"
#include "adapters/pictures/picture_failure.h"
#include "adapters/pictures/resample.h"

// jerror.h makes an enumeration of the library's messages, and needs jpeglib.h before it.
#include <jerror.h>

namespace orv {
namespace {

constexpr long kDecoderMemory = 320L * 1024 * 1024;
/// A file in several passes costs a walk over the picture for each; this is 20 passes of the largest picture.
constexpr std::int64_t kPixelPasses = 2'000'000'000;

/// The library only warns of these and goes on with grey areas; here they mean that the picture is not whole.
constexpr auto kFatalWarnings = std::to_array<int>({
    JWRN_JPEG_EOF,
    JWRN_HIT_MARKER,
    JWRN_HUFF_BAD_CODE,
    JWRN_ARITH_BAD_CODE,
    JWRN_MUST_RESYNC,
});

PictureFailure failureOf(int libraryMessage) {
    switch (libraryMessage) {
        case JERR_OUT_OF_MEMORY:
        case JERR_NO_BACKING_STORE:
            return PictureFailure::NeedsTooMuchMemory;
        case JERR_IMAGE_TOO_BIG:
            return PictureFailure::TooManyPixels;
        case JERR_BAD_PRECISION:
        case JERR_SOF_UNSUPPORTED:
        case JERR_COMPONENT_COUNT:
        case JERR_CONVERSION_NOTIMPL:
        case JERR_ARITH_NOTIMPL:
            return PictureFailure::UnsupportedKind;
        default:
            return PictureFailure::Damaged;
    }
}

/// The library's decompressor. Its errors come back by a long jump, which skips destructors, so each call goes
/// through `guarded`, whose step holds nothing but plain values.
class Decompressor {
public:
    /// Reads the header, on an object that is whole by then, so that a failure gives everything back.
    explicit Decompressor(std::FILE* jpeg) : Decompressor() {
        guarded([this, jpeg] {
            jpeg_stdio_src(&info_, jpeg);
            jpeg_read_header(&info_, TRUE);
        });
    }
    Decompressor(const Decompressor&) = delete;
    Decompressor& operator=(const Decompressor&) = delete;
    ~Decompressor() { jpeg_destroy_decompress(&info_); }

    const jpeg_decompress_struct& info() const { return info_; }

    void start(J_COLOR_SPACE colours, unsigned eighths) {
        info_.out_color_space = colours;
        info_.scale_num = eighths;
        info_.scale_denom = 8;
        guarded([this] { jpeg_start_decompress(&info_); });
    }

    void readRow(std::uint8_t* row) {
        guarded([this, row]() mutable { jpeg_read_scanlines(&info_, &row, 1); });
    }

    /// Reads what is left up to the end mark.
    void finish() {
        guarded([this] { jpeg_finish_decompress(&info_); });
    }

private:
    Decompressor() {
        info_.err = jpeg_std_error(&errors_);
        errors_.error_exit = leave;
        errors_.emit_message = judge;
        info_.client_data = this;
        guarded([this] { jpeg_create_decompress(&info_); });
        info_.mem->max_memory_to_use = kDecoderMemory;
        progress_.progress_monitor = countPasses;
        info_.progress = &progress_;
    }

    template <typename Step>
    void guarded(Step step) {
        if (setjmp(back_) != 0) {
            throw pictureError(failureOf(errors_.msg_code));
        }
        step();
    }

    [[noreturn]] static void leave(j_common_ptr info) {
        std::longjmp(static_cast<Decompressor*>(info->client_data)->back_, 1);
    }

    static void judge(j_common_ptr info, int level) {
        const bool warning = level < 0;
        if (warning && std::ranges::count(kFatalWarnings, info->err->msg_code) != 0) {
            leave(info);
        }
    }

    static void countPasses(j_common_ptr info) {
        const auto& self = static_cast<Decompressor*>(info->client_data)->info_;
        if (std::int64_t{self.input_scan_number} * self.image_width * self.image_height > kPixelPasses) {
            info->err->msg_code = JERR_NO_BACKING_STORE;
            leave(info);
        }
    }

    jpeg_decompress_struct info_{};
    jpeg_error_mgr errors_{};
    jpeg_progress_mgr progress_{};
    std::jmp_buf back_{};
};

unsigned smallestScale(const jpeg_decompress_struct& info) {
    const auto longSide = std::max(info.image_width, info.image_height);
    unsigned eighths = 1;
    while (eighths < 8 && longSide * eighths / 8 < kKeptLongSide) {
        eighths *= 2;
    }
    return eighths;
}

bool isPrint(J_COLOR_SPACE colours) { return colours == JCS_CMYK || colours == JCS_YCCK; }

std::uint32_t packed(unsigned red, unsigned green, unsigned blue) {
    return 0xFF000000U | red << 16 | green << 8 | blue;
}

/// `ink`: 255 is none, as Adobe's programs have it.
std::uint32_t fromInk(const std::uint8_t* ink) {
    const auto mixed = [black = ink[3]](unsigned colour) { return (colour * black + 127) / 255; };
    return packed(mixed(ink[0]), mixed(ink[1]), mixed(ink[2]));
}

void appendRow(const jpeg_decompress_struct& info, std::vector<std::uint8_t>& row, std::vector<std::uint32_t>& argb) {
    const bool print = isPrint(info.out_color_space);
    if (print && info.saw_Adobe_marker == FALSE) {
        for (std::uint8_t& ink : row) {
            ink = static_cast<std::uint8_t>(255 - ink);
        }
    }
    const auto step = static_cast<std::size_t>(info.output_components);
    for (std::size_t at = 0; at < row.size(); at += step) {
        argb.push_back(print ? fromInk(&row[at]) : packed(row[at], row[at + 1], row[at + 2]));
    }
}

}  // namespace

PictureHeader jpegHeader(const OpenFile& file) {
    const bool swap = swapsSides(exifOrientation(file.fromStart()));
    const Decompressor decompressor(file.fromStart());
    const auto& info = decompressor.info();
    return {PictureFormat::Jpeg, swap ? info.image_height : info.image_width,
            swap ? info.image_width : info.image_height, info.num_components * info.data_precision};
}

Pixels jpegPixels(const OpenFile& file) {
    const int orientation = exifOrientation(file.fromStart());
    Decompressor decompressor(file.fromStart());
    const auto& info = decompressor.info();
    decompressor.start(isPrint(info.jpeg_color_space) ? JCS_CMYK : JCS_RGB, smallestScale(info));
    Pixels pixels{static_cast<int>(info.output_width), static_cast<int>(info.output_height), {}};
    pixels.argb.reserve(std::size_t{info.output_width} * info.output_height);
    std::vector<std::uint8_t> row(info.output_width * static_cast<std::size_t>(info.output_components));
    while (info.output_scanline < info.output_height) {
        decompressor.readRow(row.data());
        appendRow(info, row, pixels.argb);
    }
    decompressor.finish();
    return upright(pixels, orientation);
}

}  // namespace orv
