// Uses only the part of the picture modules for JPEG files. The toolkit is left out, because the program has loaded it
// long before a photo is chosen. A process then starts as small as a peer's.
#include <cmath>

#include "adapters/jpeg/jpeg_picture.h"
#include "adapters/jpeg/jpeg_reader.h"
#include "adapters/pixels/quality_map.h"
#include "pictures_bench.h"

namespace bench {

orv::PictureSize fittedSize(int width, int height, orv::PictureSize within) {
    const double rateHeight = static_cast<double>(height) / within.height;
    const double rateWidth = static_cast<double>(width) / within.width;
    if (rateHeight <= 1 && rateWidth <= 1) {
        return {width, height};
    }
    const auto part = [](int limit, int side, int other) {
        return static_cast<int>(std::nearbyint(static_cast<double>(limit) * side / other));
    };
    return rateHeight <= rateWidth ? orv::PictureSize{within.width, part(within.width, height, width)}
                                   : orv::PictureSize{part(within.height, width, height), within.height};
}

int fitted(const std::string& source, const std::string& target, orv::PictureSize within, std::uintmax_t limit) {
    PlainPaths paths;
    const orv::OpenFile file(paths, source);
    const orv::PictureHeader header = orv::jpegHeader(file);
    const auto picture = orv::loadJpeg(paths, file, header, within);
    const orv::PictureSize size = fittedSize(picture->width(), picture->height(), within);
    picture->size(size.width, size.height);
    const auto fits = [&](int factor) {
        picture->save(target, static_cast<std::int32_t>(header.format), header.bits, factor);
        const orv::OpenFile saved(paths, target);
        static_cast<void>(orv::jpegHeader(saved));
        return static_cast<std::uintmax_t>(saved.size()) <= limit;
    };
    fits(orv::kBestQuality);
    int below = 1;
    int found = orv::kSmallestQuality;
    fits(found);
    while (found - below > 1) {
        const int middle = (below + found) / 2;
        (fits(middle) ? found : below) = middle;
    }
    fits(found);
    return found;
}

}  // namespace bench
