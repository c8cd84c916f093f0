#include <sys/wait.h>

#include <random>
#include <thread>

#include "support/fixture.h"

namespace orv {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kCompanies = 10;
/// The first company that both terminals switch to. They start on earlier ones, so that no start is refused.
constexpr int kShared = 3;
constexpr std::chrono::minutes kPatience(5);
constexpr int kLongestStay = 8;  // milliseconds

/// The work of a terminal, and how often it got a company in a race of two that both saw it free.
struct Tally {
    int switches = 0, refused = 0, races = 0, faults = 0;
};

std::string companyAt(int place) { return "00000461" + std::to_string(place); }

class TwoTerminals : public SystemTest {
protected:
    TwoTerminals() {
        for (const std::string table : kTables) {
            for (int i = 0; i < kCompanies; ++i) {
                sql("create temp table one as select * from " + table + " where USER_ID = '000004602';" +
                    "update one set USER_ID = '" + companyAt(i) + "'; insert into " + table +
                    " select * from one; drop table one");
            }
        }
    }

    /// Switches at random until the time is over, and at least until it has switched and met the other. Then leaves.
    Tally work(int own, Clock::time_point end) {
        facts.computerName = "DESK0" + std::to_string(own);
        std::mt19937 random(static_cast<unsigned>(getpid()));
        Tally tally;
        start(companyAt(own) + ",1,0");
        store.watch = [&](const std::string& sql) { note(sql); };
        const std::string other = report(3 - own);
        const auto goesOn = [&] {
            return tally.switches == 0 || (tally.refused == 0 && !std::filesystem::exists(other));
        };
        while (Clock::now() < end || (goesOn() && Clock::now() < end + kPatience)) {
            switchTo(companyAt(kShared + static_cast<int>(random() % (kCompanies - kShared))), tally);
            std::this_thread::sleep_for(std::chrono::milliseconds(random() % kLongestStay));
        }
        store.watch = nullptr;
        leave();
        return tally;
    }
    bool locked(const std::string& company, const std::string& sign) {
        return one("select count(*) from TBL_LOCK where USER_ID = '" + company + "' and LOCAL_INFO " + sign + " '" +
                   facts.computerName + "'") != "0";
    }
    /// Reads the lock table before and after the program does. No terminal leaves a company and returns meanwhile.
    void note(const std::string& sql) {
        const bool looks = sql.starts_with("select LOCAL_INFO");
        if (looks || looking_) {
            const bool taken = locked(wish_, "<>");
            taken_ = looks ? taken : taken_ && taken;
        }
        looking_ = looks;
    }
    void switchTo(const std::string& wish, Tally& tally) {
        if (wish == tCustomerInfo.USER_ID) return;
        tally.faults += locked(tCustomerInfo.USER_ID, "=") ? 0 : 1;
        messages.shown.clear();
        wish_ = wish;
        choose(wish);
        const Texts shown = shownIds();
        if (shown == Texts{"COS20001", "COS20003"}) {
            ++tally.refused;
        } else if (shown == Texts{"COS20001"} && tCustomerInfo.USER_ID == wish && !taken_) {
            ++tally.switches;
            tally.races += locked(wish, "<>") ? 1 : 0;
        } else {
            ++tally.faults;
        }
    }
    /// Runs a terminal in a separate process, which writes its tally.
    void runTerminal(int own, Clock::time_point end) {
        if (fork() == 0) {
            const Tally tally = work(own, end);
            std::ofstream(report(own)) << tally.switches << ' ' << tally.refused << ' ' << tally.races << ' '
                                       << tally.faults << '\n';
            _exit(0);
        }
    }
    std::string report(int own) const { return office.root() + "/terminal" + std::to_string(own); }

    /// True if, during the current switch, another terminal had the company while the program checked.
    std::string wish_;
    bool looking_ = false;
    bool taken_ = false;
};

TEST_F(TwoTerminals, NeverHaveACompanyTogetherButByTheRaceForAFreeOne) {
    const char* seconds = std::getenv("ORV_TERMINALS_SECONDS");
    const Clock::time_point end = Clock::now() + std::chrono::seconds(seconds == nullptr ? 2 : std::atoi(seconds));
    runTerminal(1, end);
    runTerminal(2, end);
    for (int ended = 0; ended < 2; ++ended) {
        int status = 0;
        EXPECT_GT(wait(&status), 0);
        EXPECT_EQ(status, 0);
    }
    int refused = 0;
    for (const int own : {1, 2}) {
        Tally each{.faults = 1};
        std::ifstream(report(own)) >> each.switches >> each.refused >> each.races >> each.faults;
        EXPECT_GT(each.switches, 0);
        EXPECT_EQ(each.faults, 0);
        refused += each.refused;
        std::cout << "terminal " << own << ": " << each.refused << " refusals, " << each.races << " races\n";
    }
    EXPECT_GT(refused, 0);
    EXPECT_EQ(locks(), Texts{});
    EXPECT_EQ(log(), "");
}

}  // namespace
}  // namespace orv
