#include "adapters/qt/top_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPointer>
#include <QScrollArea>
#include <QStyle>
#include <QWindow>
#include <utility>

#include "adapters/qt/form_pane.h"
#include "adapters/qt/nested_events.h"

namespace orv {
namespace {

constexpr int kRevealMargin = 8;

}  // namespace

TopWindow::TopWindow(MeasureScreen measure)
    : QWidget(nullptr, Qt::Window), measure_(std::move(measure)), scroll_(new QScrollArea(this)), sheet_(new QWidget) {
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setWidget(sheet_);
}

void TopWindow::present(FormPane& pane) {
    if (pane_ != &pane) {
        embed(pane);
    }
    comeToFront();
    show();
    windowHandle()->installEventFilter(this);
    activateWindow();
    pane.showFocus();
}

/// Delivers the input method's answers to the keys before a click, which may still be queued.
bool TopWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == windowHandle() && event->type() == QEvent::MouseButtonPress) {
        const NestedEvents nested;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    }
    return QWidget::eventFilter(watched, event);
}

QAccessible::Role TopWindow::accessibleRole() const { return isModal() ? QAccessible::Dialog : QAccessible::Window; }

/// Removes the focus before the old pane is hidden, because the toolkit would give it to another widget.
void TopWindow::embed(FormPane& pane) {
    FormPane* last = std::exchange(pane_, &pane);
    if (last != nullptr) {
        disconnect(last, nullptr, this, nullptr);
        if (QWidget* focus = focusWidget()) {
            focus->clearFocus();
        }
    }
    adoptSize(pane);
    pane.setParent(sheet_);
    pane.move(0, 0);
    placePane();
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

/// Limits the initial size to that of the screen.
void TopWindow::adoptSize(const FormPane& pane) {
    const QSize space = measure_(screen(), pane.sizing()).inside();
    const QSize size = pane.size();
    if (pane.sizing() == Sizing::Free) {
        resize(size.boundedTo(space));
        return;
    }
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const QSize bars(size.height() > space.height() ? bar : 0, size.width() > space.width() ? bar : 0);
    setFixedSize((size + bars).boundedTo(space));
}

void TopWindow::placePane() {
    scroll_->resize(size());
    if (pane_->sizing() == Sizing::Free) {
        pane_->resize(size());
    }
    sheet_->resize(pane_->size());
}

void TopWindow::reveal(const QRect& part) {
    for (const QPoint& corner : {part.bottomRight(), part.topLeft()}) {
        scroll_->ensureVisible(corner.x(), corner.y(), kRevealMargin, kRevealMargin);
    }
}

void TopWindow::runModal(FormPane& pane) {
    const QPointer<QWidget> owner = QApplication::activeWindow();
    setWindowModality(Qt::ApplicationModal);
    embed(pane);
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

/// Only raises a visible window, because a new one appears in front anyway.
void TopWindow::comeToFront() {
    if (isVisible() && !isActiveWindow()) {
        raise();
    }
}

void TopWindow::centre() {
    if (pane_ == nullptr) {
        return;
    }
    move(measure_(screen(), pane_->sizing()).middleFor(size()));
    comeToFront();
}

void TopWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (pane_ != nullptr) {
        pane_->pressCloseBox();
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
        placePane();
    }
}

}  // namespace orv
