#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/controls/event.h"
#include "platform/design.h"

namespace orv {

enum class ControlKind { TextInput, NumberInput, ComboBox, CheckBox, Label, Button, Image };

/// What a handler sets a key to that shall have no further effect.
inline constexpr int kKeyUsed = 0;
inline constexpr int kKeyTab = 9;
inline constexpr int kKeyEnter = 13;
inline constexpr int kKeyEscape = 27;
inline constexpr int kKeyF1 = 112;

class Control;

/// What a control asks of the form that it stands on.
class ControlOwner {
public:
    ControlOwner() = default;
    ControlOwner(const ControlOwner&) = delete;
    ControlOwner& operator=(const ControlOwner&) = delete;
    virtual ~ControlOwner() = default;

    virtual void adopt(Control& control) = 0;
    /// Gives the control the focus; on a disabled form when the form is enabled again.
    virtual void giveFocus(Control& control) = 0;
    /// Moves the focus to the next control that can have it, as Tab does.
    virtual void focusNext() = 0;
    virtual bool ownerEnabled() const = 0;
    /// The value of an input has changed, by hand or by code.
    virtual void contentChanged(const Control& /*control*/) {}
};

/// The common part of everything that stands on a form: state that the system reads and writes, and events.
/// No drawing. A view listens in `observe` and shows the state; it writes back through the kinds' `typed...` calls.
class Control {
public:
    Control(ControlOwner& owner, std::string_view name, int index, ControlKind kind);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    const std::string& name() const { return name_; }
    /// The place in its control array, or -1.
    int index() const { return index_; }
    /// The name, in an array with its place in brackets: "chk_Dantai(0)".
    std::string objectName() const;
    ControlKind kind() const { return kind_; }
    /// A number above 0 that no other control of this run has or will have: what other programs call the control by.
    std::uint32_t handle() const { return handle_; }
    ControlOwner& owner() const { return owner_; }

    bool enabled() const { return enabled_; }
    bool visible() const { return visible_; }
    /// None: the colour of the system.
    std::optional<Colour> backColour() const { return backColour_; }
    Colour foreColour() const { return foreColour_; }
    void setEnabled(bool enabled);
    void setVisible(bool visible);
    void setBackColour(Colour colour);
    void setForeColour(Colour colour);

    /// Enabled and visible: what the operator can act on while the form is enabled.
    bool usable() const { return enabled_ && visible_; }
    /// A control that the operator can stand on with Tab.
    virtual bool focusable() const { return false; }
    /// Smaller stands earlier in the order of Tab; controls of one rank go in the order of their declaration.
    int tabRank() const { return tabRank_; }
    /// Where it stands on its form, in design pixels. The window gives it the place that the layout has for it, and
    /// follows what code assigns when the form is resized.
    const Box& box() const { return box_; }
    int width() const { return box_.width; }
    int height() const { return box_.height; }
    void setBox(const Box& box) { box_ = box; }
    void setLeft(int left) { box_.x = left; }
    void setTop(int top) { box_.y = top; }
    void setWidth(int width) { box_.width = width; }
    void setHeight(int height) { box_.height = height; }

    /// Failure 5 on a control that is disabled or hidden.
    void setFocus();

    void observe(std::function<void()> observer) { observer_ = std::move(observer); }

    /// The handler may set the key to `kKeyUsed`.
    Event<int&> onKeyDown;
    Event<> onGotFocus;
    Event<> onLostFocus;
    /// Raised when the focus is about to leave.
    Event<> onValidate;

protected:
    void changed() const;
    /// The same for an input's value.
    void contentChanged() const;
    void setTabRank(int rank) { tabRank_ = rank; }
    void design(std::optional<Colour> back, bool enabled, bool visible);

private:
    ControlOwner& owner_;
    std::string name_;
    int index_;
    ControlKind kind_;
    std::uint32_t handle_;
    bool enabled_ = true;
    bool visible_ = true;
    std::optional<Colour> backColour_;
    Colour foreColour_;
    int tabRank_ = 0;
    Box box_;
    std::function<void()> observer_;
};

/// Controls of one name, told apart by their index from 0.
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
