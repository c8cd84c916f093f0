#include "strange_answers.h"

#include <algorithm>
#include <iostream>
#include <stdexcept>

namespace crash_test {
namespace {

using Clock = std::chrono::steady_clock;

/// The maximum duration of an event, in multiples of the program's time limit.
constexpr int kLimits = 10;
constexpr const char* kWell = "save|COS05574";
constexpr const char* kTold = "save|COSERR01,";

std::string nameOf(Asked asked) {
    return asked == Asked::Prepare ? "the preparing" : asked == Asked::Photo ? "a photo" : "the company";
}

/// Returns the report of the first save.
std::string savedLine(const std::vector<std::string>& report) {
    const auto found = std::ranges::find_if(report, [](const std::string& line) { return line.starts_with("save"); });
    return found == report.end() ? "" : *found;
}

std::string idIn(const std::string& answer) {
    const std::string before = "\"id\":\"";
    const std::size_t start = answer.find(before);
    return start == std::string::npos ? "" : answer.substr(start + before.size(), 9);
}

}  // namespace

StrangeAnswers::StrangeAnswers(OfficeGround& ground, const desk::ServerDesk& server, StrangeServer& front,
                               std::size_t step)
    : Judge(ground, server, "answers"), front_(front), step_(step) {}

void StrangeAnswers::beforeErrand() {
    if (authority_ != nullptr && !authority_->beTrusted()) {
        throw std::runtime_error("the authority can't be trusted");
    }
}

std::vector<Asked> StrangeAnswers::begin(const CompanyKind& kind) {
    ground_.begin(kind);
    learn();
    server_.misbehave("well");
    for (int times = 0; times < 2; ++times) {  // the server answers a known photo differently from a new one
        ground_.comeBack();
        front_.befall(Asked::Company, {});
        errandUnder({}, ground_.company(), 0);
    }
    if (savedLine(ground_.report()) != kWell) {
        throw std::runtime_error("an undisturbed save fails: " + savedLine(ground_.report()));
    }
    photos_ = front_.requests(Asked::Photo);
    return photos_ == 0 ? std::vector{Asked::Prepare, Asked::Company}
                        : std::vector{Asked::Prepare, Asked::Photo, Asked::Company};
}

void StrangeAnswers::run(const CompanyKind& kind) {
    for (const Asked asked : begin(kind)) {
        strikePlaces(asked);
        strikeWhole(asked);
    }
}

void StrangeAnswers::runOverTls(const CompanyKind& kind, const Authority& authority) {
    authority_ = &authority;
    store_ = "answers over TLS";
    const TlsContext right = authority.right();
    front_.speakTls(right.get(), nullptr, 0, 0);
    const std::vector<Asked> all = begin(kind);
    report("wrong certificates", [&] {
        for (const WrongCertificate& wrong : authority.wrongOnes()) {
            showWrong(right, wrong);
        }
    });
    for (const Asked asked : all) {
        strikeWhole(asked);
    }
}

/// Shows the wrong certificate to all requests, to the photos only, and to the company only. After it no request may
/// follow.
void StrangeAnswers::showWrong(const TlsContext& right, const WrongCertificate& wrong) {
    struct Shown {
        Asked asked;
        int before;
        int count;
    };
    for (const auto& [asked, before, count] : {Shown{Asked::Prepare, 0, 1 + photos_}, Shown{Asked::Photo, 1, photos_},
                                               Shown{Asked::Company, 1 + photos_, 1}}) {
        if (count == 0) {
            continue;
        }
        point_ = std::string(wrong.name) + ", first for " + nameOf(asked);
        const int saves = asked == Asked::Photo ? 0 : 1;  // successful saves among those that received the wrong one
        judgePoint([&] {
            front_.speakTls(right.get(), wrong.context.get(), before, count);
            strike({asked, Fate::Refused, "24011"}, {});
            if (front_.requests(asked) != saves) {
                fault("is sent to a server with a wrong certificate");
            }
        });
        ++points_;
    }
}

template <typename Points>
void StrangeAnswers::report(const std::string& name, Points points) {
    const auto start = Clock::now();
    const int pointsBefore = points_;
    const int faultsBefore = faults_;
    longest_ = {};
    points();
    const std::chrono::duration<double> taken = Clock::now() - start;
    std::cout << store_ << ", " << ground_.kind().name << ", " << name << ": " << points_ - pointsBefore << " points, "
              << faults_ - faultsBefore << " faults, " << taken.count() << " s, the longest event "
              << std::chrono::duration<double>(longest_).count() << " s" << std::endl;
}

void StrangeAnswers::strikePlaces(Asked asked) {
    const std::size_t size = front_.trueAnswer(asked).size();
    for (const PlaceWay& way : placeWays()) {
        const std::string name = nameOf(asked) + ", " + way.name;
        report(name, [&] {
            for (std::size_t place = (step_ - 1) / 2; place < size * way.placesPerByte; place += step_) {
                point_ = name + " at " + std::to_string(place);
                judgePoint([&] { strike({asked, way.fate, way.code}, way.at(place)); });
                ++points_;
            }
        });
    }
}

void StrangeAnswers::strikeWhole(Asked asked) {
    const std::vector<WholeWay> ways = wholeWays(elsewhere_.number());
    report(nameOf(asked) + ", as a whole", [&] {
        for (const WholeWay& way : ways) {
            point_ = nameOf(asked) + ", " + way.name;
            const Fate fate = asked == Asked::Company   ? way.ofCompany
                              : asked == Asked::Prepare ? way.ofPrepare
                                                        : Fate::Either;
            judgePoint([&] { strike({asked, fate, ""}, way.strangeness); });
            ++points_;
        }
    });
}

void StrangeAnswers::strike(const Expected& expected, Strangeness strangeness) {
    ground_.comeBack();
    front_.befall(expected.asked, std::move(strangeness));
    const Outcome outcome = errandUnder({}, ground_.company(), 0);
    longest_ = std::max(longest_, slowest_);
    if (slowest_ > kLimits * ground_.limit()) {
        fault("an event takes " + std::to_string(std::chrono::duration<double>(slowest_).count()) + " s");
    }
    if (elsewhere_.wasVisited()) {
        fault("leads the program to another server");
    }
    judgeAlive(outcome);
    judgeTold(expected);
    judgeNumber();
}

/// A failed photo does not stop a save.
void StrangeAnswers::judgeTold(const Expected& expected) {
    const std::string line = savedLine(ground_.report());
    const bool isPhoto = expected.asked == Asked::Photo;
    if ((isPhoto || expected.fate == Fate::Taken) && line != kWell) {
        fault("stops the save: " + line);
    }
    if (!isPhoto && expected.fate == Fate::Refused && !line.starts_with(kTold + expected.code)) {
        fault("is not reported correctly: " + line);
    }
    if ((line == kWell) != (saved_ == behind_)) {
        fault("leaves the store in another state than reported: " + line);
    }
    if (expected.asked == Asked::Prepare && line != kWell && front_.requests(Asked::Company) != 1) {
        fault("a company is sent to a server that is not prepared");
    }
    bool isWhole = true;
    const std::vector<std::string> log = ground_.log(isWhole);
    if (std::ranges::none_of(
            log, [&](const std::string& record) { return record.find(expected.code) != std::string::npos; }) &&
        !expected.code.empty()) {
        fault("is not in the log");
    }
}

/// A new company's number is the one in the last answer, if that is a valid number.
void StrangeAnswers::judgeNumber() {
    for (const std::string& number : ground_.newNumbers()) {
        const bool isProper = number.size() == 9 && std::ranges::all_of(number, [](char c) {
                                  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
                              });
        if (!isProper || number != idIn(front_.sentAnswer(Asked::Company))) {
            fault("a company has the number \"" + number + "\"");
        }
    }
}

}  // namespace crash_test
