#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/control.h"

namespace orv {

enum class LabelLook { Plain, Panel, Title };

struct LabelDesign {
    std::string_view caption = {};
    LabelLook look = LabelLook::Plain;
    /// In points.
    int fontSize = 9;
    bool visible = true;
    /// Read by assistive technology before the caption.
    std::string_view spokenName = {};
};

/// A text that the operator reads. A panel has a flat border around a read-only value; a title is drawn on a band.
class Label : public Control {
public:
    Label(ControlOwner& owner, std::string_view name, const LabelDesign& design, int index = -1);

    TypedControl self() override { return this; }
    ControlTexts texts() const override { return {.spokenName = design_.spokenName}; }
    Value content() const override { return caption_; }

    const LabelDesign& labelDesign() const { return design_; }
    const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);
    int fontSize() const { return fontSize_; }
    void setFontSize(int points);

private:
    LabelDesign design_;
    std::string caption_;
    int fontSize_;
};

/// Returns a panel for the value that `title` names. It is visible if the title is.
inline LabelDesign valuePanel(const Label& title) {
    const LabelDesign& design = title.labelDesign();
    return {.look = LabelLook::Panel, .visible = design.visible, .spokenName = design.caption};
}

enum class ButtonLook { Plain, Page, Action };

struct ButtonDesign {
    std::string_view caption = {};
    ButtonLook look = ButtonLook::Plain;
    int tabRank = 0;
    /// The key that presses the button together with Alt, or 0 for none.
    char32_t accessKey = 0;
    /// Keys that press the button from anywhere on the form, such as "Ctrl+S".
    std::string_view shortcut = {};
};

class Button : public Control {
public:
    Button(ControlOwner& owner, std::string_view name, const ButtonDesign& design, int index = -1);

    TypedControl self() override { return this; }
    ControlTexts texts() const override { return {.spokenName = caption_}; }

    const ButtonDesign& buttonDesign() const { return design_; }
    const std::string& caption() const { return caption_; }
    /// Returns the design's keys and those added, in the order in which they were added.
    const std::vector<std::string>& shortcuts() const { return shortcuts_; }
    void addShortcut(std::string keys);
    /// True for the button of the page that is shown.
    bool marked() const { return marked_; }
    void setMarked(bool marked);
    /// Called when the operator presses the button. Raises click if the button and its form are enabled. First commits
    /// a text that is still being composed.
    void press();

    bool focusable() const override { return usable(); }

    Event<> onClick;

private:
    ButtonDesign design_;
    std::string caption_;
    std::vector<std::string> shortcuts_;
    bool marked_ = false;
};

}  // namespace orv
