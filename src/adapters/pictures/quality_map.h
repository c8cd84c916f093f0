#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace orv {

inline constexpr int kBestQuality = 2;
inline constexpr int kSmallestQuality = 255;

/// Entries of a table, the lowest frequency first.
inline constexpr std::size_t kTableEntries = 64;

/// How much coarser than the JPEG library's basic tables a factor makes the quantisation: a geometric row from 0.04
/// (factor 2: steps of 1 to 5, no loss that can be seen) to 25.5 (factor 255: every step is the coarsest there is, and
/// the file the smallest). One factor is about 2.6 % coarser than the one before; factor 101 is what the library calls
/// quality 75, factor 128 its basic tables.
double tableScale(int quality);

/// The entry at a place of a basic table at that scale: 1 to 255, the lowest frequency's to 192, because areas that lie
/// between two of its steps take now one and now the other, which made files grow. It never falls as the factor rises.
unsigned scaledEntry(std::size_t place, unsigned basic, double scale);

/// For each factor the one whose tables it takes, its own or those of a finer one: where hardly an entry would change,
/// the codes might only become longer, so such a factor keeps what the one before it has. `basics`: all entries of the
/// basic tables, one table after the other.
std::array<int, kSmallestQuality + 1> realSteps(const std::vector<unsigned>& basics);

}  // namespace orv
