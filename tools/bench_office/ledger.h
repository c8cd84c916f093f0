#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace bench {

/// A period in nanoseconds of the machine's steady clock, which all processes share.
struct Span {
    std::int64_t from = 0;
    std::int64_t to = 0;

    bool meets(const Span& other) const { return from <= other.to && other.from <= to; }
    double milliseconds() const { return static_cast<double>(to - from) / 1e6; }
};

std::int64_t nanosecondsNow();

/// `Unsure`: a save that reported a failure and might have written. `Refused`: another terminal had the company.
enum class Deed : std::uint8_t { Opened, Switched, Saved, Unsure, Refused, Failed };

/// One line of a terminal's ledger: an action and its result.
struct Entry {
    Deed deed = Deed::Failed;
    std::string what;  // the company; the code of a failure
    Span time;
    int value = 0;  // of a save: the written count, which is the loaded one plus 1
    Span taken;     // of a save: the event that locked and loaded the company
};

void append(const std::string& file, const Entry& entry);
std::vector<Entry> readLedger(const std::string& file);

}  // namespace bench
