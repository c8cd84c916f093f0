#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/control.h"
#include "platform/forms/canvas.h"

namespace orv {

/// How a form is unloaded: by the window's close box or by code.
enum class UnloadMode { CloseBox = 0, Code = 1 };

/// Whether the operator can resize the window.
enum class Sizing { Fixed, Free };

/// A window without a toolkit: its controls, the focus, the drawing below the controls, and its events. The constructor
/// loads nothing; FormHost loads, shows and unloads forms.
class Form : public ControlOwner {
public:
    /// `size` is in design pixels.
    Form(std::string_view name, std::string_view caption, Point size, Sizing sizing = Sizing::Fixed);

    const std::string& name() const { return name_; }
    const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);
    Canvas& canvas() { return canvas_; }
    const Canvas& canvas() const { return canvas_; }
    int scaleWidth() const { return size_.x; }
    int scaleHeight() const { return size_.y; }
    Sizing sizing() const { return sizing_; }
    /// Called when the operator or the view has resized the window. Raises resize; the view then follows the boxes of
    /// the controls.
    void resize(Point size);

    const std::vector<Control*>& controls() const { return controls_; }
    /// Returns null if there is no control with that name and index.
    Control* find(std::string_view control, int index = -1) const;
    /// Returns the controls in Tab order.
    std::vector<Control*> tabOrder() const;

    bool enabled() const { return enabled_; }
    /// Enabling lets the view handle the events that it held back. It also moves the focus to the control that waits
    /// for it.
    void setEnabled(bool enabled);
    /// Enables the form without handling any event. The view and the focus follow in the view's event loop.
    void enableLater();
    bool loaded() const { return loaded_; }
    bool visible() const { return visible_; }

    /// Returns the control with the focus, or null.
    Control* activeControl() const { return active_; }
    /// Called by the view when the operator moves the focus to the control.
    void focusArrived(Control& control);
    /// Called by the view when the focus moves to another window.
    void focusLeft();
    /// Handles a key on the active control: first the form's event, then the control's. True if a handler has used the
    /// key.
    bool keyDown(int key);

    void adopt(Control& control) override;
    void giveFocus(Control& control) override;
    void focusNext() override;
    /// Focuses the first input control, ignoring ranks below 0. If there is none, focuses the control of `restAt`, or
    /// else the first that can have the focus.
    void focusFirst();
    /// Returns the control of `restAt`, or null.
    const Control* restingControl() const { return resting_; }
    bool ownerEnabled() const override { return enabled_; }
    /// If true, the window's title is marked.
    virtual bool hasUnsavedChanges() const { return false; }

    void observe(std::function<void()> observer) { observer_ = std::move(observer); }
    /// The observer is called by `enableLater`. It calls `setEnabled` from its event loop if the form is still enabled
    /// then.
    void observeEnabledLater(std::function<void()> observer) { laterObserver_ = std::move(observer); }
    /// The observer lets the view follow the focus.
    void observeFocus(std::function<void(Control&)> observer) { focusObserver_ = std::move(observer); }

    Event<> onLoad;
    /// A handler keeps the form loaded by setting the first argument.
    Event<bool&, UnloadMode> onQueryUnload;
    Event<> onUnload;
    /// Raised when the operator uses the close box of the disabled form, which stays open.
    Event<> onCloseRefused;
    Event<int> onKeyDown;
    Event<> onResize;

protected:
    void restAt(Control& control) { resting_ = &control; }
    /// Puts the controls declared from `first` to `last` into the block with that caption.
    void nameBlock(std::string_view caption, const Control& first, const Control& last);

private:
    friend class FormHost;

    void activate(Control& control);
    void leaveActive();
    void notifyObserver() const;

    std::string name_;
    std::string caption_;
    Point size_;
    Sizing sizing_;
    Canvas canvas_;
    std::vector<Control*> controls_;
    Control* active_ = nullptr;
    Control* awaited_ = nullptr;
    Control* resting_ = nullptr;
    bool enabled_ = true;
    bool loaded_ = false;
    bool visible_ = false;
    std::function<void()> observer_;
    std::function<void()> laterObserver_;
    std::function<void(Control&)> focusObserver_;
};

}  // namespace orv
