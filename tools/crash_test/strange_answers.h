#pragma once

#include "certificates.h"
#include "judge.h"
#include "strange_server.h"
#include "strange_ways.h"

namespace crash_test {

/// Runs scenarios in which one answer of the suite's server is wrong, at each byte and as a whole.
class StrangeAnswers : public Judge {
public:
    /// `front` is the server that the program contacts. `step` selects every STEP-th position; answers that are wrong
    /// as a whole are always tested.
    StrangeAnswers(OfficeGround& ground, const desk::ServerDesk& server, StrangeServer& front, std::size_t step);

    void run(const CompanyKind& kind);
    /// Repeats the answers that are wrong as a whole over TLS, and adds wrong certificates. Changes the settings for
    /// TLS.
    void runOverTls(const CompanyKind& kind, const Authority& authority);

private:
    struct Expected {
        Asked asked;
        Fate fate;
        std::string code;
    };

    void beforeErrand() override;
    /// Returns the requests of the program.
    std::vector<Asked> begin(const CompanyKind& kind);
    void strikePlaces(Asked asked);
    void strikeWhole(Asked asked);
    void showWrong(const TlsContext& right, const WrongCertificate& wrong);
    void strike(const Expected& expected, Strangeness strangeness);
    void judgeTold(const Expected& expected);
    void judgeNumber();
    template <typename Points>
    void report(const std::string& name, Points points);

    StrangeServer& front_;
    Port elsewhere_;
    std::size_t step_;
    const Authority* authority_ = nullptr;
    int photos_ = 0;
    std::chrono::steady_clock::duration longest_{};
};

}  // namespace crash_test
