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
    /// What assistive technology reads in front of the caption.
    std::string_view spokenName = {};
};

/// A text that the operator reads. A panel has a flat box around a value that can't be entered, a title is on a band.
class Label : public Control {
public:
    Label(ControlOwner& owner, std::string_view name, const LabelDesign& design, int index = -1);

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

enum class ButtonLook { Plain, Page, Action };

struct ButtonDesign {
    std::string_view caption = {};
    ButtonLook look = ButtonLook::Plain;
    int tabRank = 0;
    /// Which key with Alt presses it; 0 for none.
    char32_t accessKey = 0;
    /// Keys that press it from anywhere on the form: "Ctrl+S".
    std::string_view shortcut = {};
};

class Button : public Control {
public:
    Button(ControlOwner& owner, std::string_view name, const ButtonDesign& design, int index = -1);

    const ButtonDesign& buttonDesign() const { return design_; }
    const std::string& caption() const { return caption_; }
    /// The design's keys and those added, in the order of their adding.
    const std::vector<std::string>& shortcuts() const { return shortcuts_; }
    void addShortcut(std::string keys);
    /// Marked: the button of the page that is on the screen.
    bool marked() const { return marked_; }
    void setMarked(bool marked);
    /// The operator presses the button: raises click, on an enabled button of an enabled form only. A text that is
    /// still being composed goes into its field first.
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
