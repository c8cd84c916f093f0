#include "adapters/pictures/quality_map.h"

#include <algorithm>
#include <cmath>

namespace orv {
namespace {

constexpr double kFinest = 0.04;
constexpr double kCoarsest = 25.5;

}  // namespace

double tableScale(int quality) {
    const double part =
        static_cast<double>(quality - kBestQuality) / static_cast<double>(kSmallestQuality - kBestQuality);
    return kFinest * std::pow(kCoarsest / kFinest, part);
}

unsigned scaledEntry(unsigned basic, double scale) {
    return static_cast<unsigned>(std::clamp(std::floor(basic * scale + 0.5), 1.0, 255.0));
}

}  // namespace orv
