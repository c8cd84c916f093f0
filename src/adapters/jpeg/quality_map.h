#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "platform/machine/picture_library.h"

namespace orv {

/// Entries of a table, the lowest frequency first.
inline constexpr std::size_t kTableEntries = 64;

/// Returns the factor's scale of the JPEG library's basic tables. The scales are a geometric series from 0.04 (factor
/// 2: steps of 1 to 5, no visible loss) to 25.5 (factor 255: the coarsest steps and the smallest file). Each factor is
/// about 2.6 % coarser than the one before. Factor 101 is the library's quality 75, factor 128 its basic tables.
double tableScale(int quality);

/// Returns an entry of a basic table at that scale, from 1 to 255, or to 192 for the lowest frequency. Areas between
/// two steps of that frequency alternate between them, which made files grow. The entry never falls as the factor
/// rises.
unsigned scaledEntry(std::size_t place, unsigned basic, double scale);

/// Returns for each factor the factor whose tables it uses: its own or a finer one. If almost no entry changes, the
/// codes might only become longer, so the tables of the factor before are kept. `basics` contains all entries of the
/// basic tables, one table after the other.
std::array<int, kSmallestQuality + 1> realSteps(const std::vector<unsigned>& basics);

}  // namespace orv
