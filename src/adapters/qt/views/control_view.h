#pragma once

#include <QObject>
#include <QWidget>
#include <initializer_list>
#include <memory>

#include "adapters/qt/views/page_scale.h"
#include "platform/controls/control.h"

namespace orv {

/// The texts around a control, and its name for assistive technology.
struct ControlWords {
    QString caption;
    QString unit;
    QString spoken;
};

ControlWords readWords(const Control& control);

/// Keeps one control and its widget in step. Its only state of its own is unfinished input.
class ControlView : public QObject {
public:
    ~ControlView() override;

    Control& control() const { return control_; }
    QWidget& widget() const { return *widget_; }

    /// Shows the control's state. The widget emits no signals meanwhile.
    void refresh();
    /// Writes unfinished input to the control.
    virtual void commit() {}
    /// Reports to assistive technology why the operator's input was refused. An empty text withdraws the report.
    void setFault(const QString& why);
    /// Presses a button. False if the control is not a button.
    virtual bool press() { return false; }
    /// Detaches the view from its control, which may be destroyed first.
    void release();

protected:
    ControlView(Control& control, QWidget* widget);

    virtual void show() = 0;
    /// Returns the sentences that assistive technology reads after the name.
    virtual QStringList description() const;
    bool released() const { return released_; }
    /// Gives the widget a tool tip of `text` if the text is wider than `space`, else none.
    void tipIfCut(const QString& text, int space) const;
    /// Paints the widget's background and all its text in the control's colours. A control without colours of its own
    /// keeps those of the desktop.
    void paintWith(QPalette::ColorRole background, std::initializer_list<QPalette::ColorRole> texts);

private:
    Control& control_;
    QWidget* widget_;
    bool released_ = false;
};

/// Makes the view for the control's kind. Its widget is a child of `page`.
std::unique_ptr<ControlView> makeView(Control& control, QWidget* page, const PageScale& scale);

}  // namespace orv
