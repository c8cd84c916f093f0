#include "validation/rules/rule.h"

#include "core/record/globals.h"
#include "logging/trap.h"

namespace orv {

bool passes(std::span<const Rule> rules, Refusal& out) {
    for (const Rule& rule : rules) {
        if (rule.when != nullptr && !rule.when()) {
            continue;
        }
        const Verdict verdict = rule.test(tCustomerInfo.*rule.field, out);
        if (verdict == Verdict::Passes) {
            continue;
        }
        if (rule.focus != nullptr) {
            out.focus = &rule.focus();
        }
        out.id = rule.id;
        if (verdict != Verdict::FailsWithOwnText) {
            out.text = rule.text;
        }
        if (verdict != Verdict::Noted) {
            return false;
        }
    }
    return true;
}

bool checked(std::string_view label, Refusal& out, const std::function<bool()>& check) {
    bool failed = true;
    const bool passed = trapped(label, [&] {
        const bool result = check();
        failed = false;
        return result;
    });
    if (failed) {
        out = {};
    }
    return passed;
}

}  // namespace orv
