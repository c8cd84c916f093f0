#include "adapters/pictures/quality_map.h"

#include <algorithm>
#include <cmath>

namespace orv {
namespace {

constexpr double kFinest = 0.04;
constexpr double kCoarsest = 25.5;
/// Found on photos: half of it still lets a file grow here and there.
constexpr double kRealStep = 0.05;

/// How coarse all tables together are. An entry counts the more the lower its frequency, which is where pictures have
/// most of what they have.
double coarseness(const std::vector<unsigned>& basics, double scale) {
    double sum = 0;
    for (const unsigned basic : basics) {
        sum += std::log(scaledEntry(basic, scale)) / basic;
    }
    return sum;
}

}  // namespace

double tableScale(int quality) {
    const double part =
        static_cast<double>(quality - kBestQuality) / static_cast<double>(kSmallestQuality - kBestQuality);
    return kFinest * std::pow(kCoarsest / kFinest, part);
}

unsigned scaledEntry(unsigned basic, double scale) {
    return static_cast<unsigned>(std::clamp(std::floor(basic * scale + 0.5), 1.0, 255.0));
}

std::array<int, kSmallestQuality + 1> realSteps(const std::vector<unsigned>& basics) {
    std::array<int, kSmallestQuality + 1> steps{};
    int last = kBestQuality;
    double reached = coarseness(basics, tableScale(last));
    for (int quality = kBestQuality; quality <= kSmallestQuality; ++quality) {
        const double now = coarseness(basics, tableScale(quality));
        if (now - reached >= kRealStep || quality == kSmallestQuality) {
            last = quality;
            reached = now;
        }
        steps[static_cast<std::size_t>(quality)] = last;
    }
    return steps;
}

}  // namespace orv
