#include "adapters/pixels/picture_header.h"

#include <algorithm>

#include "adapters/pixels/picture_failure.h"

namespace orv {
namespace {

constexpr double kTimes = 2;

void require(bool valid) {
    if (!valid) {
        throw RunTimeError(Failure::InvalidCall);
    }
}

}  // namespace

double keptShare(const PictureHeader& header, PictureSize within) {
    if (within.width < 1 || within.height < 1) {
        return 1;
    }
    const double share = std::min(static_cast<double>(within.width) / static_cast<double>(header.width),
                                  static_cast<double>(within.height) / static_cast<double>(header.height));
    return std::min(1.0, kTimes * share);
}

void requireSides(PictureSize size) { require(size.width >= 1 && size.height >= 1); }

void requireNoGrowth(PictureSize own, PictureSize asked) {
    requireSides(asked);
    require(asked.width <= own.width && asked.height <= own.height);
}

void requireQuality(int quality) { require(quality >= kBestQuality && quality <= kSmallestQuality); }

void requireKeptWhole(PictureSize kept, PictureSize own) {
    require(kept.width == own.width && kept.height == own.height);
}

void requireOwnKind(bool own) {
    if (!own) {
        throw pictureError(PictureFailure::NotWritable);
    }
}

}  // namespace orv
