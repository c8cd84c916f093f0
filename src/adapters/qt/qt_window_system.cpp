#include "adapters/qt/qt_window_system.h"

#include <QApplication>
#include <QThread>
#include <QTimer>

#include "adapters/qt/dialogs.h"
#include "adapters/qt/nested_events.h"
#include "adapters/qt/views/qt_text.h"
#include "platform/run_time_error.h"
#include "platform/scope.h"
#include "platform/waiting.h"

namespace orv {
namespace {

constexpr int kTidyPause = 50;  // milliseconds, while an event still runs

}  // namespace

/// Hides the hourglass while the operator has to answer.
class QtWindowSystem::PlainPointer : NonCopyable {
public:
    explicit PlainPointer(QtWindowSystem& windows) : windows_(windows), busy_(windows.busy_) {
        windows_.showPointer(false);
    }
    ~PlainPointer() { windows_.showPointer(busy_); }

private:
    QtWindowSystem& windows_;
    bool busy_;
};

QtWindowSystem::~QtWindowSystem() {
    for (const auto& [form, pane] : panes_) {
        pane->leave();
        delete pane;
    }
}

void QtWindowSystem::bringToFront() const {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr) {
        window = activeWindow();
    }
    if (window != nullptr) {
        window = window->window();
        window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
        window->raise();
        window->activateWindow();
    }
}

void QtWindowSystem::open(Form& form) {
    if (qApp == nullptr) {
        throw RunTimeError(Failure::Internal, "画面を表示できません。");
    }
    panes_[&form] = new FormPane(form, forms_, layouts_(form.name()), PageScale(space(Sizing::Fixed)));
}

/// The form may have unloaded itself while it was loading.
void QtWindowSystem::show(Form& form) {
    if (FormPane* pane = findPane(&form)) {
        pageWindow().present(*pane);
    }
}

/// Does not show a dismissed window again. It may still be handling the event that dismissed it.
TopWindow& QtWindowSystem::pageWindow() {
    if (window_ && !window_->isVisible()) {
        window_.release()->deleteLater();
    }
    if (!window_) {
        window_ = std::make_unique<TopWindow>(measure_);
    }
    return *window_;
}

void QtWindowSystem::centre(Form& form) {
    if (FormPane* pane = findPane(&form)) {
        pane->centre();
    }
}

void QtWindowSystem::close(Form& form) {
    if (FormPane* pane = findPane(&form)) {
        panes_.erase(&form);
        pane->leave();
    }
    tidyLater();
}

void QtWindowSystem::tidyLater() {
    QTimer::singleShot(0, &queue_, [this] { tidy(); });
}

void QtWindowSystem::tidy() {
    if (NestedEvents::running()) {
        QTimer::singleShot(kTidyPause, &queue_, [this] { tidy(); });
        return;
    }
    forms_.sweep();
    // If the application were ended before it runs, no later notice would wait for its answer.
    const bool running = QThread::currentThread()->loopLevel() > 0;
    if (running && forms_.forms().empty()) {
        QCoreApplication::exit();
    }
}

void QtWindowSystem::runModal(Form& form) {
    if (FormPane* pane = findPane(&form)) {
        endWork();
        const PlainPointer plain(*this);
        TopWindow(measure_).runModal(*pane);
    }
}

FormPane* QtWindowSystem::findPane(const Form* form) const {
    const auto found = panes_.find(form);
    return found == panes_.end() ? nullptr : found->second;
}

ScreenSpace QtWindowSystem::space(Sizing sizing) const { return measure_(QGuiApplication::primaryScreen(), sizing); }

QWidget* QtWindowSystem::activeWindow() const {
    const FormPane* pane = findPane(forms_.activeForm());
    return pane == nullptr ? nullptr : pane->window();
}

std::size_t QtWindowSystem::showNotice(const Notice& notice) {
    endWork();
    const PlainPointer plain(*this);
    return runNotice(notice, activeWindow(), space(Sizing::Fixed).inside());
}

std::optional<std::string> QtWindowSystem::openFile(const FileQuestion& question) {
    const PlainPointer plain(*this);
    return runOpenDialog(question, activeWindow(), space(Sizing::Free).inside());
}

void QtWindowSystem::commitComposition() {
    if (FormPane* pane = findPane(forms_.activeForm())) {
        pane->commit();
    }
}

void QtWindowSystem::showWork(const std::string& what) {
    if (what.empty()) {
        endWork();
        return;
    }
    if (!workCover_) {
        workCover_ = new WorkCover(findPane(forms_.activeForm()));
        setWhileWaiting([this] { repaint(); });
    }
    workCover_->say(toQt(what));
    if (workCover_->isVisible()) {
        repaint();
    }
}

void QtWindowSystem::endWork() {
    setWhileWaiting({});
    if (workCover_) {
        workCover_->end();
        workCover_.clear();
    }
}

void QtWindowSystem::pointToSibling(Form& form, const std::string& line, std::function<void()> pressed) {
    delete siblingCover_;
    FormPane* pane = findPane(&form);
    if (!line.empty() && pane != nullptr) {
        siblingCover_ = new SiblingCover(*pane, toQt(line), std::move(pressed));
    }
}

void QtWindowSystem::beep() { QApplication::beep(); }

void QtWindowSystem::showPointer(bool busy) {
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

void QtWindowSystem::repaint() {
    const NestedEvents nested;
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
}

}  // namespace orv
