// Any bytes are a picture or a failure with a text: header, decoding, sizing and saving.
#include <algorithm>
#include <cstdint>

#include "adapters/pictures/made_pictures.h"
#include "adapters/pictures/picture_files.h"
#include "fuzz/fuzz_target.h"
#include "platform/run_time_error.h"

namespace orv::test {
namespace {

void read(const PictureFiles& pictures, const std::string& path, const std::string& target) {
    const PictureInfo info = pictures.info(path);
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

void run(const std::string& bytes) {
    static const PictureFolder folder;
    static const PictureFiles pictures(folder);
    const std::string path = folder.keep("picture", {bytes.begin(), bytes.end()});
    try {
        read(pictures, path, folder.pathOf("saved"));
    } catch (const RunTimeError& error) {
        require(!error.description().empty(), "a failure has a text");
    }
}

}  // namespace

FuzzTarget pictureTarget() {
    FuzzTarget target{"picture", run, {}};
    for (const ByteVector& bytes :
         {madeJpeg({.width = 33, .height = 17, .orientation = 6}),
          madeJpeg({.width = 33, .height = 17, .progressive = true}),
          madeJpeg({.width = 17, .height = 9, .input = JCS_CMYK, .stored = JCS_YCCK}), madeByQt("png", 9, 9),
          madeByQt("bmp", 9, 9), madeRunLengthBmp(9, 9), madeGif(9, 9)}) {
        target.seeds.emplace_back(bytes.begin(), bytes.end());
    }
    return target;
}

}  // namespace orv::test
