#pragma once

#include <QApplication>
#include <QWidget>
#include <stdexcept>

#include "adapters/qt/views/qt_text.h"
#include "platform/controls/control.h"
#include "platform/forms/form.h"

namespace orv {

/// Milliseconds for which a test waits for an expected event.
constexpr int kPatience = 180'000;

/// Returns the pane that shows the form.
inline QWidget* findPane(const Form& form) {
    for (QWidget* pane : QApplication::allWidgets()) {
        if (pane->objectName() == toQt(form.name()) && pane->isVisible()) return pane;
    }
    throw std::runtime_error(form.name() + " is not on the screen");
}

inline QWidget* findWindow(const Form& form) { return findPane(form)->window(); }

template <class W = QWidget>
W* findWidget(const Control& control) {
    const QWidget* pane = findPane(dynamic_cast<const Form&>(control.owner()));
    if (auto* widget = dynamic_cast<W*>(pane->findChild<QWidget*>(toQt(control.objectName())))) return widget;
    throw std::runtime_error(control.objectName() + " has no such widget");
}

}  // namespace orv
