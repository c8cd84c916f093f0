#pragma once

#include <string>
#include <vector>

#include "strange_server.h"

namespace prove {

/// What has to become of the answer in the end.
enum class Fate {
    Either,   // a strange answer may be a good one too
    Taken,    // a good one that looks unusual
    Refused,  // a failure, told where one is told
};

/// One answer made strange at a place: a byte of it, or one of its bits.
struct PlaceWay {
    const char* name;
    std::size_t placesPerByte;
    Strangeness (*at)(std::size_t place);
    Fate fate;
    /// What is told and logged then; empty: anything of the table.
    const char* code;
};

/// One whole answer made strange.
struct WholeWay {
    std::string name;
    Strangeness strangeness;
    Fate ofCompany;
    Fate ofPrepare;
};

const std::vector<PlaceWay>& placeWays();
/// `elsewhere`: the port of another server, to which some lead.
std::vector<WholeWay> wholeWays(const std::string& elsewhere);

}  // namespace prove
