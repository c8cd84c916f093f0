#include "headless.h"

#include <algorithm>
#include <array>

#include "app/tie_system.h"
#include "platform/services.h"

namespace headless {
namespace {

constexpr const char* kFailure = "COSERR01";
/// The questions before a switch and before leaving, the message after a save, and that the company is in use.
constexpr auto kNoFailures =
    std::to_array<std::string_view>({"COS20001", "COS20002", "ADD00010", "COS05574", "COS20003"});

}  // namespace

bool Operator::ShowMessage(const std::string& id, const orv::Values& args) {
    messages_.push_back({id, args.empty() ? "" : orv::toText(args.front())});
    return true;
}

bool Operator::received(const std::string& id) const {
    return std::ranges::find(messages_, id, &Message::id) != messages_.end();
}

std::string Operator::failure() const {
    const auto found = std::ranges::find_if(messages_, [](const Message& message) {
        return std::ranges::find(kNoFailures, message.id) == kNoFailures.end();
    });
    if (found == messages_.end()) {
        return {};
    }
    return found->id == kFailure && !found->first.empty() ? found->first : found->id;
}

Program::Program(const std::string& programFolder) : office_(programFolder) {
    orv::Services& all = orv::services();
    all.message = &operator_;
    all.programs = &programs_;
    all.siblings = &programs_;
    all.windows = &windows_;
    all.forms = &forms_;
    orv::tieSystem();
}

}  // namespace headless
