#include "adapters/pictures/jpeg_writer.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>
#include <span>

#include "adapters/pictures/jpeg_guard.h"
#include "adapters/pictures/quality_map.h"

namespace orv {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// The library's compressor, writing to memory.
class Compressor {
public:
    Compressor() {
        guard_.watch(reinterpret_cast<j_common_ptr>(&info_));
        guard_.guarded([this] {
            jpeg_create_compress(&info_);
            jpeg_mem_dest(&info_, &bytes_, &size_);
        });
    }
    Compressor(const Compressor&) = delete;
    Compressor& operator=(const Compressor&) = delete;
    ~Compressor() {
        jpeg_destroy_compress(&info_);
        std::free(bytes_);
    }

    jpeg_compress_struct& info() { return info_; }
    template <typename Step>
    void guarded(Step step) {
        guard_.guarded(step);
    }
    /// What has been written, after the library's last call.
    Bytes written() const { return {bytes_, bytes_ + size_}; }

private:
    JpegGuard guard_;
    jpeg_compress_struct info_{};
    unsigned char* bytes_ = nullptr;
    unsigned long size_ = 0;
};

std::vector<unsigned> entriesOf(const jpeg_compress_struct& info) {
    std::vector<unsigned> entries;
    for (const JQUANT_TBL* table : std::span(info.quant_tbl_ptrs)) {
        if (table != nullptr) {
            entries.insert(entries.end(), std::begin(table->quantval), std::end(table->quantval));
        }
    }
    return entries;
}

void scaleTables(jpeg_compress_struct& info, int quality) {
    constexpr int kBasic = 100;
    jpeg_set_linear_quality(&info, kBasic, TRUE);
    static const auto kSteps = realSteps(entriesOf(info));
    const double scale = tableScale(kSteps[static_cast<std::size_t>(quality)]);
    for (JQUANT_TBL* table : std::span(info.quant_tbl_ptrs)) {
        if (table != nullptr) {
            for (UINT16& entry : table->quantval) {
                entry = static_cast<UINT16>(scaledEntry(entry, scale));
            }
        }
    }
}

constexpr int kBlock = DCTSIZE;

int filledUp(int side, int unit) { return (side + unit - 1) / unit * unit; }

/// One channel, at half its size or whole, its last places repeated up to the edge of the blocks.
Bitmap planeOf(const Bitmap& source, std::size_t channel, int unit, bool halved) {
    const int shrink = halved ? 2 : 1;
    const int count = shrink * shrink;
    Bitmap plane = blankBitmap(filledUp(source.width, unit) / shrink, filledUp(source.height, unit) / shrink, 1);
    for (int y = 0; y < plane.height; ++y) {
        std::uint8_t* target = plane.row(y);
        for (int x = 0; x < plane.width; ++x) {
            int sum = count / 2;
            for (int i = 0; i < count; ++i) {
                const int line = std::min(y * shrink + i / shrink, source.height - 1);
                const int column = std::min(x * shrink + i % shrink, source.width - 1);
                sum += source.row(line)[static_cast<std::size_t>(column) * source.channels + channel];
            }
            *target++ = static_cast<std::uint8_t>(sum / count);
        }
    }
    return plane;
}

/// Whether these colours have channels of half the size; as the library sets it.
bool halvesColours(J_COLOR_SPACE colours) { return colours == JCS_YCbCr || colours == JCS_YCCK; }

/// Hands one row of blocks of every plane to the library.
void writeBlocks(jpeg_compress_struct& info, const std::vector<Bitmap>& planes, int blockRow) {
    std::array<std::array<JSAMPROW, kBlock * 2>, MAX_COMPONENTS> rows{};
    std::array<JSAMPARRAY, MAX_COMPONENTS> data{};
    for (std::size_t i = 0; i < planes.size(); ++i) {
        const int count = kBlock * info.comp_info[i].v_samp_factor;
        for (int y = 0; y < count; ++y) {
            // The library only reads, but does not say so.
            rows[i][static_cast<std::size_t>(y)] = const_cast<JSAMPROW>(planes[i].row(blockRow * count + y));
        }
        data[i] = rows[i].data();
    }
    jpeg_write_raw_data(&info, data.data(), static_cast<JDIMENSION>(kBlock * info.max_v_samp_factor));
}

}  // namespace

JpegWriter::JpegWriter(const JpegImage& image)
    : width_(image.bitmap.width),
      height_(image.bitmap.height),
      colours_(image.colours),
      adobe_(image.adobe),
      profile_(image.profile) {
    const bool halves = halvesColours(colours_);
    for (std::size_t channel = 0; channel < image.bitmap.channels; ++channel) {
        const bool isColour = channel == 1 || channel == 2;
        planes_.push_back(planeOf(image.bitmap, channel, halves ? kBlock * 2 : kBlock, halves && isColour));
    }
}

Bytes JpegWriter::written(int quality) const {
    Compressor compressor;
    jpeg_compress_struct& info = compressor.info();
    info.image_width = static_cast<JDIMENSION>(width_);
    info.image_height = static_cast<JDIMENSION>(height_);
    info.input_components = static_cast<int>(planes_.size());
    info.in_color_space = colours_;
    compressor.guarded([&] {
        jpeg_set_defaults(&info);
        jpeg_set_colorspace(&info, colours_);
        info.write_Adobe_marker = adobe_ || colours_ == JCS_YCCK ? TRUE : FALSE;
        scaleTables(info, quality);
        info.raw_data_in = TRUE;
        info.optimize_coding = TRUE;
        jpeg_start_compress(&info, TRUE);
        if (!profile_.empty()) {
            jpeg_write_icc_profile(&info, profile_.data(), static_cast<unsigned>(profile_.size()));
        }
        for (int blockRow = 0; info.next_scanline < info.image_height; ++blockRow) {
            writeBlocks(info, planes_, blockRow);
        }
        jpeg_finish_compress(&info);
    });
    return compressor.written();
}

}  // namespace orv
