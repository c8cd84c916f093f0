#include "adapters/pixels/open_file.h"

#include <sys/stat.h>

#include "adapters/pixels/picture_failure.h"

namespace orv {
namespace {

constexpr std::int64_t kLargestFile = 500'000'000;

std::int32_t sizeOfPicture(int descriptor) {
    struct stat facts {};
    if (fstat(descriptor, &facts) != 0) {
        throw RunTimeError(Failure::DeviceIo);
    }
    if (!S_ISREG(facts.st_mode)) {
        throw pictureError(PictureFailure::NotAFile);
    }
    if (facts.st_size == 0) {
        throw pictureError(PictureFailure::Empty);
    }
    if (facts.st_size > kLargestFile) {
        throw pictureError(PictureFailure::FileTooLarge);
    }
    return static_cast<std::int32_t>(facts.st_size);
}

}  // namespace

OpenFile::OpenFile(const FileSystem& files, const std::string& path)
    : stream_(files.open(path)), size_(sizeOfPicture(fileno(stream_.get()))) {}

std::FILE* OpenFile::fromStart() const {
    std::rewind(stream_.get());
    return stream_.get();
}

std::vector<std::uint8_t> OpenFile::firstBytes(std::size_t count) const {
    std::vector<std::uint8_t> bytes(count);
    bytes.resize(std::fread(bytes.data(), 1, count, fromStart()));
    return bytes;
}

}  // namespace orv
