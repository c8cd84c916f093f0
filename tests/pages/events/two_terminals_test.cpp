#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

#include "support/fixture.h"

namespace orv {
namespace {

using Texts = std::vector<std::string>;
using Clock = std::chrono::steady_clock;

constexpr int kCompanies = 10;
constexpr int kShortRun = 2;  // seconds
constexpr std::chrono::seconds kPatience(60);
constexpr int kLongestStay = 8;  // milliseconds
constexpr const char* kSeconds = "ORV_TERMINALS_SECONDS";

/// A company as a terminal had it: between which moments it looked for another's lock, when its own was there at the
/// latest, and until when at least. In nanoseconds.
struct Stay {
    std::string company;
    long long lookBegan = 0;
    long long lookEnded = 0;
    long long had = 0;
    long long left = 0;
};

/// What a terminal has done.
struct Tally {
    std::vector<Stay> stays;
    int refused = 0;
    int faults = 0;
};

long long now() { return Clock::now().time_since_epoch().count(); }

std::string companyAt(int place) { return "00000461" + std::to_string(place); }

int secondsToRun() {
    const char* given = std::getenv(kSeconds);
    return given == nullptr ? kShortRun : std::atoi(given);
}

class TwoTerminals : public SystemTest {
protected:
    TwoTerminals() {
        for (const char* table : {"TBL_CUSTOMER_INFO", "TBL_CUSTOMER_ADD", "TBL_CUSTOMER_DATE"}) {
            for (int i = 0; i < kCompanies; ++i) {
                sql("create temp table one as select * from " + std::string(table) +
                    " where USER_ID = '000004602'; update one set USER_ID = '" + companyAt(i) + "'; insert into " +
                    table + " select * from one; drop table one");
            }
        }
    }

    /// Switches at random until the time is over and one has been in the other's way, and leaves.
    Tally work(int own, Clock::time_point end) {
        facts.computerName = "DESK0" + std::to_string(own);
        std::mt19937 random(static_cast<unsigned>(getpid()));
        Tally tally;
        store.watch = [&](const std::string& sql) { note(sql, tally); };
        start(companyAt(own) + ",1,0");
        finish(tally);
        const std::string other = report(3 - own);
        while (Clock::now() < end ||
               (tally.refused == 0 && !std::filesystem::exists(other) && Clock::now() < end + kPatience)) {
            switchTo(companyAt(static_cast<int>(random() % kCompanies)), tally);
            std::this_thread::sleep_for(std::chrono::milliseconds(random() % kLongestStay));
        }
        leave();
        store.watch = nullptr;
        return tally;
    }
    /// Takes the moments from the statements that pass.
    void note(const std::string& sql, Tally& tally) {
        if (sql.starts_with("select LOCAL_INFO")) {
            coming_ = {"", now(), 0, 0, 0};
        } else if (coming_.lookEnded == 0) {
            coming_.lookEnded = now();
        }
        const bool releases = sql.starts_with("delete from TBL_LOCK") && !tally.stays.empty() &&
                              sql.find("'" + tally.stays.back().company + "'") != std::string::npos;
        if (releases && tally.stays.back().left == 0) {
            tally.stays.back().left = now();
        }
        if (sql.find("LEFT JOIN") != std::string::npos) {
            coming_.had = now();
        }
    }
    void finish(Tally& tally) {
        coming_.company = tCustomerInfo.USER_ID;
        tally.stays.push_back(coming_);
    }
    void switchTo(const std::string& wish, Tally& tally) {
        if (wish == tCustomerInfo.USER_ID) {
            return;
        }
        messages.shown.clear();
        choose(wish);
        const Texts shown = shownIds();
        if (shown == Texts{"COS20001", "COS20003"}) {
            ++tally.refused;
        } else if (shown == Texts{"COS20001"} && tCustomerInfo.USER_ID == wish) {
            finish(tally);
        } else {
            ++tally.faults;
        }
    }
    /// A terminal in a process of its own, which writes down what it has done.
    pid_t terminal(int own, Clock::time_point end) {
        const pid_t child = fork();
        if (child == 0) {
            const Tally tally = work(own, end);
            std::ofstream file(report(own));
            file << tally.refused << ' ' << tally.faults << '\n';
            for (const Stay& stay : tally.stays) {
                file << stay.company << ' ' << stay.lookBegan << ' ' << stay.lookEnded << ' ' << stay.had << ' '
                     << stay.left << '\n';
            }
            file.close();
            _exit(file ? 0 : 1);
        }
        return child;
    }
    Tally read(int own) const {
        Tally tally;
        std::ifstream file(report(own));
        file >> tally.refused >> tally.faults;
        for (Stay stay; file >> stay.company >> stay.lookBegan >> stay.lookEnded >> stay.had >> stay.left;) {
            tally.stays.push_back(stay);
        }
        return tally;
    }
    std::string report(int own) const { return office.root() + "/terminal" + std::to_string(own); }

    /// Of the switch that is going on.
    Stay coming_;
};

bool together(const Stay& a, const Stay& b) { return a.company == b.company && a.had < b.left && b.had < a.left; }

/// The second looked while the first had the company: no race of two that both saw it free.
bool takenFrom(const Stay& first, const Stay& second) {
    return first.had <= second.lookBegan && second.lookEnded <= first.left;
}

TEST_F(TwoTerminals, NeverHaveACompanyTogetherButByTheRaceForAFreeOne) {
    const Clock::time_point end = Clock::now() + std::chrono::seconds(secondsToRun());
    const std::array children{terminal(1, end), terminal(2, end)};
    for (const pid_t child : children) {
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    const Tally first = read(1);
    const Tally second = read(2);
    int races = 0;
    for (const Stay& a : first.stays) {
        for (const Stay& b : second.stays) {
            if (together(a, b)) {
                ++races;
                EXPECT_FALSE(takenFrom(a, b) || takenFrom(b, a)) << a.company << " had by both";
            }
        }
    }
    std::cout << "terminals: " << first.stays.size() << " and " << second.stays.size() << " companies, "
              << first.refused + second.refused << " refusals, " << races << " races\n";
    EXPECT_GT(first.refused + second.refused, 0);
    EXPECT_EQ(first.faults + second.faults, 0);
    EXPECT_EQ(locks(), Texts{});
    EXPECT_EQ(log(), "");
}

}  // namespace
}  // namespace orv
