#include "pages/handlers/sibling_search.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "logging/trap.h"
#include "pages/forms/control_helpers.h"
#include "platform/ascii.h"
#include "platform/controls/input_rules.h"
#include "platform/forms/busy.h"
#include "platform/forms/form_host.h"
#include "platform/machine/sibling_programs.h"
#include "platform/machine/window_system.h"
#include "platform/services.h"
#include "platform/utf8.h"

namespace orv {
namespace {

constexpr char32_t kNoCharacter = 0xFFFD;

/// False for control characters and for bytes that are not UTF-8.
bool isText(const std::string& text) {
    const std::u32string characters = toCharacters(text);
    return std::none_of(characters.begin(), characters.end(), [](char32_t character) {
        return character < 0x20 || (character >= 0x7F && character < 0xA0) || character == kNoCharacter;
    });
}

/// The text comes from another program, so the field accepts only text that the operator could type.
void enterInto(TextInput& input, const std::string& text) { input.typed("", text, ""); }

void enterInto(Label& label, const std::string& text) { label.setCaption(text); }

std::uint32_t readHandle(const FilledControl& filled) {
    return std::visit([](const Control* control) { return control->handle(); }, filled);
}

/// One search while its program runs.
class RunningSearch {
public:
    RunningSearch(Form& form, const SiblingSearch& search)
        : form_(form), button_(search.button), filled_(search.filled) {}

    bool setText(std::uint32_t handle, const std::string& text) {
        const auto control = std::ranges::find(filled_, handle, readHandle);
        if (control == filled_.end() || !isText(text)) {
            return false;
        }
        std::erase_if(texts_, [&](const auto& earlier) { return earlier.first == *control; });
        texts_.emplace_back(*control, text);
        return true;
    }

    bool pressKey(std::uint32_t handle, int key) {
        if (handle != button_.handle()) {
            return false;
        }
        finish(key, std::exchange(texts_, {}));
        return true;
    }

    void giveUp() { finish(kKeyEnter, {}); }

private:
    using Texts = std::vector<std::pair<FilledControl, std::string>>;

    /// Dismisses the program before the controls and the page's events are used.
    void finish(int key, const Texts& texts) {
        form_.onCloseRefused = nullptr;
        services().siblings->dismiss();
        services().windows->pointToSibling(form_, {}, {});
        for (const auto& [filled, text] : texts) {
            std::visit([&text = text](auto* control) { enterInto(*control, text); }, filled);
        }
        button_.onKeyDown.raise(key);
    }

    Form& form_;
    Button& button_;
    std::vector<FilledControl> filled_;
    Texts texts_;
};

/// Returns the texts, then the handles, separated by commas.
std::string parameters(const SiblingSearch& search) {
    std::string text;
    for (const TextInput* input : search.known) {
        text.append(trimmed(input->text())) += ",";
    }
    for (const FilledControl& filled : search.filled) {
        text += std::to_string(readHandle(filled)) + ",";
    }
    return text + std::to_string(search.button.handle());
}

SiblingCalls makeCalls(const std::shared_ptr<RunningSearch>& running) {
    return {
        .setText = [running](std::uint32_t handle, const std::string& text) { return running->setText(handle, text); },
        .pressKey = [running](std::uint32_t handle, int key) { return running->pressKey(handle, key); },
        .gone = [running] { running->giveUp(); }};
}

}  // namespace

void startSearch(Form& form, const SiblingSearch& search) {
    BusyForm disabled(form);
    const auto running = std::make_shared<RunningSearch>(form, search);
    const auto failure =
        caught([&] { services().siblings->start(search.program + " " + parameters(search), makeCalls(running)); });
    if (failure) {
        disabled.enable();
        throw RunTimeError(*failure);
    }
    form.onCloseRefused = [running] { running->giveUp(); };
    services().windows->pointToSibling(form, search.title + "の画面で選択してください",
                                       [] { services().siblings->bringToFront(); });
    disabled.leaveDisabled();
}

void goOnAfterSearch(Control& next, int& key) {
    key = kKeyUsed;
    PF_SetFocusTo(&next);
    services().forms->setPointer(kPointerDefault);
}

}  // namespace orv
