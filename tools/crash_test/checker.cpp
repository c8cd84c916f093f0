#include "checker.h"

#include <algorithm>
#include <chrono>
#include <iostream>
#include <limits>
#include <stdexcept>
#include <utility>

namespace crash_test {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kNever = std::numeric_limits<int>::max();
constexpr const char* kReplacementSuffix = ".new";
constexpr const char* kSaved = "|COS05574";

std::string eventName(const std::string& line) { return line.substr(0, line.find('|')); }

/// Returns the failures in a report's line, without the texts of a successful event.
std::vector<std::string> failuresIn(const std::string& line) {
    std::vector<std::string> failures;
    if (eventName(line) == "shown") {
        return failures;
    }
    for (std::size_t from = line.find('|'); from != std::string::npos; from = line.find('|', from + 1)) {
        const std::string message = line.substr(from + 1, line.find('|', from + 1) - from - 1);
        if (message != "COS20001" && message != "COS20002" && message != "ADD00010" && message != "COS05574") {
            failures.push_back(message);
        }
    }
    return failures;
}

bool touched(const Outcome& outcome, const std::string& folder) {
    return std::ranges::any_of(outcome.injected,
                               [&](const std::string& call) { return (call + "/").find(folder) != std::string::npos; });
}

std::vector<std::string> pieces(const std::string& state) {
    std::vector<std::string> all{""};
    for (const char c : state) {
        c == '|' || c == '\n' ? static_cast<void>(all.emplace_back()) : all.back().push_back(c);
    }
    return all;
}

/// Returns the difference between an unexpected state and the nearest expected one.
std::string describeDifference(const std::string& state, const std::set<std::string>& states) {
    const std::vector<std::string> actual = pieces(state);
    std::vector<std::string> nearest(actual.size() + 1);
    for (const std::string& known : states) {
        std::vector<std::string> others;
        const std::vector<std::string> fine = pieces(known);
        for (std::size_t i = 0; i < std::min(fine.size(), actual.size()); ++i) {
            if (fine[i] != actual[i]) {
                others.push_back("\"" + actual[i] + "\" for \"" + fine[i] + "\"");
            }
        }
        nearest = others.size() < nearest.size() ? others : nearest;
    }
    return nearest.empty() ? "rows" : nearest.front();
}

}  // namespace

Checker::Checker(OfficeFixture& fixture, const ui_driver::ServerProcess& server, std::string store)
    : fixture_(fixture), server_(server), store_(std::move(store)) {}

Outcome Checker::runUnder(const Injection& injection, const std::string& company, int round) {
    const Scenario scenario = fixture_.scenario(company, round);
    auto since = Clock::now();
    slowest_ = {};
    saved_.clear();
    const bool kills = injection.kind == Injection::Kind::Kill || injection.kind == Injection::Kind::KillHalfway;
    return runTraced(
        fixture_.watched(kills), injection, [&] { runScenario(scenario); },
        [&] {
            slowest_ = std::max(slowest_, Clock::now() - since);
            const std::string line = fixture_.report().back();
            if (round == 0) {
                checkEvent(line);
                afterEvent(line);
            }
            since = Clock::now();
        });
}

void Checker::checkEvent(const std::string& line) {
    if (eventName(line) == "edit") {
        fixture_.editCompany();
    }
    const std::string state = fixture_.state();
    if (eventName(line) == "save" && saved_.empty()) {
        saved_ = state;
    }
    if (isLearning_) {
        states_.insert(state);
    } else if (!states_.contains(state)) {
        reportFault("after \"" + line +
                    "\" the store is in none of the expected states: " + describeDifference(state, states_));
    }
}

