#pragma once

#include "checker.h"

namespace crash_test {

/// Runs a scenario repeatedly, with a failure injected at one call after the other.
class FailingCalls : public Checker {
public:
    /// `step` selects every STEP-th call.
    FailingCalls(OfficeFixture& fixture, const ui_driver::ServerProcess& server, std::string store, int step);

    void run(const CompanyKind& kind);

private:
    bool injectOnce(const Injection& injection, const std::string& name);
    void injectEverywhere(Injection injection, const std::string& name);

    int step_;
};

}  // namespace crash_test
