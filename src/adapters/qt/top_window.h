#pragma once

#include <QEventLoop>
#include <QWidget>

#include "adapters/qt/views/accessibility.h"
#include "adapters/qt/views/screen_space.h"

class QScrollArea;

namespace orv {

class FormPane;

/// A window on the screen that shows one form at a time. All pages share one window: the input method keeps its state
/// per window, and this state must survive a change of page. A form that is larger than the screen is scrolled.
class TopWindow : public QWidget, public AccessibleRole {
public:
    explicit TopWindow(MeasureScreen measure);

    /// Shows the pane instead of the previous one and brings the window to the front.
    void present(FormPane& pane);
    /// Shows the pane as a modal dialog. Returns when the pane has been dismissed.
    void runModal(FormPane& pane);
    /// Hides the window unless it already shows another pane.
    void dismiss(const FormPane& pane);
    void centre();
    /// Scrolls until that part of the pane is visible.
    void reveal(const QRect& part);

    bool eventFilter(QObject* watched, QEvent* event) override;
    QAccessible::Role accessibleRole() const override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void embed(FormPane& pane);
    void adoptSize(const FormPane& pane);
    void placePane();
    void comeToFront();

    MeasureScreen measure_;
    QScrollArea* scroll_;
    QWidget* sheet_;  // has the size of the pane
    FormPane* pane_ = nullptr;
    QEventLoop* modalLoop_ = nullptr;
};

}  // namespace orv
