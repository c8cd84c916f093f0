#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "platform/design.h"
#include "platform/scope.h"
#include "platform/value.h"

namespace orv {

/// An event with one handler. Raising an event without a handler does nothing.
template <class... Args>
class Event {
public:
    void operator=(std::function<void(Args...)> handler) { handler_ = std::move(handler); }  // NOLINT

    /// Calls a copy of the handler, because the handler can replace or destroy the event's owner.
    void raise(Args... args) const {
        if (const auto handler = handler_) {
            handler(args...);
        }
    }

    bool handled() const { return static_cast<bool>(handler_); }

private:
    std::function<void(Args...)> handler_;
};

enum class ControlKind { TextInput, NumberInput, ComboBox, CheckBox, Label, Button, Image };

/// A handler sets a key to this value so that it has no further effect.
inline constexpr int kKeyUsed = 0;
inline constexpr int kKeyTab = 9;
inline constexpr int kKeyEnter = 13;
inline constexpr int kKeyEscape = 27;
inline constexpr int kKeyF1 = 112;

class Control;
class TextInput;
class NumberInput;
class ComboBox;
class CheckBox;
class Label;
class Button;
class ImageControl;

/// A control by its own class, for code outside the controls that treats each class in its own way.
using TypedControl = std::variant<TextInput*, NumberInput*, ComboBox*, CheckBox*, Label*, Button*, ImageControl*>;

/// The texts drawn before and after a control, and the name that assistive technology reads. If that is empty, it reads
/// the caption, or else the unit.
struct ControlTexts {
    std::string_view caption = {};
    std::string_view unit = {};
    std::string_view spokenName = {};
};

/// The services of a form that its controls use.
class ControlOwner : public Interface {
public:
    virtual void adopt(Control& control) = 0;
    /// Focuses the control. On a disabled form this happens when the form is enabled again.
    virtual void giveFocus(Control& control) = 0;
    /// Moves the focus to the next focusable control, as Tab does.
    virtual void focusNext() = 0;
    virtual bool ownerEnabled() const = 0;
    /// Called when the value of an input has changed, by the operator or by code.
    virtual void contentChanged(const Control& /*control*/) {}
};

/// The base of every control on a form: state that the system reads and writes, and events. It draws nothing. A view
/// registers with `observe`, shows the state, and writes input back with the `typed...` functions.
class Control : NonCopyable {
public:
    Control(ControlOwner& owner, std::string_view name, int index, ControlKind kind);
    virtual ~Control();

    const std::string& name() const { return name_; }
    /// The index in its control array, or -1.
    int index() const { return index_; }
    /// Returns the name, with the index in an array: "chk_Dantai(0)".
    std::string objectName() const;
    ControlKind kind() const { return kind_; }
    /// Returns this control as an object of its own class.
    virtual TypedControl self() = 0;
    /// Returns a number above 0 by which other programs address the control. It is unique while the control exists.
    std::uint32_t handle() const;
    ControlOwner& owner() const { return owner_; }

    bool enabled() const { return enabled_; }
    bool visible() const { return visible_; }
    /// Empty for the system's colour.
    std::optional<Colour> backColour() const { return backColour_; }
    Colour foreColour() const { return foreColour_; }
    void setEnabled(bool enabled);
    void setVisible(bool visible);
    void setBackColour(Colour colour);
    void setForeColour(Colour colour);

    virtual ControlTexts texts() const = 0;
    /// Returns the entered or shown text, or null for a number input without a number. Throws failure 5 if the control
    /// has no text.
    virtual Value content() const;
    /// Puts an input into its initial state. Does nothing for a label or a button.
    virtual void reset() {}

    /// Returns the caption of the block of the form to which the control belongs: assistive technology reads it before
    /// the control's own name. Empty for none.
    std::string_view block() const { return block_; }
    void setBlock(std::string_view block) { block_ = block; }
    bool required() const { return backColour_ == kRequiredField; }
    /// Returns why the operator's last input was refused. Empty if it was not.
    const std::string& fault() const { return fault_; }
    void setFault(std::string fault);

    /// True if the control is enabled and visible, so that the operator can use it while the form is enabled.
    bool usable() const { return enabled_ && visible_; }
    /// True if Tab can move the focus to the control.
    virtual bool focusable() const { return false; }
    /// Controls with a smaller rank are earlier in Tab order. Equal ranks keep the order of declaration.
    int tabRank() const { return tabRank_; }
    /// Returns the place on the form, in design pixels. The window sets it from the layout and follows later
    /// assignments when the form is resized.
    const Box& box() const { return box_; }
    int width() const { return box_.width; }
    int height() const { return box_.height; }
    void setBox(const Box& box) { box_ = box; }
    void setLeft(int left) { box_.x = left; }
    void setTop(int top) { box_.y = top; }
    void setWidth(int width) { box_.width = width; }
    void setHeight(int height) { box_.height = height; }

    /// Throws failure 5 if the control is disabled or hidden.
    void setFocus();

    void observe(std::function<void()> observer) { observer_ = std::move(observer); }

    /// The handler can set the key to `kKeyUsed`.
    Event<int&> onKeyDown;
    Event<> onGotFocus;
    Event<> onLostFocus;
    /// Raised when the focus is about to leave the control.
    Event<> onValidate;

protected:
    void notifyObserver() const;
    /// Notifies the owner of a changed value.
    void contentChanged() const;
    void setTabRank(int rank) { tabRank_ = rank; }
    void design(std::optional<Colour> back, bool enabled, bool visible);

private:
    ControlOwner& owner_;
    std::string name_;
    int index_;
    ControlKind kind_;
    /// 0 until another program needs it.
    mutable std::uint32_t handle_ = 0;
    bool enabled_ = true;
    bool visible_ = true;
    std::optional<Colour> backColour_;
    Colour foreColour_;
    int tabRank_ = 0;
    Box box_;
    std::string_view block_;
    std::string fault_;
    std::function<void()> observer_;
};

/// Controls with the same name, identified by their index from 0.
template <class C, std::size_t N>
class ControlArray {
public:
    template <class Design>
    ControlArray(ControlOwner& owner, std::string_view name, const std::array<Design, N>& designs) {
        for (std::size_t i = 0; i < N; ++i) {
            elements_[i] = std::make_unique<C>(owner, name, designs[i], static_cast<int>(i));
        }
    }

    static constexpr std::size_t size() { return N; }
    C& operator[](std::size_t index) { return *elements_.at(index); }
    const C& operator[](std::size_t index) const { return *elements_.at(index); }

private:
    std::array<std::unique_ptr<C>, N> elements_;
};

}  // namespace orv
