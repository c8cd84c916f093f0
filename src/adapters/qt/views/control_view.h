#pragma once

#include <QObject>
#include <QWidget>
#include <initializer_list>
#include <memory>

#include "adapters/qt/views/page_scale.h"
#include "platform/controls/control.h"

namespace orv {

/// The words around a control, and the name by which assistive technology knows it.
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
    /// Tells assistive technology why the operator's input was refused. An empty text: it was not.
    void setFault(const QString& why);
    /// Presses a button; false: the control is none.
    virtual bool press() { return false; }
    /// Leaves the control, which may die before its view.
    void release();

protected:
    ControlView(Control& control, QWidget* widget);

    virtual void show() = 0;
    /// Returns the sentences that assistive technology reads after the name.
    virtual QStringList description() const;
    bool released() const { return released_; }
    /// Gives the widget a tool tip of `text` if that is wider than the room for it.
    void tipIfCut(const QString& text, int room) const;
    /// Gives the widget's ground and all that is written on it the control's colours. Without a colour of its own the
    /// control has those of the desktop.
    void paintWith(QPalette::ColorRole ground, std::initializer_list<QPalette::ColorRole> texts);

private:
    Control& control_;
    QWidget* widget_;
    bool released_ = false;
};

/// A view for the control's kind, its widget a child of `page`.
std::unique_ptr<ControlView> makeView(Control& control, QWidget* page, const PageScale& scale);

}  // namespace orv
