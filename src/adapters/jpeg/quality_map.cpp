#include "adapters/jpeg/quality_map.h"

#include <algorithm>
#include <cmath>

namespace orv {
namespace {

constexpr double kFinest = 0.04;
constexpr double kCoarsest = 25.5;
/// Determined with photos. With half of it, a file still grows occasionally.
constexpr double kRealStep = 0.05;

/// Returns how coarse all tables are together. An entry counts more if its frequency is lower, because pictures have
/// most of their content there.
double coarseness(const std::vector<unsigned>& basics, double scale) {
    double sum = 0;
    for (std::size_t i = 0; i < basics.size(); ++i) {
        sum += std::log(scaledEntry(i % kTableEntries, basics[i], scale)) / basics[i];
    }
    return sum;
}

}  // namespace

double tableScale(int quality) {
    const double part =
        static_cast<double>(quality - kBestQuality) / static_cast<double>(kSmallestQuality - kBestQuality);
    return kFinest * std::pow(kCoarsest / kFinest, part);
}

unsigned scaledEntry(std::size_t place, unsigned basic, double scale) {
    const double coarsest = place == 0 ? 192 : 255;
    return static_cast<unsigned>(std::clamp(std::floor(basic * scale + 0.5), 1.0, coarsest));
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
