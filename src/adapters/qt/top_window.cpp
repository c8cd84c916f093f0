#include "adapters/qt/top_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPointer>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "adapters/qt/form_pane.h"
#include "adapters/qt/nested_events.h"

namespace orv {
namespace {

// What a window manager puts above a window.
constexpr int kWindowFrame = 40;

}  // namespace

TopWindow::TopWindow() : QWidget(nullptr, Qt::Window) {}

void TopWindow::present(FormPane& pane) {
    if (pane_ != &pane) {
        takeIn(pane);
    }
    comeToFront();
    show();
    windowHandle()->installEventFilter(this);
    activateWindow();
    pane.showFocus();
}

/// The input method has answered to the keys before a click, but its answers may still be queued.
bool TopWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == windowHandle() && event->type() == QEvent::MouseButtonPress) {
        const NestedEvents nested;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    }
    return QWidget::eventFilter(watched, event);
}

/// The focus leaves the pane before it is hidden: the toolkit would look for another place for it.
void TopWindow::takeIn(FormPane& pane) {
    FormPane* last = std::exchange(pane_, &pane);
    if (last != nullptr) {
        disconnect(last, nullptr, this, nullptr);
        if (QWidget* focus = focusWidget()) {
            focus->clearFocus();
        }
    }
    takeSizeOf(pane);
    pane.setParent(this);
    pane.move(0, 0);
    setWindowTitle(pane.windowTitle());
    setWindowModified(pane.isWindowModified());
    setWindowRole(pane.role());
    connect(&pane, &QWidget::windowTitleChanged, this, &QWidget::setWindowTitle);
    if (pane.centred()) {
        centre();
    }
    pane.show();
    if (last != nullptr) {
        last->hide();
    }
}

/// A form whose size is the operator's begins no larger than the screen.
void TopWindow::takeSizeOf(const FormPane& pane) {
    if (!pane.resizable()) {
        setFixedSize(pane.size());
        return;
    }
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QSize room = screen == nullptr ? pane.size() : screen->availableSize() - QSize(0, kWindowFrame);
    resize(pane.size().boundedTo(room));
}

void TopWindow::runModal(FormPane& pane) {
    const QPointer<QWidget> owner = QApplication::activeWindow();
    setWindowModality(Qt::ApplicationModal);
    takeSizeOf(pane);
    winId();
    if (owner) {
        windowHandle()->setTransientParent(owner->windowHandle());
    }
    const NestedEvents nested;
    QEventLoop loop;
    modalLoop_ = &loop;
    present(pane);
    loop.exec();
    modalLoop_ = nullptr;
    if (owner) {
        owner->activateWindow();
    }
}

void TopWindow::dismiss(const FormPane& pane) {
    if (pane_ != &pane) {
        return;
    }
    pane_ = nullptr;
    hide();
    if (modalLoop_ != nullptr) {
        modalLoop_->quit();
    }
}

/// A window that appears is in front by itself.
void TopWindow::comeToFront() {
    if (isVisible() && !isActiveWindow()) {
        raise();
    }
}

void TopWindow::centre() {
    const QScreen* screen = this->screen() != nullptr ? this->screen() : QGuiApplication::primaryScreen();
    if (screen == nullptr) {
        return;
    }
    const QRect area = screen->availableGeometry();
    const QSize outer = frameGeometry().size();
    move(area.x() + std::max(0, (area.width() - outer.width()) / 2),
         area.y() + std::max(0, (area.height() - outer.height()) / 2));
    comeToFront();
}

void TopWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (pane_ != nullptr) {
        pane_->closeBox();
    }
}

void TopWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && !isActiveWindow() && pane_ != nullptr) {
        pane_->windowLeft();
    }
    QWidget::changeEvent(event);
}

void TopWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (pane_ != nullptr) {
        pane_->resize(event->size());
    }
}

}  // namespace orv
