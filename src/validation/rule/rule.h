#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/record/company_record.h"
#include "pages/controls/control_ref.h"

namespace orv {

/// Fails: the rule's text is told. FailsAsTold: the test has written the text. Noted: the outputs are filled, and the
/// run goes on all the same.
enum class Verdict : std::uint8_t { Passes, Fails, FailsAsTold, Noted };

/// What a check tells: the control to be corrected (null when a run-time failure ended the check), the message's id and
/// its text. The texts of questions that the operator waved through stay behind here too.
struct Refusal {
    Control* focus = nullptr;
    std::string id;
    std::string text;
};

/// One rule of a page. The rules of a page stand in the order in which they run.
struct Rule {
    /// Whether the rule applies; null: always.
    bool (*when)() = nullptr;
    /// What is looked at.
    TextField field = nullptr;
    Verdict (*test)(const std::string& value, Refusal& out) = nullptr;
    /// Taken when the rule fails and not before, since it makes the page; null: the test has chosen the control.
    ControlRef focus = nullptr;
    std::string_view text = {};
    std::string_view id = "CHECK001";
};

/// Runs the rules in their order; the first that fails ends the run and has filled `out`.
[[nodiscard]] bool passes(std::span<const Rule> rules, Refusal& out);

/// The frame of a page's check: a run-time failure fills the pair under `label` and leaves no focus and no text.
[[nodiscard]] bool checked(std::string_view label, Refusal& out, const std::function<bool()>& check);

}  // namespace orv
