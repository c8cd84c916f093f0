#include "failing_calls.h"

#include <cerrno>
#include <chrono>
#include <iostream>

namespace crash_test {
namespace {

using Clock = std::chrono::steady_clock;

/// The maximum duration of a scenario, in multiples of the program's time limit.
constexpr int kLimits = 30;

/// One kind of failure, injected at each of the calls to which it applies.
struct CallFailure {
    const char* name;
    Injection::Kind kind;
    Answer answer;
};

constexpr CallFailure kCallFailures[] = {
    {"kill", Injection::Kind::Kill, 0},
    {"kill within a writing", Injection::Kind::KillHalfway, 0},
    {"EIO once", Injection::Kind::Once, EIO},
    {"EIO lasting", Injection::Kind::Lasting, EIO},
    {"EACCES once", Injection::Kind::Once, EACCES},
    {"EACCES lasting", Injection::Kind::Lasting, EACCES},
    {"ENOSPC once", Injection::Kind::Once, ENOSPC},
    {"ENOSPC lasting", Injection::Kind::Lasting, ENOSPC},
    {"ENOSPC within a writing", Injection::Kind::Halfway, ENOSPC},
    {"ENOLCK once", Injection::Kind::Once, ENOLCK},
    {"EMFILE once", Injection::Kind::Once, EMFILE},
    {"EMFILE lasting", Injection::Kind::Lasting, EMFILE},
    {"ECONNREFUSED once", Injection::Kind::Once, ECONNREFUSED},
    {"ECONNREFUSED lasting", Injection::Kind::Lasting, ECONNREFUSED},
    {"connection cut", Injection::Kind::Cut, 0},
    {"ETIMEDOUT once", Injection::Kind::Once, ETIMEDOUT},
    {"ETIMEDOUT lasting", Injection::Kind::Lasting, ETIMEDOUT},
};

}  // namespace

FailingCalls::FailingCalls(OfficeFixture& fixture, const ui_driver::ServerProcess& server, std::string store, int step)
    : Checker(fixture, server, std::move(store)), step_(step) {}

void FailingCalls::run(const CompanyKind& kind) {
    fixture_.begin(kind);
    learn();
    for (const CallFailure& failure : kCallFailures) {
        injectEverywhere({failure.kind, 0, failure.answer}, failure.name);
    }
}

/// False if the scenario has fewer calls.
bool FailingCalls::injectOnce(const Injection& injection, const std::string& name) {
    point_ = name + " " + std::to_string(injection.at);
    fixture_.comeBack();
    const auto begun = Clock::now();
    const Outcome outcome = runUnder(injection, fixture_.company(), 0);
    if (Clock::now() - begun > kLimits * fixture_.limit()) {
        reportFault("takes " + std::to_string(std::chrono::duration<double>(Clock::now() - begun).count()) + " s");
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

void FailingCalls::injectEverywhere(Injection injection, const std::string& name) {
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
