#include "platform/forms/form_host.h"

#include "platform/controls/text_input.h"
#include "support/form_test.h"

namespace orv {
namespace {

using Names = std::vector<std::string>;

class Host : public FormTest {
protected:
    struct Window : Form {
        explicit Window(std::string_view form) : Form(form, "", {100, 100}) {}
        TextInput closed{*this, "closed", {.enabled = false}};
        TextInput open{*this, "open", {}};
    };

    Names loaded() const {
        Names names;
        for (const Form* form : forms.forms()) {
            names.push_back(form->name());
        }
        return names;
    }

    Window a{"a"};
    Window b{"b"};
};

TEST_F(Host, LoadingOpensAHiddenWindowOnce) {
    EXPECT_TRUE(forms.unload(a, UnloadMode::Code)) << "nothing to unload is no failure";
    EXPECT_TRUE(windows.calls.empty()) << "making a form loads nothing";
    int loads = 0;
    a.onLoad = [&] { ++loads; };
    forms.load(a);
    forms.load(a);
    EXPECT_EQ(loads, 1);
    EXPECT_TRUE(a.loaded());
    EXPECT_FALSE(a.visible());
    EXPECT_EQ(forms.activeForm(), nullptr);
    EXPECT_EQ(windows.calls, Names{"open a"});
}

TEST_F(Host, ShowingLoadsFirstAndFocusesTheFirstControlThatCanHaveIt) {
    a.onLoad = [&] { EXPECT_FALSE(a.visible()); };
    b.closed.setEnabled(true);
    b.onLoad = [&] { b.open.setFocus(); };
    forms.show(b);
    EXPECT_EQ(b.activeControl(), &b.open) << "the focus that loading gave is kept";
    forms.show(a);
    EXPECT_EQ(windows.calls, (Names{"open b", "show b", "open a", "show a"}));
    EXPECT_EQ(a.activeControl(), &a.open);
    EXPECT_EQ(forms.activeForm(), &a);
    EXPECT_EQ(loaded(), (Names{"b", "a"}));
}

TEST_F(Host, AFormThatItsOwnLoadUnloadsIsNotShown) {
    a.onLoad = [&] { EXPECT_TRUE(forms.unload(a, UnloadMode::Code)); };
    forms.show(a);
    forms.showModal(a);
    EXPECT_FALSE(a.visible());
    EXPECT_EQ(forms.activeForm(), nullptr);
    EXPECT_EQ(windows.calls, (Names{"open a", "close a", "open a", "close a"}));
}

TEST_F(Host, AWindowThatCannotBeMadeLeavesTheFormUnloaded) {
    windows.refused = "open a";
    EXPECT_NE(failureOf([&] { forms.load(a); }), 0);
    EXPECT_FALSE(a.loaded());
    EXPECT_TRUE(loaded().empty());
    forms.load(a);
    EXPECT_EQ(loaded(), Names{"a"});
}

TEST_F(Host, UnloadAsksThenTellsThenCloses) {
    Names events;
    a.onQueryUnload = [&](bool&, UnloadMode mode) {
        events.push_back("query " + std::to_string(static_cast<int>(mode)));
        EXPECT_TRUE(a.loaded());
    };
    a.onUnload = [&] {
        events.emplace_back("unload");
        EXPECT_EQ(windows.calls.back(), "show a") << "the window is still there";
    };
    forms.show(a);
    EXPECT_TRUE(forms.unload(a, UnloadMode::CloseBox));
    EXPECT_EQ(events, (Names{"query 0", "unload"}));
    EXPECT_EQ(windows.calls.back(), "close a");
    EXPECT_FALSE(a.visible());
    EXPECT_EQ(a.activeControl(), nullptr);
}

TEST_F(Host, AFormMayBeKept) {
    a.onQueryUnload = [](bool& cancel, UnloadMode mode) { cancel = mode == UnloadMode::CloseBox; };
    forms.show(a);
    EXPECT_FALSE(forms.unload(a, UnloadMode::CloseBox));
    EXPECT_TRUE(a.visible());
    EXPECT_EQ(windows.calls.back(), "show a");
    EXPECT_TRUE(forms.unload(a, UnloadMode::Code));
}

TEST_F(Host, TheQuestionBeforeUnloadingMayUnloadEverything) {
    int unloads = 0;
    a.onUnload = [&] { ++unloads; };
    a.onQueryUnload = [&](bool&, UnloadMode mode) {
        if (mode == UnloadMode::CloseBox) {
            EXPECT_TRUE(forms.unload(a, UnloadMode::Code));
        }
    };
    forms.show(a);
    EXPECT_TRUE(forms.unload(a, UnloadMode::CloseBox));
    EXPECT_EQ(unloads, 1);
    EXPECT_TRUE(loaded().empty());
}

TEST_F(Host, AFormCanBeLoadedAgainWithNothingLeftOfItsFirstLife) {
    forms.show(a);
    a.setEnabled(false);
    a.open.setFocus();
    EXPECT_TRUE(forms.unload(a, UnloadMode::Code));
    a.setEnabled(true);
    EXPECT_EQ(a.activeControl(), nullptr) << "the focus asked for died with the window";
    forms.show(a);
    EXPECT_EQ(windows.calls, (Names{"open a", "show a", "close a", "open a", "show a"}));
}

TEST_F(Host, AModalFormIsTheActiveOneUntilItGoes) {
    forms.show(a);
    windows.onModal("b", [&](Form& form) {
        EXPECT_EQ(forms.activeForm(), &b);
        EXPECT_EQ(b.activeControl(), &b.open);
        EXPECT_TRUE(forms.unload(form, UnloadMode::Code));
    });
    forms.showModal(b);
    EXPECT_EQ(forms.activeForm(), &a);
    EXPECT_EQ(windows.calls, (Names{"open a", "show a", "open b", "modal b", "close b"}));
}

}  // namespace
}  // namespace orv
