#pragma once

#include <string>

#include "validation/rules/rule.h"
#include "validation/text/text_helpers.h"

namespace orv {

/// True if the string service accepts the text. On false `message` receives its text. If the service itself failed,
/// `message` is unchanged and the pair holds the failure.
[[nodiscard]] bool PF_CheckString(const std::string& text, std::string& message);

// The tests of rules. Each fails for the condition described.

/// The value contains only blanks.
Verdict blank(const std::string& value, Refusal& out);
/// The value contains only blanks; the run continues.
Verdict blankNoted(const std::string& value, Refusal& out);
/// The string service rejects the value.
Verdict notAdmitted(const std::string& value, Refusal& out);
/// The value is not a telephone number. The rule's own text is used for a rejection without a code.
Verdict noTelNumber(const std::string& value, Refusal& out);
/// The value is not empty and not a telephone number.
Verdict filledNoTelNumber(const std::string& value, Refusal& out);
/// The value has neither an "@" nor a "." from the third character on.
Verdict noMailAddress(const std::string& value, Refusal& out);

/// Asks the operator. Fails if the operator wants to correct; otherwise the question remains in `out`.
Verdict asked(std::string question, Refusal& out);

/// The value has fewer than `Least` or more than `Most` bytes in the code page.
template <std::int32_t Least, std::int32_t Most = Least>
Verdict bytesOutside(const std::string& value, Refusal&) {
    const std::int32_t length = PF_LenB(value);
    return length < Least || length > Most ? Verdict::Fails : Verdict::Passes;
}

}  // namespace orv
