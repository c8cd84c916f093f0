#include <algorithm>
#include <cstdio>

#include "adapters/pixels/quality_map.h"
#include "pictures_bench.h"

namespace bench {
namespace {

constexpr int kCount = orv::kSmallestQuality + 1;

std::vector<std::int32_t> sizesOf(const std::string& photo, const std::string& target) {
    PlainPaths paths;
    const orv::PictureFiles pictures(paths);
    const orv::PictureInfo info = pictures.info(photo);
    const orv::PictureSize size = fittedSize(info.width, info.height, {640, 480});
    const auto picture = pictures.load(photo, {640, 480});
    picture->size(size.width, size.height);
    std::vector<std::int32_t> sizes(kCount);
    for (int factor = orv::kBestQuality; factor <= orv::kSmallestQuality; ++factor) {
        picture->save(target, info.format, info.bits, factor);
        sizes[static_cast<std::size_t>(factor)] = pictures.info(target).sizeDisk;
    }
    return sizes;
}

}  // namespace

void factors(const std::filesystem::path& photos, const std::filesystem::path& work) {
    for (const auto& photo : photosIn(photos)) {
        const auto sizes = sizesOf(photo, work / "factor.jpg");
        int rises = 0;
        std::int32_t largestRise = 0;
        for (std::size_t factor = 3; factor < sizes.size(); ++factor) {
            const std::int32_t rise = sizes[factor] - sizes[factor - 1];
            if (rise > 0) {
                ++rises;
                std::printf("  %zu: %d bytes more than %d\n", factor, rise, sizes[factor - 1]);
            }
            largestRise = std::max(largestRise, rise);
        }
        std::printf("factors %s: %d bytes at 2, %d at 255, %d rises, the largest of %d bytes\n", photo.stem().c_str(),
                    sizes[2], sizes[255], rises, largestRise);
    }
}

}  // namespace bench
