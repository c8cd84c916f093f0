// bench_terminal PROGRAM_FOLDER LEDGER COMPANIES SEED FROM TO: opens, switches and saves at random, between two times
// of the steady clock.
// bench_terminal PROGRAM_FOLDER LEDGER COMPANIES --statements FOLDER: does each once and writes the statements as
// scripts for the peer, one file per session, named after the event.
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <random>
#include <thread>

#include "terminal.h"

namespace {

using namespace bench;

/// The number of an operator's random events, one of which ends the run.
constexpr int kEvents = 10;
constexpr int kSaves = 5;

std::string companyOf(int number) { return std::to_string(100000000 + number); }

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
    bool goesOn = terminal.open(companyOf(company(chance)));
    for (int next = event(chance); goesOn && next != kEvents && nanosecondsNow() < shift.end; next = event(chance)) {
        goesOn = act(terminal, next, companyOf(company(chance)));
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

std::string replaced(std::string text, const std::string& what, const std::string& by) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size())) {
        text.replace(at, what.size(), by);
    }
    return text;
}

/// Records one event between company `from` and company `to`.
class Scribe {
public:
    Scribe(std::string folder, std::string computer, int companies)
        : folder_(std::move(folder)), computer_(std::move(computer)), companies_(companies) {}

    void write(const std::string& event, TracedStore& store, const std::string& from, const std::string& to,
               std::string beginning = {}) const {
        int number = 0;
        for (const std::string& session : store.take()) {
            const std::string anyones = replaced(replaced(session, from, ":old"), to, ":id");
            std::ofstream(folder_ + "/" + event + "_" + std::to_string(++number) + ".sql")
                << beginning << replaced(anyones, computer_, computer_ + ":client_id");
            beginning.clear();
        }
    }
    std::string choice() const {
        return "\\set old :id\n\\set id random(" + companyOf(1) + ", " + companyOf(companies_) + ")\n";
    }

private:
    std::string folder_;
    std::string computer_;
    int companies_;
};

int writeStatements(const Shift& shift, const std::string& folder) {
    const std::string first = companyOf(1);
    const std::string second = companyOf(2);
    const Scribe scribe(folder, orv::PosixFacts().GetComputerName(), shift.companies);
    Terminal terminal(shift.programFolder, shift.ledger);
    bool fine = terminal.open(first);
    scribe.write("open", terminal.store(), second, first, scribe.choice());
    fine = fine && terminal.switchTo(second);
    scribe.write("switch", terminal.store(), first, second, scribe.choice());
    fine = fine && terminal.save();
    scribe.write("save", terminal.store(), first, second);
    terminal.leave();
    scribe.write("leave", terminal.store(), first, second);
    return fine ? 0 : 1;
}

}  // namespace

int main(int argc, char* argv[]) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() < 5) {
        return 2;
    }
    Shift shift{arguments[0], arguments[1], std::stoi(arguments[2]), 0};
    if (arguments[3] == "--statements") {
        return writeStatements(shift, arguments[4]);
    }
    shift.end = std::stoll(arguments.at(5));
    return work(shift, static_cast<unsigned>(std::stoul(arguments[3])), std::stoll(arguments[4]));
}
