#pragma once

#include <QWidget>
#include <memory>
#include <span>
#include <vector>

#include "adapters/qt/input_gate.h"
#include "adapters/qt/views/control_view.h"
#include "platform/forms/form_host.h"

namespace orv {

class TopWindow;

/// Shows one form in a window: its drawing, its captions and a view for each control. Handles the focus and the keys.
class FormPane : public QWidget {
public:
    FormPane(Form& form, FormHost& forms, std::span<const Placement> layout, const PageScale& scale);
    ~FormPane() override;

    /// Gives the keyboard focus to the form's active control.
    void showFocus();
    /// Detaches the pane from its form and hides it. The pane is deleted after the current event.
    void leave();
    /// Centres the window on the screen, now or when a window first shows the pane.
    void centre();
    bool centred() const { return centred_; }
    /// Returns the form's name, and whether it is disabled, for programs that operate the window from outside.
    QString role() const;
    Sizing sizing() const { return form_.sizing(); }
    /// Called when the operator has pressed the window's close box.
    void pressCloseBox();
    /// Called when another window has received the focus.
    void windowLeft();
    /// Writes unfinished input of the field with the focus to its control.
    void commit();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    /// A pane looks the same with and without the focus. The toolkit would paint it again.
    void focusInEvent(QFocusEvent*) override {}
    void focusOutEvent(QFocusEvent*) override {}

private:
    class FocusFrame;

    struct PlacedView {
        std::unique_ptr<ControlView> view;
        int captionWidth = 0;
    };

    void addView(Control& control, std::span<const Placement> layout);
    void placeAll();
    void orderTabs();
    void refresh();
    void enableIfStillDue();
    void openGate();
    TopWindow* topWindow() const;
    void giveFocus(Control& control);
    void focusArrived(ControlView& view, Qt::FocusReason reason);
    /// Returns the area of a control, its caption and its unit.
    QRect placedArea(const PlacedView& placed) const;
    const PlacedView* findPlaced(const QObject* widget) const;
    ControlView* findView(const QObject* widget) const;
    ControlView* findView(const Control& control) const;
    bool keyPressed(ControlView& view, const QKeyEvent& event);
    void paintCaptions(QPainter& painter) const;

    Form& form_;
    FormHost& forms_;
    PageScale scale_;
    std::vector<PlacedView> placed_;
    FocusFrame* focusFrame_;
    std::unique_ptr<InputGate> gate_;  // while the form is disabled
    bool centred_ = false;
    bool left_ = false;
};

}  // namespace orv
