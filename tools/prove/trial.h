#pragma once

#include "judge.h"

namespace prove {

/// Puts an operator's errand to the proof: struck at every call, one after the other.
class Trial : public Judge {
public:
    /// `step`: every call, or every so manyth.
    Trial(OfficeGround& ground, const desk::ServerDesk& server, std::string store, int step);

    void run(const CompanyKind& kind);

private:
    bool strikeOnce(const Strike& strike, const std::string& name);
    void strikeEverywhere(Strike strike, const std::string& name);

    int step_;
};

}  // namespace prove
