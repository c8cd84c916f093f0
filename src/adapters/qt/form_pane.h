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

/// What a window shows of one form: what is drawn on it, the captions, a view for each control, the focus and the keys.
class FormPane : public QWidget {
public:
    FormPane(Form& form, FormHost& forms, std::span<const Placement> layout, const PageScale& scale);
    ~FormPane() override;

    /// Gives the focus to the control that has it on the form.
    void showFocus();
    /// The form leaves: the pane disappears and does not touch it any more. It is deleted when its own event is over.
    void leave();
    /// Into the middle of the screen, at the latest when a window shows it.
    void centre();
    bool centred() const { return centred_; }
    /// Names the form and says if it takes no input, for whatever works the window from outside.
    QString role() const;
    Sizing sizing() const { return form_.sizing(); }
    /// The operator has pressed the window's close box.
    void closeBox();
    /// The focus has left for another window.
    void windowLeft();
    /// What is still being composed or typed in the field with the focus goes into its control.
    void commit();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Seat {
        std::unique_ptr<ControlView> view;
        int captionWidth = 0;
    };

    void seat(Control& control, std::span<const Placement> layout);
    void placeAll();
    void orderTabs();
    void refresh();
    void enableIfStillDue();
    void openGate();
    TopWindow* topWindow() const;
    void giveFocus(Control& control);
    void focusArrived(ControlView& view, Qt::FocusReason reason);
    /// A field with its caption and unit.
    QRect partOf(const Seat& seat) const;
    const Seat* seatOf(const QObject* widget) const;
    ControlView* viewOf(const QObject* widget) const;
    ControlView* viewOf(const Control& control) const;
    bool keyPressed(ControlView& view, const QKeyEvent& event);
    void paintCaptions(QPainter& painter) const;

    Form& form_;
    FormHost& forms_;
    PageScale scale_;
    std::vector<Seat> seats_;
    QWidget* focusFrame_;
    std::unique_ptr<InputGate> gate_;  // while the form is disabled
    bool centred_ = false;
    bool left_ = false;
};

}  // namespace orv