/// Records the store's states and the final state of an undisturbed scenario.
void Checker::learn() {
    states_ = {fixture_.state()};
    names_.clear();
    records_.clear();
    filesBefore_ = fixture_.files();
    isLearning_ = true;
    fixture_.giveUpAfter(kPatient);
    server_.misbehave("photos:status=500\ncompanies:status=500");
    runUnder({}, fixture_.company(), 0);
    fixture_.comeBack();
    server_.misbehave("companies:well\nphotos:status=500");
    const Outcome whole = runUnder({Injection::Kind::Kill, kNever, 0}, fixture_.company(), 0);
    isLearning_ = false;
    final_ = fixture_.state();
    for (const std::string& line : fixture_.report()) {
        if (!whole.fine || !failuresIn(line).empty()) {
            throw std::runtime_error("an undisturbed scenario fails: " + line + " " + whole.ending);
        }
    }
    if (states_.size() < 3) {
        throw std::runtime_error("a save does not go through three states");
    }
    finalFiles_ = fixture_.files();
    bool isWhole = true;
    for (const std::string& record : fixture_.log(isWhole)) {
        records_.insert(record);
    }
    std::cout << store_ << ", " << fixture_.kind().name << ": " << whole.calls << " calls, " << records_.size()
              << " kinds of log records" << std::endl;
    for (const Files& files : {filesBefore_, finalFiles_}) {
        for (const auto& [name, content] : files) {
            names_.insert(name);
        }
    }
    fixture_.comeBack();
}

void Checker::checkPoint(const std::function<void()>& point) {
    found_.clear();
    fixture_.giveUpAfter(kHasty);
    point();
    if (found_.empty()) {
        return;
    }
    fixture_.giveUpAfter(kPatient);
    const std::vector<std::string> first = std::exchange(found_, {});
    point();
    faults_ += static_cast<int>(found_.size());
    const bool isFault = !found_.empty();
    for (const std::string& what : isFault ? found_ : first) {
        std::cout << (isFault ? "FAULT " : "not with more time: ") << store_ << ", " << fixture_.kind().name << ", "
                  << point_ << ": " << what << std::endl;
    }
}

void Checker::checkStore() {
    if (const std::string damage = fixture_.damage(); !damage.empty()) {
        reportFault("the store is damaged: " + damage);
    }
    if (const std::string state = fixture_.state(); !states_.contains(state)) {
        reportFault("the store is in none of the expected states: " + describeDifference(state, states_));
    }
    const std::vector<std::string> locks = fixture_.ownLocks();
    if (locks.size() > 1) {
        reportFault("more than one lock");
    }
}

/// A photo must be old or new, and complete. If it is missing, the new one must be complete next to its place.
void Checker::checkPhotos() {
    const Files now = fixture_.files();
    for (const auto& [name, old] : filesBefore_) {
        if (name.starts_with("TMP/")) {
            continue;
        }
        const auto after = finalFiles_.find(name);
        const std::string fresh = after == finalFiles_.end() ? old : after->second;
        const auto found = now.find(name);
        const auto replacement = now.find(name + kReplacementSuffix);
        if (found == now.end() && replacement != now.end() && replacement->second == fresh) {
            ++instants_;
        } else if (found == now.end() || (found->second != old && found->second != fresh)) {
            reportFault(name + (found == now.end() ? " is gone" : " is cut"));
        }
    }
}

void Checker::checkLog(const Outcome& outcome) {
    bool isWhole = true;
    const std::vector<std::string> log = fixture_.log(isWhole);
    const bool mayBeTorn = outcome.injected.front().starts_with("write") && touched(outcome, "/LOG/");
    int torn = 0;
    for (const std::string& record : log) {
        const bool isStart =
            std::ranges::any_of(records_, [&](const std::string& whole) { return whole.starts_with(record); });
        torn += records_.contains(record) ? 0 : mayBeTorn && isStart ? 1 : 2;
    }
    if (torn > 1) {
        reportFault("a log record is not whole");
    }
}

