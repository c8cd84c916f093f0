#include "adapters/pictures/open_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "adapters/pictures/picture_failure.h"

namespace orv {
namespace {

constexpr std::int64_t kLargestFile = 500'000'000;

/// Without O_NONBLOCK a named pipe that nobody writes to would be waited for.
int openWithoutWaiting(const std::string& path) {
    const int descriptor = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0) {
        throw RunTimeError(errno == ENOENT || errno == ENOTDIR ? Failure::FileNotFound : Failure::PathFileAccess);
    }
    return descriptor;
}

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

OpenFile::OpenFile(const std::string& nativePath) {
    const int descriptor = openWithoutWaiting(nativePath);
    stream_.reset(fdopen(descriptor, "rb"));
    if (!stream_) {
        close(descriptor);
        throw RunTimeError(Failure::DeviceIo);
    }
    size_ = sizeOfPicture(descriptor);
}

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
