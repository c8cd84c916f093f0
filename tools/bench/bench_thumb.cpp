#include <cmath>

#include "bench.h"
#include "pictures_bench.h"
#include "plain_jpeg.h"

namespace bench {

/// Measures the start of a page with the photo in both slots: loading it for the size of a slot and scaling it.
void thumb(const std::filesystem::path& photos) {
    constexpr orv::PictureSize kSlot{484, 400};
    PlainPaths paths;
    const orv::PictureFiles pictures(paths);
    for (const auto& photo : photosIn(photos)) {
        const orv::PictureInfo info = pictures.info(photo);
        const orv::PictureSize shown = fittedSize(info.width, info.height, {121, 100});
        unsigned eighths = 1;
        while (eighths < 8 &&
               info.width * static_cast<int>(eighths) / 8 < 2 * fittedSize(info.width, info.height, kSlot).width) {
            eighths *= 2;
        }
        const auto ours = [&] {
            for (int slot = 0; slot < 2; ++slot) {
                static_cast<void>(pictures.load(photo, kSlot)->scaled(shown.width, shown.height));
            }
        };
        const auto peer = [&] {
            decoded(photo, false, eighths);
            decoded(photo, false, eighths);
        };
        const Result result = alternately(7, ours, peer);
        print("thumb " + photo.stem().string(), result);
        // The window is not repainted between the two slots.
        std::printf("  the window waits %.0f ms beyond the scaled decoding\n", result.ours - result.peer);
        print("  header against decoding",
              alternately(
                  7, [&] { pictures.info(photo); }, [&] { decoded(photo, false, eighths); }));
    }
}

}  // namespace bench