/// Starts the program again on the same computer, on the crashed run's data.
void Checker::checkNextRun() {
    const std::string number = fixture_.one("SELECT USER_ID FROM TBL_CUSTOMER_INFO WHERE USER_ID > '000005000'");
    const std::string company = number.empty() ? fixture_.company() : number;
    const std::string name = fixture_.one("SELECT TANTO_NAME FROM TBL_CUSTOMER_INFO WHERE USER_ID = '" + company + "'");
    const bool isStored =
        !fixture_.one("SELECT USER_ID FROM TBL_CUSTOMER_DATE WHERE USER_ID = '" + company + "'").empty();
    const Outcome next = runUnder({}, company, 1);
    const std::vector<std::string> report = fixture_.report();
    if (!next.fine || report.size() < 2) {
        reportFault("the next start ends with " + next.ending);
        return;
    }
    if (!report[1].starts_with("shown|" + name + "|")) {
        reportFault("the next start shows another company: " + report[1] + " instead of " + name);
    }
    for (const std::string& line : report) {
        if (isStored && !failuresIn(line).empty()) {
            reportFault("the next run fails: " + line);
        }
    }
    // If the company has its number by now, its lock without a number remains until a new company is opened here.
    const std::vector<std::string> locks = fixture_.ownLocks();
    if (!locks.empty() && (number.empty() || locks != std::vector<std::string>{fixture_.company()})) {
        reportFault("the next run leaves a lock");
    }
    for (const auto& [file, content] : fixture_.files()) {
        if (!names_.contains(file)) {
            reportFault("left over: " + file);
        }
    }
}

void Checker::checkDead(const Outcome& outcome) {
    checkStore();
    checkPhotos();
    checkLog(outcome);
    checkNextRun();
    checkLog(outcome);
}

/// Every failed event must have reported it, and the log must have a record of it.
void Checker::checkReport(const Outcome& outcome) {
    bool isWhole = true;
    const std::vector<std::string> log = fixture_.log(isWhole);
    const bool logWorks = !touched(outcome, "/LOG/") && !touched(outcome, "/SYS/");  // settings contain the log's path
    if (logWorks && !isWhole) {
        reportFault("the log does not end with a whole record");
    }
    for (const std::string& line : fixture_.report()) {
        for (const std::string& failure : failuresIn(line)) {
            const std::string code = failure.substr(failure.find(',') + 1);
            const bool isLogged = std::ranges::any_of(
                log, [&](const std::string& record) { return record.find("," + code + ",") != std::string::npos; });
            if (logWorks && !isLogged) {
                reportFault("not in the log: " + line);
            }
        }
        if (eventName(line) == "save" && failuresIn(line).empty() && !line.ends_with(kSaved)) {
            reportFault("a save that reports nothing");
        }
    }
}

void Checker::checkAlive(const Outcome& outcome) {
    if (!outcome.fine) {
        reportFault("ends with " + outcome.ending);
        return;
    }
    checkReport(outcome);
    checkStore();
    checkPhotos();
    const std::vector<std::string> report = fixture_.report();
    if (report.size() == 1) {
        if (failuresIn(report.front()).empty()) {
            reportFault("does not start and does not report why");
        }
        checkNextRun();
        return;
    }
    if (eventName(report.back()) != "leave" || !failuresIn(report.back()).empty()) {
        reportFault("cannot be left: " + report.back());
    }
    if (fixture_.state() != final_) {
        reportFault("the repeated save is not complete: " + report[report.size() - 2]);
    }
    // If the operator must open the new number again, that run takes over a lock whose state was uncertain.
    const bool willOpenAgain =
        std::ranges::any_of(report, [](const std::string& line) { return line.find("SAVE0001") != std::string::npos; });
    if (!willOpenAgain && !fixture_.ownLocks().empty()) {
        reportFault("a lock is left");
    }
    // A remaining journal belongs to the store, and its next opening will use it.
    for (const auto& [file, content] : fixture_.files()) {
        const auto found = finalFiles_.find(file);
        if (found == finalFiles_.end() ? file != kJournal : found->second != content) {
            reportFault((found == finalFiles_.end() ? "left over: " : "not the new one: ") + file);
        }
    }
}

}  // namespace crash_test
