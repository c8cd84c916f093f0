// Any bytes are a picture or a failure with a text: header, decoding, sizing and saving.
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "adapters/pictures/made_pictures.h"
#include "adapters/pictures/picture_files.h"
#include "platform/run_time_error.h"

namespace {

void read(const orv::PictureFiles& pictures, const std::string& path, const std::string& target) {
    const orv::PictureInfo info = pictures.info(path);
    // Decoding of many claimed pixels is bounded, but would leave no time to look for faults.
    constexpr std::int64_t kWorthTrying = 4'000'000;
    if (std::int64_t{info.width} * info.height > kWorthTrying) {
        return;
    }
    const auto picture = pictures.load(path, {64, 48});
    picture->size(std::min(info.width, 64), std::min(info.height, 48));
    picture->save(target, info.format, info.bits, 100);
    static_cast<void>(pictures.load(target));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    static const orv::test::PictureFolder folder;
    static const orv::PictureFiles pictures(folder);
    const std::string path = folder.keep("picture", {bytes, bytes + count});
    try {
        read(pictures, path, folder.pathOf("saved"));
    } catch (const orv::RunTimeError& error) {
        if (error.description().empty()) {
            std::abort();
        }
    }
    return 0;
}
