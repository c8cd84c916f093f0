#include "adapters/qt/input_gate.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

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

/// What moves the focus before a widget sees it.
bool isPress(QEvent::Type type) {
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick || type == QEvent::Wheel ||
           type == QEvent::TouchBegin || type == QEvent::TabletPress;
}

}  // namespace

InputGate::InputGate(const QWidget& window) : window_(window) {
    QCoreApplication::instance()->installEventFilter(this);
}

/// A press ends at the toolkit's own window. The rest passes there, where account is kept of what is pressed, and ends
/// at the widgets.
bool InputGate::eventFilter(QObject* watched, QEvent* event) {
    if (watched == window_.windowHandle()) {
        return isPress(event->type());
    }
    return isInput(event->type()) && watched->isWidgetType() && static_cast<QWidget*>(watched)->window() == &window_;
}

}  // namespace orv
