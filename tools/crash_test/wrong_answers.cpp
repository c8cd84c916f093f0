#include "wrong_answers.h"

#include <algorithm>
#include <iostream>

namespace crash_test {
namespace {

/// The maximum duration of an event, in multiples of the program's time limit.
constexpr int kLimits = 10;
constexpr const char* kSuccess = "save|COS05574";
constexpr const char* kFailed = "save|COSERR01,";

/// Returns the report of the first save.
std::string savedLine(const std::vector<std::string>& report) {
    const auto found = std::ranges::find_if(report, [](const std::string& line) { return line.starts_with("save"); });
    return found == report.end() ? "" : *found;
}

}  // namespace

/// An instruction for the server, and the code that the save must report. Null if the save must succeed.
struct WrongAnswers::Wrong {
    const char* instruction;
    const char* code;
};

void WrongAnswers::run(const CompanyKind& kind) {
    // An answer that is 60 seconds late exceeds every time limit of the program.
    static constexpr Wrong kWrong[] = {
        {"prepare:status=503", ""},         {"prepare:status=302", ""},       {"prepare:cut", "24011"},
        {"prepare:garbage", nullptr},       {"prepare:delay=60000", "24012"}, {"photos:status=401", nullptr},
        {"photos:status=503", nullptr},     {"photos:cut", nullptr},          {"photos:garbage", nullptr},
        {"photos:delay=60000", nullptr},    {"companies:status=400", ""},     {"companies:status=503", ""},
        {"companies:status=204", ""},       {"companies:cut", "24011"},       {"companies:garbage", ""},
        {"companies:delay=60000", "24012"}, {"companies:id-length=0", ""},
    };
    fixture_.begin(kind);
    learn();
    const int faultsBefore = faults_;
    for (const Wrong& wrong : kWrong) {
        point_ = wrong.instruction;
        checkPoint([&] { tryOne(wrong); });
        ++points_;
    }
    std::cout << store_ << ", " << fixture_.kind().name << ": " << std::size(kWrong) << " points, "
              << faults_ - faultsBefore << " faults" << std::endl;
}

/// The repeated save gets the right answers.
void WrongAnswers::afterEvent(const std::string& line) {
    if (line.starts_with("save")) {
        server_.misbehave("well");
    }
}

void WrongAnswers::tryOne(const Wrong& wrong) {
    fixture_.comeBack();
    server_.misbehave("well\n" + std::string(wrong.instruction));
    const Outcome outcome = runUnder({}, fixture_.company(), 0);
    if (slowest_ > kLimits * fixture_.limit()) {
        reportFault("an event takes " + std::to_string(std::chrono::duration<double>(slowest_).count()) + " s");
    }
    checkAlive(outcome);
    checkMessage(wrong);
    checkNumber();
}

/// A failed photo does not stop a save.
void WrongAnswers::checkMessage(const Wrong& wrong) {
    const std::string line = savedLine(fixture_.report());
    if (wrong.code == nullptr ? line != kSuccess : !line.starts_with(kFailed + std::string(wrong.code))) {
        reportFault("is not reported correctly: " + line);
    }
    if ((line == kSuccess) != (saved_ == final_)) {
        reportFault("leaves the store in another state than reported: " + line);
    }
}

/// A new company's number is one that the server can assign.
void WrongAnswers::checkNumber() {
    for (const std::string& number : fixture_.newNumbers()) {
        if (number.size() != 9 || number.find_first_not_of("0123456789") != std::string::npos) {
            reportFault("a company has the number \"" + number + "\"");
        }
    }
}

}  // namespace crash_test
