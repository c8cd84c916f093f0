#pragma once

#include "judge.h"

namespace crash_test {

/// Runs scenarios in which one answer of the suite's server is wrong: an error, cut, unreadable, late, or without a
/// number.
class WrongAnswers : public Judge {
public:
    WrongAnswers(OfficeGround& ground, const desk::ServerDesk& server) : Judge(ground, server, "answers") {}

    void run(const CompanyKind& kind);

private:
    struct Wrong;

    void afterEvent(const std::string& line) override;
    void tryOne(const Wrong& wrong);
    void judgeTold(const Wrong& wrong);
    void judgeNumber();
};

}  // namespace crash_test
