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

}  // namespace
}  // namespace orv
