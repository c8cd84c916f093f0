#pragma once

#include <QEventLoop>
#include <QWidget>

namespace orv {

class FormPane;

/// A window on the screen. It shows one form after the other: the pages share one, so that the input method, which
/// keeps its state by window, stays as it is across a change of page.
class TopWindow : public QWidget {
public:
    TopWindow();

    /// Shows the pane in place of the one before, in front of the other windows.
    void present(FormPane& pane);
    /// The same above all other windows. Returns when the pane has been dismissed.
    void runModal(FormPane& pane);
    /// Disappears unless another pane has taken this one's place.
    void dismiss(const FormPane& pane);
    void centre();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void takeIn(FormPane& pane);
    void takeSizeOf(const FormPane& pane);
    void comeToFront();

    FormPane* pane_ = nullptr;
    QEventLoop* modalLoop_ = nullptr;
};

}  // namespace orv
