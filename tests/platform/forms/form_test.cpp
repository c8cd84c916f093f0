#include "support/form_test.h"
#include "platform/controls/captions.h"
#include "platform/controls/text_input.h"

namespace orv {
namespace {

constexpr int kInvalidCall = 5;

class Forms : public FormTest {
protected:
    Forms() {
        for (Control* control : form.controls()) {
            control->onGotFocus = [this, control] { events.push_back("got " + control->name()); };
            control->onLostFocus = [this, control] { events.push_back("lost " + control->name()); };
            control->onValidate = [this, control] { events.push_back("validate " + control->name()); };
            control->onKeyDown = [this, control](int) { events.push_back("key " + control->name()); };
        }
    }

    Form form{"frm_Test", "", {100, 100}};
    Button save{form, "save", {.tabRank = 1}};
    Label label{form, "label", {}};
    TextInput first{form, "first", {}};
    TextInput closed{form, "closed", {.enabled = false}};
    TextInput hidden{form, "hidden", {.visible = false}};
    TextInput second{form, "second", {}};
    Button company{form, "company", {.tabRank = -1}};
    std::vector<std::string> events;
};

TEST_F(Forms, FocusGoesByRankAndPassesWhatCannotHaveItAndComesRound) {
    std::vector<std::string> way;
    for (int i = 0; i < 5; ++i) {
        form.focusNext();
        way.push_back(form.activeControl()->name());
    }
    EXPECT_EQ(way, (std::vector<std::string>{"company", "first", "second", "save", "company"}));
}

TEST_F(Forms, LeavingValidatesBeforeTheNextControlHasTheFocus) {
    first.setFocus();
    second.setFocus();
    EXPECT_EQ(events, (std::vector<std::string>{"got first", "validate first", "lost first", "got second"}));
    form.focusArrived(second);
    EXPECT_EQ(events.size(), 4U) << "it has the focus already";
}

TEST_F(Forms, FocusOnAClosedOrHiddenControlIsAFailure) {
    EXPECT_EQ(failureOf([&] { closed.setFocus(); }), kInvalidCall);
    EXPECT_EQ(failureOf([&] { hidden.setFocus(); }), kInvalidCall);
    EXPECT_EQ(form.activeControl(), nullptr);
}

TEST_F(Forms, ADisabledFormKeepsTheFocusAndGivesWhatWasAskedForAfterwards) {
    first.setFocus();
    form.setEnabled(false);
    second.setFocus();
    EXPECT_EQ(form.activeControl(), &first);
    form.setEnabled(true);
    EXPECT_EQ(form.activeControl(), &second);

    form.setEnabled(false);
    first.setFocus();
    first.setEnabled(false);
    form.setEnabled(true);
    EXPECT_EQ(form.activeControl(), &second) << "what was asked for can't have it any more";
}

TEST_F(Forms, KeysGoToTheFormFirstAndToTheControlOnlyWhenTheFormIsEnabled) {
    form.onKeyDown = [this](int key) { events.push_back("form " + std::to_string(key)); };
    form.keyDown(kKeyF1);
    first.setFocus();
    form.keyDown(kKeyEnter);
    form.setEnabled(false);
    form.keyDown(kKeyEnter);
    EXPECT_EQ(events, (std::vector<std::string>{"form 112", "got first", "form 13", "key first", "form 13"}));
}

}  // namespace
}  // namespace orv
