#pragma once

#include "checker.h"

namespace crash_test {

/// Runs scenarios in which one answer of the suite's server is wrong: an error, cut, unreadable, late, or without a
/// number.
class WrongAnswers : public Checker {
public:
    WrongAnswers(OfficeFixture& fixture, const ui_driver::ServerProcess& server)
        : Checker(fixture, server, "answers") {}

    void run(const CompanyKind& kind);

private:
    struct Wrong;

    void afterEvent(const std::string& line) override;
    void tryOne(const Wrong& wrong);
    void checkMessage(const Wrong& wrong);
    void checkNumber();
};

}  // namespace crash_test
