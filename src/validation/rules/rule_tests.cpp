#include "validation/rules/rule_tests.h"

#include <utility>

#include "logging/messages.h"
#include "logging/trap.h"
#include "platform/services.h"
#include "platform/suite/string_check_service.h"
#include "platform/utf8.h"
#include "validation/text/text_helpers.h"

namespace orv {
namespace {

/// The first position at which a full stop makes a mail address, counted from 1.
constexpr std::size_t kEarliestStop = 3;

/// Returns the position, counted from 1, or 0 if not found.
std::size_t findPosition(const std::u32string& text, char32_t character) {
    const auto found = text.find(character);
    return found == std::u32string::npos ? 0 : found + 1;
}

bool refusedBy(void (StringCheckService::*check)(const std::string&, bool&), const std::string& text,
               std::string& message) {
    StringCheckService& service = *services().stringCheck;
    bool passes = false;
    (service.*check)(text, passes);
    if (passes) {
        return false;
    }
    message = service.ErrorInfo().text;
    service.ClearError();
    return true;
}

}  // namespace

bool PF_CheckString(const std::string& text, std::string& message) {
    return trapped("", [&] {
        return !refusedBy(&StringCheckService::CheckTextFirst, text, message) &&
               !refusedBy(&StringCheckService::CheckTextSecond, text, message);
    });
}

Verdict blank(const std::string& value, Refusal&) { return isBlank(value) ? Verdict::Fails : Verdict::Passes; }

Verdict blankNoted(const std::string& value, Refusal&) { return isBlank(value) ? Verdict::Noted : Verdict::Passes; }

Verdict notAdmitted(const std::string& value, Refusal& out) {
    return PF_CheckString(value, out.text) ? Verdict::Passes : Verdict::FailsWithOwnText;
}

Verdict noTelNumber(const std::string& value, Refusal& out) {
    bool passes = false;
    services().stringCheck->CheckTelNumber(value, passes);
    if (passes) {
        return Verdict::Passes;
    }
    const FailureRecord rejection = services().stringCheck->ErrorInfo();
    if (rejection.code.empty()) {
        return Verdict::Fails;
    }
    out.text = rejection.text;
    return Verdict::FailsWithOwnText;
}

Verdict filledNoTelNumber(const std::string& value, Refusal& out) {
    return isBlank(value) ? Verdict::Passes : noTelNumber(value, out);
}

Verdict noMailAddress(const std::string& value, Refusal&) {
    const std::u32string characters = toCharacters(value);
    const bool isAddress = findPosition(characters, U'.') >= kEarliestStop || findPosition(characters, U'@') >= 1;
    return isAddress ? Verdict::Passes : Verdict::Fails;
}

Verdict asked(std::string question, Refusal& out) {
    out.text = std::move(question);
    return confirm("COS63212", {out.text}) ? Verdict::Passes : Verdict::Fails;
}

}  // namespace orv
