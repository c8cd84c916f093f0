#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/record/company_record.h"
#include "pages/forms/page_set.h"

namespace orv {

/// Fails: the message is the rule's text. FailsWithOwnText: the test has written the message. Noted: fills the outputs
/// and continues with the next rule.
enum class Verdict : std::uint8_t { Passes, Fails, FailsWithOwnText, Noted };

/// The result of a check: the control to correct (null after a run-time failure), the message's id and its text. Texts
/// of questions that the operator accepted remain here, too.
struct Refusal {
    Control* focus = nullptr;
    std::string id;
    std::string text;
};

/// One rule of a page. A page's rules run in the order of their table.
struct Rule {
    /// The condition for the rule; null if it always applies.
    bool (*when)() = nullptr;
    /// The field that is checked.
    TextField field = nullptr;
    Verdict (*test)(const std::string& value, Refusal& out) = nullptr;
    /// Called only when the rule fails, because it creates the page. Null if the test has chosen the control.
    ControlRef focus = nullptr;
    std::string_view text = {};
    std::string_view id = "CHECK001";
};

/// Runs the rules in order. The first that fails ends the run and fills `out`.
[[nodiscard]] bool passes(std::span<const Rule> rules, Refusal& out);

/// Runs the body of a page's check. A run-time failure fills the pair under `label` and clears focus and text.
[[nodiscard]] bool checked(std::string_view label, Refusal& out, const std::function<bool()>& check);

}  // namespace orv
