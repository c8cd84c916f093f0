#pragma once

#include "support/fixture.h"
#include "validation/rules/rule.h"

namespace orv {

/// The record of the sample's first company, which passes every page without a question until a test changes it.
class RulesTest : public SystemTest {
protected:
    RulesTest() { load(); }

    /// Runs a page's check on the current record; `out` receives the message.
    bool passes(bool (*check)(Refusal&), std::deque<std::int32_t> answers = {}) {
        out = {};
        messages.shown.clear();
        messages.answers = std::move(answers);
        return check(out);
    }
    void expectRefused(const Control& control, const std::string& text) const {
        EXPECT_EQ(out.focus, &control);
        EXPECT_EQ(out.id, "CHECK001");
        EXPECT_EQ(out.text, text);
    }
    std::vector<std::string> questions() const {
        std::vector<std::string> texts;
        for (const auto& shown : messages.shown) {
            EXPECT_EQ(shown.id, "COS63212");
            texts.push_back(toText(shown.args.at(0)));
        }
        return texts;
    }

    Refusal out;
};

}  // namespace orv
