#pragma once

#include <string>
#include <vector>

#include "strange_server.h"

namespace crash_test {

/// The required result of the answer.
enum class Fate {
    Either,   // a wrong answer can be a valid one too
    Taken,    // valid, but unusual
    Refused,  // a failure, reported if the program reports such failures
};

/// A change to an answer at one position: a byte, or one of its bits.
struct PlaceWay {
    const char* name;
    std::size_t placesPerByte;
    Strangeness (*at)(std::size_t place);
    Fate fate;
    /// The reported and logged code; empty for any code of the table.
    const char* code;
};

/// A change to a whole answer.
struct WholeWay {
    std::string name;
    Strangeness strangeness;
    Fate ofCompany;
    Fate ofPrepare;
};

const std::vector<PlaceWay>& placeWays();
/// `elsewhere` is the port of another server, to which some answers redirect.
std::vector<WholeWay> wholeWays(const std::string& elsewhere);

}  // namespace crash_test
