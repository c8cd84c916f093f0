#pragma once

#include <string>

#include "validation/rule/rule.h"
#include "validation/text/text_bytes.h"

namespace orv {

/// Whether the string service admits the text. False: `message` holds its text, or, when the service itself failed,
/// what it held before, and the pair tells of the failure.
[[nodiscard]] bool PF_CheckString(const std::string& text, std::string& message);

// Tests of rules.

/// Nothing but blanks.
Verdict blank(const std::string& value, Refusal& out);
/// Blank, and the run goes on.
Verdict blankNoted(const std::string& value, Refusal& out);
/// Not admitted by the string service.
Verdict notAdmitted(const std::string& value, Refusal& out);
/// No telephone number. The rule's own text is for a rejection without a code.
Verdict noTelNumber(const std::string& value, Refusal& out);
/// Filled, and no telephone number.
Verdict filledNoTelNumber(const std::string& value, Refusal& out);
/// Neither an "@" nor a "." from the third character on.
Verdict noMailAddress(const std::string& value, Refusal& out);

/// A question to the operator. Fails when he wants to correct; otherwise the question stays behind in `out`.
Verdict asked(std::string question, Refusal& out);

/// Fewer bytes of the code page than `Least` or more than `Most`.
template <std::int32_t Least, std::int32_t Most = Least>
Verdict bytesOutside(const std::string& value, Refusal&) {
    const std::int32_t length = PF_LenB(value);
    return length < Least || length > Most ? Verdict::Fails : Verdict::Passes;
}

}  // namespace orv
