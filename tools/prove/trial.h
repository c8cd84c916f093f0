#pragma once

#include <set>
#include <string>

#include "office_ground.h"
#include "struck_run.h"

namespace prove {

/// Puts an operator's errand to the proof: struck at every call, one after the other.
class Trial {
public:
    /// `step`: every call, or every so manyth. `server`: the suite's, which refuses photos, so that there is something
    /// to log.
    Trial(OfficeGround& ground, const desk::ServerDesk& server, std::string store, int step);

    void run(const CompanyKind& kind);

    int points() const { return points_; }
    int faults() const { return faults_; }

private:
    void learn();
    void strikeEverywhere(Strike strike, const std::string& name);
    Outcome errandUnder(const Strike& strike, const std::string& company, int round);
    void judgeDead(const Outcome& outcome);
    void judgeAlive(const Outcome& outcome);
    void judgeStore();
    void judgePhotos();
    void judgeLog(const Outcome& outcome);
    void judgeNextRun();
    void judgeReport(const Outcome& outcome);
    void fault(const std::string& what);

    OfficeGround& ground_;
    const desk::ServerDesk& server_;
    std::string store_;
    int step_;
    int points_ = 0;
    int faults_ = 0;
    int instants_ = 0;
    std::string point_;

    /// All that an undisturbed errand goes through, with a server that takes the company and with one that does not.
    std::set<std::string> states_;
    std::string behind_;
    bool isLearning_ = false;
    Files filesBefore_;
    Files filesBehind_;
    std::set<std::string> names_;
    std::set<std::string> records_;
};

}  // namespace prove
