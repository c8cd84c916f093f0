#include "adapters/qt/qt_window_system.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>

#include "adapters/qt/notice_box.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr int kSweepPause = 50;  // milliseconds, while an event still runs

}  // namespace

void QtWindowSystem::open(Form& form) {
    if (qApp == nullptr) {
        throw RunTimeError(Failure::Internal, "画面を表示できません。");
    }
    windows_[&form] = new FormWindow(form, forms_, layouts_(form.name()), nullptr);
}

void QtWindowSystem::show(Form& form) { windows_.at(&form)->showForm(); }

void QtWindowSystem::centre(Form& form) {
    if (const auto found = windows_.find(&form); found != windows_.end()) {
        found->second->centre();
    }
}

/// The window goes when its own event has ended; the form, when no event of any form runs.
void QtWindowSystem::close(Form& form) {
    const auto found = windows_.find(&form);
    if (found != windows_.end()) {
        form.observe({});
        form.observeFocus({});
        found->second->hide();
        found->second->deleteLater();
        windows_.erase(found);
    }
    sweepLater();
    if (forms_.forms().empty()) {
        QApplication::quit();
    }
}

void QtWindowSystem::sweepLater() {
    QTimer::singleShot(0, qApp, [this] {
        if (EventScope::running()) {
            QTimer::singleShot(kSweepPause, qApp, [this] { sweepLater(); });
        } else {
            forms_.sweep();
        }
    });
}

void QtWindowSystem::runModal(Form& form) {
    FormWindow* window = windows_.at(&form);
    window->setWindowModality(Qt::ApplicationModal);
    QEventLoop loop;
    QObject::connect(window, &QObject::destroyed, &loop, &QEventLoop::quit);
    window->showForm();
    while (form.loaded()) {
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
}

QWidget* QtWindowSystem::activeWindow() const {
    const auto found = windows_.find(forms_.activeForm());
    return found == windows_.end() ? nullptr : found->second;
}

std::size_t QtWindowSystem::showNotice(const Notice& notice) {
    const bool busy = busy_;
    pointer(false);
    const std::size_t answer = runNotice(notice, activeWindow());
    pointer(busy);
    return answer;
}

void QtWindowSystem::commitComposition() {
    if (auto* window = dynamic_cast<FormWindow*>(activeWindow())) {
        window->commit();
    }
}

void QtWindowSystem::pointer(bool busy) {
    if (busy == busy_) {
        return;
    }
    busy_ = busy;
    if (busy) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

void QtWindowSystem::repaint() { QApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }

}  // namespace orv
