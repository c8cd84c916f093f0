#include "adapters/pictures/picture_files.h"

#include <new>

#include "adapters/jpeg/jpeg_picture.h"
#include "adapters/pixels/picture_failure.h"
#include "adapters/raster/raster_picture.h"

namespace orv {
namespace {

constexpr std::int64_t kMostPixels = 100'000'000;

bool isJpeg(std::span<const std::uint8_t> first) {
    return first.size() >= 3 && first[0] == 0xFF && first[1] == 0xD8 && first[2] == 0xFF;
}

PictureHeader claimedHeader(const OpenFile& file) {
    const auto first = file.firstBytes(kHeaderBytes);
    if (isJpeg(first)) {
        return jpegHeader(file);
    }
    const auto header = rasterHeader(file, first);
    if (!header) {
        throw pictureError(PictureFailure::UnknownFormat);
    }
    return *header;
}

/// Sides fit 32 bits, so that their product does not overflow.
PictureHeader readHeader(const OpenFile& file) {
    const PictureHeader header = claimedHeader(file);
    if (header.width < 1 || header.height < 1) {
        throw pictureError(PictureFailure::Damaged);
    }
    if (header.width > kMostPixels / header.height) {
        throw pictureError(PictureFailure::TooManyPixels);
    }
    return header;
}

/// Reads `path` and converts lack of memory to a failure like the others.
template <typename Reading>
auto reading(FileSystem& files, const std::string& path, Reading read) {
    try {
        return read(OpenFile(files, path));
    } catch (const std::bad_alloc&) {
        throw pictureError(PictureFailure::NeedsTooMuchMemory);
    }
}

}  // namespace

PictureInfo PictureFiles::info(const std::string& path) const {
    return reading(files_, path, [](const OpenFile& file) {
        const PictureHeader header = readHeader(file);
        return PictureInfo{file.size(), static_cast<std::int32_t>(header.width),
                           static_cast<std::int32_t>(header.height), header.bits,
                           static_cast<std::int32_t>(header.format)};
    });
}

std::unique_ptr<Picture> PictureFiles::load(const std::string& path, PictureSize within) const {
    return reading(files_, path, [&](const OpenFile& file) {
        const PictureHeader header = readHeader(file);
        const auto load = header.format == PictureFormat::Jpeg ? loadJpeg : loadRaster;
        return load(files_, file, header, within);
    });
}

}  // namespace orv
