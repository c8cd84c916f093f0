#include "adapters/pictures/picture_files.h"

#include <new>

#include "adapters/pictures/jpeg_reader.h"
#include "adapters/pictures/other_formats.h"
#include "adapters/pictures/picture_failure.h"
#include "adapters/pictures/resample.h"

namespace orv {
namespace {

constexpr std::int64_t kMostPixels = 100'000'000;

class LoadedPicture : public Picture {
public:
    LoadedPicture(const PictureHeader& header, Pixels kept)
        : width_(static_cast<int>(header.width)), height_(static_cast<int>(header.height)), kept_(std::move(kept)) {}

    int width() const override { return width_; }
    int height() const override { return height_; }

    Pixels scaled(int width, int height) const override {
        if (width < 1 || height < 1 || width > width_ || height > height_) {
            throw RunTimeError(Failure::InvalidCall);
        }
        return resampled(kept_, width, height);
    }
    void size(int, int) override { throw RunTimeError(Failure::InvalidCall); }
    void save(const std::string&, std::int32_t, std::int32_t, int) const override {
        throw RunTimeError(Failure::InvalidCall);
    }

private:
    int width_;
    int height_;
    Pixels kept_;
};

bool isJpeg(std::span<const std::uint8_t> first) {
    return first.size() >= 3 && first[0] == 0xFF && first[1] == 0xD8 && first[2] == 0xFF;
}

PictureHeader claimedHeader(const OpenFile& file) {
    const auto first = file.firstBytes(kHeaderBytes);
    if (isJpeg(first)) {
        return jpegHeader(file);
    }
    const auto header = otherHeader(first);
    if (!header) {
        throw pictureError(PictureFailure::UnknownFormat);
    }
    return *header;
}

/// Sides are within 32 bits, so that their product can be taken.
PictureHeader headerOf(const OpenFile& file) {
    const PictureHeader header = claimedHeader(file);
    if (header.width < 1 || header.height < 1) {
        throw pictureError(PictureFailure::Damaged);
    }
    if (header.width > kMostPixels / header.height) {
        throw pictureError(PictureFailure::TooManyPixels);
    }
    return header;
}

/// Runs a reading of `path`; want of memory becomes a failure like the others.
template <typename Reading>
auto reading(const FileSystem& files, const std::string& path, Reading read) {
    try {
        return read(OpenFile(files.nativePath(path)));
    } catch (const std::bad_alloc&) {
        throw pictureError(PictureFailure::NeedsTooMuchMemory);
    }
}

}  // namespace

PictureInfo PictureFiles::info(const std::string& path) const {
    return reading(files_, path, [](const OpenFile& file) {
        const PictureHeader header = headerOf(file);
        return PictureInfo{file.size(), static_cast<std::int32_t>(header.width),
                           static_cast<std::int32_t>(header.height), header.bits,
                           static_cast<std::int32_t>(header.format)};
    });
}

std::unique_ptr<Picture> PictureFiles::load(const std::string& path) const {
    return reading(files_, path, [](const OpenFile& file) -> std::unique_ptr<Picture> {
        const PictureHeader header = headerOf(file);
        return std::make_unique<LoadedPicture>(
            header, header.format == PictureFormat::Jpeg ? jpegPixels(file) : otherPixels(file, header));
    });
}

}  // namespace orv
