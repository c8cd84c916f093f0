#pragma once

#include <QObject>
#include <QWidget>
#include <memory>

#include "adapters/qt/views/page_scale.h"
#include "platform/controls/control.h"

namespace orv {

/// The words that stand beside a control, and what assistive technology reads for it.
struct ControlWords {
    QString caption;
    QString unit;
    QString spoken;
};

ControlWords wordsOf(const Control& control);

/// Mirrors one control into a widget and back. It holds no state of its own beyond what is being typed.
class ControlView : public QObject {
public:
    ~ControlView() override;

    Control& control() const { return control_; }
    QWidget& widget() const { return *widget_; }

    /// Shows the control's state; the widget raises nothing meanwhile.
    void refresh();
    /// What is still being composed or typed goes into the control.
    virtual void commit() {}
    /// Enter on the widget belongs to it and not to the page.
    virtual bool pressedBy(int key);

protected:
    ControlView(Control& control, QWidget* widget);

    virtual void show() = 0;
    /// Fills the widget's ground and text with the control's colours.
    void paintWith(QPalette::ColorRole ground, QPalette::ColorRole text);

private:
    Control& control_;
    QWidget* widget_;
};

/// A view for the control's kind, its widget a child of `page`.
std::unique_ptr<ControlView> makeView(Control& control, QWidget* page, const PageScale& scale);

/// While an object of it lives, the system handles an event. Forms that were unloaded die when none lives.
class EventScope {
public:
    EventScope() { ++depth_; }
    EventScope(const EventScope&) = delete;
    EventScope& operator=(const EventScope&) = delete;
    ~EventScope() { --depth_; }
    static bool running() { return depth_ > 0; }

private:
    static inline int depth_ = 0;
};

}  // namespace orv
