#include "trial.h"

#include <cerrno>
#include <chrono>
#include <iostream>

namespace crash_test {
namespace {

using Clock = std::chrono::steady_clock;

/// The maximum duration of a scenario, in multiples of the program's time limit.
constexpr int kLimits = 30;

/// One kind of failure, injected at each of the calls to which it applies.
struct Way {
    const char* name;
    Injection::Way way;
    Answer answer;
};

constexpr Way kWays[] = {
    {"kill", Injection::Way::Kill, 0},
    {"kill within a writing", Injection::Way::KillHalfway, 0},
    {"EIO once", Injection::Way::Once, EIO},
    {"EIO lasting", Injection::Way::Lasting, EIO},
    {"EACCES once", Injection::Way::Once, EACCES},
    {"EACCES lasting", Injection::Way::Lasting, EACCES},
    {"ENOSPC once", Injection::Way::Once, ENOSPC},
    {"ENOSPC lasting", Injection::Way::Lasting, ENOSPC},
    {"ENOSPC within a writing", Injection::Way::Halfway, ENOSPC},
    {"ENOLCK once", Injection::Way::Once, ENOLCK},
    {"EMFILE once", Injection::Way::Once, EMFILE},
    {"EMFILE lasting", Injection::Way::Lasting, EMFILE},
    {"ECONNREFUSED once", Injection::Way::Once, ECONNREFUSED},
    {"ECONNREFUSED lasting", Injection::Way::Lasting, ECONNREFUSED},
    {"connection cut", Injection::Way::Cut, 0},
    {"ETIMEDOUT once", Injection::Way::Once, ETIMEDOUT},
    {"ETIMEDOUT lasting", Injection::Way::Lasting, ETIMEDOUT},
};

}  // namespace

Trial::Trial(OfficeFixture& fixture, const ui_driver::ServerProcess& server, std::string store, int step)
    : Checker(fixture, server, std::move(store)), step_(step) {}

void Trial::run(const CompanyKind& kind) {
    fixture_.begin(kind);
    learn();
    for (const Way& way : kWays) {
        injectEverywhere({way.way, 0, way.answer}, way.name);
    }
}

/// False if the scenario has fewer calls.
bool Trial::injectOnce(const Injection& injection, const std::string& name) {
    point_ = name + " " + std::to_string(injection.at);
    fixture_.comeBack();
    const auto begun = Clock::now();
    const Outcome outcome = runUnder(injection, fixture_.company(), 0);
    if (Clock::now() - begun > kLimits * fixture_.limit()) {
        fault("takes " + std::to_string(std::chrono::duration<double>(Clock::now() - begun).count()) + " s");
    }
    if (outcome.injected.empty()) {
        return false;
    }
    point_ += " (" + outcome.injected.front() + ")";
    if (outcome.killed) {
        checkDead(outcome);
    } else {
        checkAlive(outcome);
    }
    return true;
}

void Trial::injectEverywhere(Injection injection, const std::string& name) {
    const auto start = Clock::now();
    const int pointsBefore = points_;
    const int faultsBefore = faults_;
    instants_ = 0;
    bool wasInjected = true;
    for (injection.at = (step_ + 1) / 2; wasInjected; injection.at += step_) {
        checkPoint([&] { wasInjected = injectOnce(injection, name); });
        points_ += wasInjected ? 1 : 0;
    }
    const std::chrono::duration<double> taken = Clock::now() - start;
    std::cout << store_ << ", " << fixture_.kind().name << ", " << name << ": " << points_ - pointsBefore << " points, "
              << faults_ - faultsBefore << " faults, " << taken.count() << " s";
    if (instants_ > 0) {
        std::cout << "; at " << instants_ << " a photo is next to its place, not yet renamed";
    }
    std::cout << std::endl;
}

}  // namespace crash_test
