#pragma once

#include "judge.h"

namespace crash_test {

/// Runs a scenario repeatedly, with a failure injected at one call after the other.
class Trial : public Judge {
public:
    /// `step` selects every STEP-th call.
    Trial(OfficeGround& ground, const desk::ServerDesk& server, std::string store, int step);

    void run(const CompanyKind& kind);

private:
    bool strikeOnce(const Strike& strike, const std::string& name);
    void strikeEverywhere(Strike strike, const std::string& name);

    int step_;
};

}  // namespace crash_test
