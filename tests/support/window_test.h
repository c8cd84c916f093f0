#pragma once

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include "adapters/qt/qt_window_system.h"
#include "pages/handlers/form_layouts.h"
#include "support/fixture.h"
#include "support/widgets.h"

namespace orv {

/// The whole system in its real windows, worked by key and mouse events. Messages are recorded, not shown.
class WindowTest : public SystemTest {
protected:
    WindowTest() { services().windows = &windowSystem; }
    ~WindowTest() override {
        PF_Form_Clean();
        settle();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        services().windows = &windows;
    }

    /// Handles all queued events except deletions, because a dialog can be running below this call.
    static void settle() { QCoreApplication::processEvents(); }
    /// Returns the widget that receives the next key.
    static QWidget* keyboard() {
        if (!QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; }, kPatience)) {
            throw std::runtime_error("nothing has the focus");
        }
        return QApplication::focusWidget();
    }
    static std::string focused() { return keyboard()->objectName().toStdString(); }

    /// Clicks as the operator can, which is not before the window is active.
    static void click(const Control& control) {
        auto* widget = findWidget(control);
        widget->window()->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(widget->window(), kPatience));
        QTest::mouseClick(widget, Qt::LeftButton);
        settle();
    }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(keyboard(), key, modifiers);
        settle();
    }
    /// Clicks the field, replaces its text, and leaves it with Tab.
    static void enter(const TextInput& field, const std::string& text) {
        click(field);
        press(Qt::Key_A, Qt::ControlModifier);
        press(Qt::Key_Delete);
        type(text);
        press(Qt::Key_Tab);
    }
    static void type(const std::string& text) {
        QInputMethodEvent event;
        event.setCommitString(toQt(text));
        QApplication::sendEvent(keyboard(), &event);
    }
    static void typeKeys(const std::string& ascii) { QTest::keyClicks(keyboard(), toQt(ascii)); }
    static void pick(const ComboBox& list, const std::string& entry) {
        auto* box = findWidget<QComboBox>(list);
        box->setFocus();
        box->showPopup();
        box->view()->setCurrentIndex(box->model()->index(box->findText(toQt(entry)), 0));
        QTest::keyClick(box->view(), Qt::Key_Return);
        settle();
    }

    QtWindowSystem windowSystem{findLayout, forms};
};

}  // namespace orv
