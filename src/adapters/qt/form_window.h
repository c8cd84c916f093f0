#pragma once

#include <QEventLoop>
#include <QWidget>
#include <memory>
#include <span>
#include <vector>

#include "adapters/qt/input_gate.h"
#include "adapters/qt/views/control_view.h"
#include "platform/forms/form_host.h"

namespace orv {

/// The window of one form: what is drawn on the form, the captions, a view for each control, the focus and the keys.
class FormWindow : public QWidget {
public:
    FormWindow(Form& form, FormHost& forms, std::span<const Placement> layout);
    ~FormWindow() override;

    void showForm();
    /// Shows the window above all others and returns when `leave` has been called. The window may have been deleted
    /// then.
    void runModal();
    /// The form leaves: the window disappears and does not touch it any more. It is deleted when its own event is over.
    void leave();
    void centre();
    /// What is still being composed or typed in the field with the focus goes into its control.
    void commit();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Seat {
        std::unique_ptr<ControlView> view;
        int captionWidth = 0;
    };

    void seat(Control& control, std::span<const Placement> layout);
    void takeSize();
    void placeAll();
    void orderTabs();
    void refresh();
    void openGate();
    void enableIfStillDue();
    void endModal();
    void comeToFront();
    void giveFocus(Control& control);
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
    QEventLoop* modalLoop_ = nullptr;
    bool left_ = false;
};

}  // namespace orv
