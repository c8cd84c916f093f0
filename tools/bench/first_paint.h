#pragma once

#include <QEvent>
#include <QObject>
#include <QTimer>
#include <cstdlib>

/// Ends the process after the first window has been painted and the events caused by that have been handled.
class EndAtFirstPaint : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint && !painted_) {
            painted_ = true;
            QTimer::singleShot(0, [] { std::_Exit(0); });
        }
        return false;
    }

private:
    bool painted_ = false;
};
