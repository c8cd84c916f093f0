#pragma once

#include <QApplication>
#include <QWidget>
#include <stdexcept>

#include "adapters/qt/views/qt_text.h"
#include "platform/controls/control.h"
#include "platform/forms/form.h"

namespace orv {

/// Milliseconds that a test waits for what must come.
constexpr int kPatience = 180'000;

/// The window that shows the form.
inline QWidget* windowOf(const Form& form) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == toQt(form.name()) && window->isVisible()) {
            return window;
        }
    }
    throw std::runtime_error(form.name() + " is not on the screen");
}

/// The widget that shows the control.
template <class W = QWidget>
W* widgetOf(const Control& control) {
    const QWidget* window = windowOf(dynamic_cast<const Form&>(control.owner()));
    if (auto* widget = dynamic_cast<W*>(window->findChild<QWidget*>(toQt(control.objectName())))) {
        return widget;
    }
    throw std::runtime_error(control.objectName() + " has no such widget");
}

}  // namespace orv
