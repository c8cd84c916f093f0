#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/control.h"
#include "platform/forms/canvas.h"

namespace orv {

/// Why a form goes: by the window's close box or by the program's own code.
enum class UnloadMode { CloseBox = 0, Code = 1 };

/// Whether the operator can give the window another size.
enum class Sizing { Fixed, Free };

/// A window without a toolkit: controls, the focus among them, what is drawn behind them, and the events of its life.
/// Making the object loads nothing; FormHost loads, shows and unloads it.
class Form : public ControlOwner {
public:
    /// `size` in design pixels.
    Form(std::string_view name, std::string_view caption, Point size, Sizing sizing = Sizing::Fixed);

    const std::string& name() const { return name_; }
    const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);
    Canvas& canvas() { return canvas_; }
    const Canvas& canvas() const { return canvas_; }
    int scaleWidth() const { return size_.x; }
    int scaleHeight() const { return size_.y; }
    Sizing sizing() const { return sizing_; }
    /// The operator, or the view, has given the window another size: raises resize, and the view then follows the
    /// boxes of the controls.
    void resize(Point size);

    const std::vector<Control*>& controls() const { return controls_; }
    /// Null when there is none of that name and index.
    Control* find(std::string_view control, int index = -1) const;
    /// The controls in the order of Tab.
    std::vector<Control*> tabOrder() const;

    bool enabled() const { return enabled_; }
    /// Enabling lets the view handle the events that it has kept away, and gives the focus to the control that awaits
    /// it.
    void setEnabled(bool enabled);
    /// Enables the form and handles no event: the view and the focus follow when the view's event loop runs.
    void enableLater();
    bool loaded() const { return loaded_; }
    bool visible() const { return visible_; }

    /// The control that has the focus, or null.
    Control* activeControl() const { return active_; }
    /// The view tells that the operator has gone to the control.
    void focusArrived(Control& control);
    /// The view tells that the focus leaves for another window.
    void focusLeft();
    /// A key on the active control: first the form's event, then the control's. True: a handler has used the key.
    bool keyDown(int key);

    void adopt(Control& control) override;
    void giveFocus(Control& control) override;
    void focusNext() override;
    /// Gives the focus to the first control that takes input; those of a rank below 0 are passed over. Without one, to
    /// the control of `restAt`, or else to the first that can have it.
    void focusFirst();
    bool ownerEnabled() const override { return enabled_; }
    /// The window's title is marked.
    virtual bool hasUnsavedChanges() const { return false; }

    void observe(std::function<void()> observer) { observer_ = std::move(observer); }
    /// Called by `enableLater`; the view calls `setEnabled` from its event loop if the form is still enabled then.
    void observeEnabledLater(std::function<void()> observer) { laterObserver_ = std::move(observer); }
    /// The view follows the focus by this.
    void observeFocus(std::function<void(Control&)> observer) { focusObserver_ = std::move(observer); }

    Event<> onLoad;
    /// Setting the first argument keeps the form.
    Event<bool&, UnloadMode> onQueryUnload;
    Event<> onUnload;
    /// The operator has pressed the close box of the disabled form, which keeps it.
    Event<> onCloseRefused;
    Event<int> onKeyDown;
    Event<> onResize;

protected:
    void restAt(Control& control) { resting_ = &control; }

private:
    friend class FormHost;

    void activate(Control& control);
    void leaveActive();
    void changed() const;

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
