#pragma once

#include <QObject>

class QWidget;

namespace orv {

/// Blocks keys, the mouse, input methods and drops for a pane and all its widgets while in scope. Unlike disabling the
/// widgets, it neither moves the focus nor repaints anything.
class InputGate : public QObject {
public:
    explicit InputGate(const QWidget& pane);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool holds(const QWidget& widget) const;

    const QWidget& pane_;
};

}  // namespace orv
