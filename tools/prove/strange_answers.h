#pragma once

#include "certificates.h"
#include "judge.h"
#include "strange_server.h"
#include "strange_ways.h"

namespace prove {

/// Puts an operator's errand to the proof: each answer of the suite's server comes back strange, byte by byte and as a
/// whole, one an errand.
class StrangeAnswers : public Judge {
public:
    /// `front`: where the program finds the server. `step`: every place, or every so manyth; what is strange as a whole
    /// comes in any case.
    StrangeAnswers(OfficeGround& ground, const desk::ServerDesk& server, StrangeServer& front, std::size_t step);

    void run(const CompanyKind& kind);
    /// The same over TLS, with wrong certificates, and with the answers that are strange as a whole; with the settings
    /// that go with it.
    void runOverTls(const CompanyKind& kind, const Authority& authority);

private:
    struct Expected {
        Asked asked;
        Fate fate;
        std::string code;
    };

    void beforeErrand() override;
    /// Gives what the program asks for.
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

}  // namespace prove
