#include "adapters/qt/input_gate.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace orv {
namespace {

bool isInput(QEvent::Type type) {
    switch (type) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::InputMethod:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletMove:
        case QEvent::TabletRelease:
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
            return true;
        default:
            return false;
    }
}

}  // namespace

InputGate::InputGate(const QWidget& window) : window_(window) {
    QCoreApplication::instance()->installEventFilter(this);
}

/// The toolkit's own window is let through: it keeps account of pressed buttons and hands on to the widgets.
bool InputGate::eventFilter(QObject* watched, QEvent* event) {
    if (!isInput(event->type()) || !watched->isWidgetType()) {
        return false;
    }
    return static_cast<QWidget*>(watched)->window() == &window_;
}

}  // namespace orv
