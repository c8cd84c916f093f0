#pragma once

#include <QEventLoop>
#include <QWidget>

#include "adapters/qt/views/accessibility.h"
#include "adapters/qt/views/screen_room.h"

class QScrollArea;

namespace orv {

class FormPane;

/// A window on the screen. It shows one form after the other: the pages share one, so that the input method, which
/// keeps its state by window, stays as it is across a change of page. A form that is larger than the screen is
/// scrolled.
class TopWindow : public QWidget, public AccessibleRole {
public:
    explicit TopWindow(RoomOf roomOf);

    /// Shows the pane in place of the one before, in front of the other windows.
    void present(FormPane& pane);
    /// The same above all other windows. Returns when the pane has been dismissed.
    void runModal(FormPane& pane);
    /// Disappears unless another pane has taken this one's place.
    void dismiss(const FormPane& pane);
    void centre();
    /// Scrolls until that part of the pane can be seen.
    void reveal(const QRect& part);

    bool eventFilter(QObject* watched, QEvent* event) override;
    QAccessible::Role accessibleRole() const override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void takeIn(FormPane& pane);
    void takeSizeOf(const FormPane& pane);
    void placePane();
    void comeToFront();

    RoomOf roomOf_;
    QScrollArea* scroll_;
    QWidget* sheet_;  // has the size of the pane
    FormPane* pane_ = nullptr;
    QEventLoop* modalLoop_ = nullptr;
};

}  // namespace orv
