#include "trial.h"

#include <chrono>
#include <iostream>

#include "ways.h"

namespace crash_test {
namespace {

using Clock = std::chrono::steady_clock;

/// The maximum duration of a scenario, in multiples of the program's time limit.
constexpr int kLimits = 30;

}  // namespace

Trial::Trial(OfficeGround& ground, const desk::ServerDesk& server, std::string store, int step)
    : Judge(ground, server, std::move(store)), step_(step) {}

void Trial::run(const CompanyKind& kind) {
    ground_.begin(kind);
    learn();
    for (const Way& way : kWays) {
        strikeEverywhere({way.way, 0, way.answer}, way.name);
    }
}

/// False if the scenario has fewer calls.
bool Trial::strikeOnce(const Strike& strike, const std::string& name) {
    point_ = name + " " + std::to_string(strike.at);
    ground_.comeBack();
    const auto begun = Clock::now();
    const Outcome outcome = errandUnder(strike, ground_.company(), 0);
    if (Clock::now() - begun > kLimits * ground_.limit()) {
        fault("takes " + std::to_string(std::chrono::duration<double>(Clock::now() - begun).count()) + " s");
    }
    if (outcome.struck.empty()) {
        return false;
    }
    point_ += " (" + outcome.struck.front() + ")";
    if (outcome.killed) {
        judgeDead(outcome);
    } else {
        judgeAlive(outcome);
    }
    return true;
}

void Trial::strikeEverywhere(Strike strike, const std::string& name) {
    const auto start = Clock::now();
    const int pointsBefore = points_;
    const int faultsBefore = faults_;
    instants_ = 0;
    bool wasStruck = true;
    for (strike.at = (step_ + 1) / 2; wasStruck; strike.at += step_) {
        judgePoint([&] { wasStruck = strikeOnce(strike, name); });
        points_ += wasStruck ? 1 : 0;
    }
    const std::chrono::duration<double> taken = Clock::now() - start;
    std::cout << store_ << ", " << ground_.kind().name << ", " << name << ": " << points_ - pointsBefore << " points, "
              << faults_ - faultsBefore << " faults, " << taken.count() << " s";
    if (instants_ > 0) {
        std::cout << "; at " << instants_ << " a photo is next to its place, not yet renamed";
    }
    std::cout << std::endl;
}

}  // namespace crash_test
