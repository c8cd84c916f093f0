// bench_terminal PROGRAM_FOLDER LEDGER COMPANIES SEED FROM TO: opens, switches and saves at random, between two times
// of the steady clock.
#include <sys/wait.h>
#include <unistd.h>

#include <random>
#include <thread>

#include "terminal.h"

namespace {

using namespace bench;

/// The number of an operator's random events, one of which ends the run.
constexpr int kEvents = 10;
constexpr int kSaves = 5;

std::string companyId(int number) { return std::to_string(100000000 + number); }

struct Shift {
    std::string programFolder;
    std::string ledger;
    int companies;
    std::int64_t end;
};

bool act(Terminal& terminal, int event, const std::string& company) {
    return event <= kSaves ? terminal.save() : terminal.switchTo(company);
}

void runProgram(const Shift& shift, unsigned seed) {
    std::mt19937 chance(seed);
    std::uniform_int_distribution<int> company(1, shift.companies);
    std::uniform_int_distribution<int> event(1, kEvents);
    Terminal terminal(shift.programFolder, shift.ledger);
    bool goesOn = terminal.open(companyId(company(chance)));
    for (int next = event(chance); goesOn && next != kEvents && nanosecondsNow() < shift.end; next = event(chance)) {
        goesOn = act(terminal, next, companyId(company(chance)));
    }
    terminal.leave();
}

/// Runs each opening in a process of its own, as on a real terminal.
bool runInProcess(const Shift& shift, unsigned seed) {
    const pid_t child = ::fork();
    if (child == 0) {
        runProgram(shift, seed);
        ::_exit(0);
    }
    int status = -1;
    return ::waitpid(child, &status, 0) == child && status == 0;
}

int work(const Shift& shift, unsigned seed, std::int64_t from) {
    std::mt19937 chance(seed);
    std::this_thread::sleep_for(std::chrono::nanoseconds(from - nanosecondsNow()));
    while (nanosecondsNow() < shift.end) {
        if (!runInProcess(shift, static_cast<unsigned>(chance()))) {
            return 1;
        }
    }
    return 0;
}

}  // namespace

int main(int argc, char* argv[]) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() != 6) {
        return 2;
    }
    const Shift shift{arguments[0], arguments[1], std::stoi(arguments[2]), std::stoll(arguments[5])};
    return work(shift, static_cast<unsigned>(std::stoul(arguments[3])), std::stoll(arguments[4]));
}
