#pragma once

#include <QObject>

class QWidget;

namespace orv {

/// Keeps keys, the mouse, input methods and drops from a pane and everything in it while in scope. Unlike
/// disabling the widgets it leaves the focus where it is and paints nothing anew.
class InputGate : public QObject {
public:
    explicit InputGate(const QWidget& pane);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool holds(const QWidget& widget) const;

    const QWidget& pane_;
};

}  // namespace orv
