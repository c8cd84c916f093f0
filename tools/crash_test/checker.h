#pragma once

#include <chrono>
#include <functional>
#include <set>
#include <string>

#include "office_fixture.h"
#include "platform/scope.h"
#include "traced_run.h"

namespace crash_test {

/// Records the states of an undisturbed scenario, and checks disturbed ones against them.
class Checker : orv::NonCopyable {
public:
    /// `server` is the suite's.
    Checker(OfficeFixture& fixture, const ui_driver::ServerProcess& server, std::string store);
    virtual ~Checker() = default;

    int points() const { return points_; }
    int faults() const { return faults_; }

protected:
    /// The server rejects photos during and after this, so that there is something to log.
    void learn();
    Outcome runUnder(const Injection& injection, const std::string& company, int round);
    /// Called while the scenario is stopped after an event, with the event's line in the report.
    virtual void afterEvent(const std::string& /*line*/) {}
    void checkDead(const Outcome& outcome);
    void checkAlive(const Outcome& outcome);
    void reportFault(const std::string& what) { found_.push_back(what); }
    /// Runs a point with the short time limit. If a check fails, a stalled machine may have caused it. The point is
    /// then repeated with the long limit, and a check that still fails is a fault.
    void checkPoint(const std::function<void()>& point);

    OfficeFixture& fixture_;
    const ui_driver::ServerProcess& server_;
    std::string store_;
    int points_ = 0;
    int faults_ = 0;
    int instants_ = 0;
    std::string point_;
    /// The duration of the last scenario's longest event.
    std::chrono::steady_clock::duration slowest_{};
    /// The store after the last scenario's first save, and after an undisturbed scenario.
    std::string saved_;
    std::string final_;

private:
    void checkEvent(const std::string& line);
    void checkStore();
    void checkPhotos();
    void checkLog(const Outcome& outcome);
    void checkNextRun();
    void checkReport(const Outcome& outcome);

    /// All states of an undisturbed scenario, with a server that accepts the company and with one that does not.
    std::set<std::string> states_;
    bool isLearning_ = false;
    /// The faults of the current point.
    std::vector<std::string> found_;
    Files filesBefore_;
    Files finalFiles_;
    std::set<std::string> names_;
    std::set<std::string> records_;
};

}  // namespace crash_test
