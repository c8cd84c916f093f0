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

/// True for events that move the focus before a widget receives them.
bool isPress(QEvent::Type type) {
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick || type == QEvent::Wheel ||
           type == QEvent::TouchBegin || type == QEvent::TabletPress;
}

/// Returns the widget that the event is for. A shortcut is an object in its widget.
const QWidget* receiver(const QObject* watched, QEvent::Type type) {
    return qobject_cast<const QWidget*>(type == QEvent::Shortcut && !watched->isWidgetType() ? watched->parent()
                                                                                             : watched);
}

}  // namespace

InputGate::InputGate(const QWidget& pane) : pane_(pane) { QCoreApplication::instance()->installEventFilter(this); }

/// Stops presses at the toolkit's own window. All other events must pass through that window, which tracks pressed keys
/// and buttons, and are stopped at the widgets.
bool InputGate::eventFilter(QObject* watched, QEvent* event) {
    if (watched == pane_.window()->windowHandle()) {
        return isPress(event->type()) && pane_.isVisible();
    }
    if (!isInput(event->type())) {
        return false;
    }
    const QWidget* widget = receiver(watched, event->type());
    return widget != nullptr && holds(*widget);
}

/// Includes the window itself, which receives the keys when no widget in the pane has the focus.
bool InputGate::holds(const QWidget& widget) const {
    return &widget == &pane_ || pane_.isAncestorOf(&widget) || (&widget == pane_.window() && pane_.isVisible());
}

}  // namespace orv
