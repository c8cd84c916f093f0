#pragma once

#include <chrono>
#include <functional>
#include <set>
#include <string>

#include "office_ground.h"
#include "struck_run.h"

namespace prove {

/// Knows what an operator's errand goes through when nothing happens, and judges by it one that something befell.
class Judge {
public:
    /// `server`: the suite's.
    Judge(OfficeGround& ground, const desk::ServerDesk& server, std::string store);
    Judge(const Judge&) = delete;
    Judge& operator=(const Judge&) = delete;
    virtual ~Judge() = default;

    int points() const { return points_; }
    int faults() const { return faults_; }

protected:
    /// The server refuses photos then and afterwards, so that there is something to log.
    void learn();
    Outcome errandUnder(const Strike& strike, const std::string& company, int round);
    /// In the process of the errand.
    virtual void beforeErrand() {}
    void judgeDead(const Outcome& outcome);
    void judgeAlive(const Outcome& outcome);
    void fault(const std::string& what) { found_.push_back(what); }
    /// Runs a point with the hasty time limit. If something seems wrong, a stalled machine may have missed that limit:
    /// the point is run again with the patient one, and what is wrong then is a fault.
    void judgePoint(const std::function<void()>& point);

    OfficeGround& ground_;
    const desk::ServerDesk& server_;
    std::string store_;
    int points_ = 0;
    int faults_ = 0;
    int instants_ = 0;
    std::string point_;
    /// The longest event of the last errand.
    std::chrono::steady_clock::duration slowest_{};
    /// The store behind the last errand's first save, and behind an undisturbed errand.
    std::string saved_;
    std::string behind_;

private:
    void judgeEvent(const std::string& line);
    void judgeStore();
    void judgePhotos();
    void judgeLog(const Outcome& outcome);
    void judgeNextRun();
    void judgeReport(const Outcome& outcome);

    /// All that an undisturbed errand goes through, with a server that takes the company and with one that does not.
    std::set<std::string> states_;
    bool isLearning_ = false;
    /// What is wrong with the present point.
    std::vector<std::string> found_;
    Files filesBefore_;
    Files filesBehind_;
    std::set<std::string> names_;
    std::set<std::string> records_;
};

}  // namespace prove
