#include "adapters/jpeg/jpeg_writer.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>
#include <span>

#include "adapters/jpeg/jpeg_guard.h"
#include "adapters/jpeg/quality_map.h"
#include "platform/scope.h"

namespace orv {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// The library's compressor, writing to memory.
class Compressor : NonCopyable {
public:
    Compressor() {
        guard_.watch(reinterpret_cast<j_common_ptr>(&info_));
        guard_.guarded([this] {
            jpeg_create_compress(&info_);
            jpeg_mem_dest(&info_, &bytes_, &size_);
        });
    }
    ~Compressor() {
        jpeg_destroy_compress(&info_);
        std::free(bytes_);
    }

    jpeg_compress_struct& info() { return info_; }
    template <typename Step>
    void guarded(Step step) {
        guard_.guarded(step);
    }
    /// Returns the output after the library's last call.
    Bytes written() const { return {bytes_, bytes_ + size_}; }

private:
    JpegGuard guard_;
    jpeg_compress_struct info_{};
    unsigned char* bytes_ = nullptr;
    unsigned long size_ = 0;
};

/// Sets the library's tables without a scale.
void setBasicTables(jpeg_compress_struct& info) {
    constexpr int kBasic = 100;
    jpeg_set_linear_quality(&info, kBasic, TRUE);
}

std::vector<unsigned> basicEntries() {
    Compressor compressor;
    compressor.guarded([&compressor] { setBasicTables(compressor.info()); });
    std::vector<unsigned> entries;
    for (const JQUANT_TBL* table : std::span(compressor.info().quant_tbl_ptrs)) {
        if (table != nullptr) {
            entries.insert(entries.end(), std::begin(table->quantval), std::end(table->quantval));
        }
    }
    return entries;
}

void setTables(jpeg_compress_struct& info, int quality) {
    setBasicTables(info);
    const double scale = tableScale(quality);
    for (JQUANT_TBL* table : std::span(info.quant_tbl_ptrs)) {
        for (std::size_t place = 0; table != nullptr && place < kTableEntries; ++place) {
            UINT16& entry = table->quantval[place];
            entry = static_cast<UINT16>(scaledEntry(place, entry, scale));
        }
    }
}

int filledUp(int side, int unit) { return (side + unit - 1) / unit * unit; }

/// Returns one channel, with its last samples repeated up to the edge of the units.
Bitmap extractPlane(const Bitmap& source, std::size_t channel, int unit) {
    Bitmap plane = blankBitmap(filledUp(source.width, unit), filledUp(source.height, unit), 1);
    for (int y = 0; y < plane.height; ++y) {
        const std::uint8_t* sample = source.row(std::min(y, source.height - 1)) + channel;
        std::uint8_t* target = plane.row(y);
        for (int x = 0; x < source.width; ++x, sample += source.channels) {
            target[x] = *sample;
        }
        std::fill(target + source.width, target + plane.width, target[source.width - 1]);
    }
    return plane;
}

Bitmap halved(const Bitmap& plane) {
    Bitmap half = blankBitmap(plane.width / 2, plane.height / 2, 1);
    for (int y = 0; y < half.height; ++y) {
        const std::uint8_t* upper = plane.row(2 * y);
        const std::uint8_t* lower = plane.row(2 * y + 1);
        std::uint8_t* target = half.row(y);
        for (int x = 0; x < half.width; ++x) {
            target[x] =
                static_cast<std::uint8_t>((upper[2 * x] + upper[2 * x + 1] + lower[2 * x] + lower[2 * x + 1] + 2) / 4);
        }
    }
    return half;
}

/// True if the library stores these colours at half size.
bool halvesColours(J_COLOR_SPACE colours) { return colours == JCS_YCbCr || colours == JCS_YCCK; }

/// The finest of several files is the largest. Only one larger than this is kept.
constexpr std::size_t kLargestKept = 1 << 20;

using Arrays = std::array<jvirt_barray_ptr, MAX_COMPONENTS>;

/// Allocates arrays in the library, with whole blocks for each plane.
Arrays arraysFor(jpeg_compress_struct& info, const FrequencyPlane* planes) {
    Arrays arrays{};
    auto* common = reinterpret_cast<j_common_ptr>(&info);
    for (int i = 0; i < info.num_components; ++i) {
        const FrequencyPlane& plane = planes[i];
        arrays[static_cast<std::size_t>(i)] = info.mem->request_virt_barray(
            common, JPOOL_IMAGE, FALSE, static_cast<JDIMENSION>(plane.blocksAcross),
            static_cast<JDIMENSION>(plane.blocksDown), static_cast<JDIMENSION>(info.comp_info[i].v_samp_factor));
    }
    return arrays;
}

void fill(jpeg_compress_struct& info, jvirt_barray_ptr array, const FrequencyPlane& plane, const Quantiser& quantiser) {
    for (int down = 0; down < plane.blocksDown; ++down) {
        JBLOCKROW row = info.mem->access_virt_barray(reinterpret_cast<j_common_ptr>(&info), array,
                                                     static_cast<JDIMENSION>(down), 1, TRUE)[0];
        for (int across = 0; across < plane.blocksAcross; ++across) {
            quantiser.quantise(plane.block(across, down), row[across]);
        }
    }
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
        const Bitmap plane = extractPlane(image.bitmap, channel, halves ? kBlockSide * 2 : kBlockSide);
        planes_.push_back(transform(halves && isColour ? halved(plane) : plane));
    }
}

const Bytes& JpegWriter::written(int quality) {
    static const auto kSteps = realSteps(basicEntries());
    const int step = kSteps[static_cast<std::size_t>(quality)];
    const auto known = written_.find(step);
    if (known != written_.end()) {
        return known->second;
    }
    if (!written_.empty() && written_.begin()->second.size() > kLargestKept) {
        written_.clear();
    }
    return written_[step] = encoded(step);
}

Bytes JpegWriter::encoded(int quality) const {
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
        setTables(info, quality);
        info.optimize_coding = TRUE;
        Arrays arrays = arraysFor(info, planes_.data());
        jpeg_write_coefficients(&info, arrays.data());
        if (!profile_.empty()) {
            jpeg_write_icc_profile(&info, profile_.data(), static_cast<unsigned>(profile_.size()));
        }
        for (int i = 0; i < info.num_components; ++i) {
            const auto place = static_cast<std::size_t>(i);
            const JQUANT_TBL* table = info.quant_tbl_ptrs[info.comp_info[i].quant_tbl_no];
            fill(info, arrays[place], planes_[place], Quantiser(table->quantval));
        }
        jpeg_finish_compress(&info);
    });
    return compressor.written();
}

}  // namespace orv
