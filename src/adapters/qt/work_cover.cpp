#include "adapters/qt/work_cover.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWindow>

namespace orv {
namespace {

constexpr int kPatience = 500;  // milliseconds

}  // namespace

WorkCover::WorkCover(QWidget* page) : PageCover(page, Bar::Moving) {
    setObjectName(QStringLiteral("work"));
    if (page != nullptr) {
        gate_ = std::make_unique<InputGate>(*page);
        page->window()->installEventFilter(this);
    }
    QTimer::singleShot(kPatience, this, [this] {
        if (!ended_) {
            appear();
        }
    });
}

/// Uses a timer because timers run after pending input.
void WorkCover::end() {
    ended_ = true;
    hide();
    QTimer::singleShot(0, this, &QObject::deleteLater);
}

bool WorkCover::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Close) {
        event->ignore();
    }
    // If the page lost the focus to another window, its handlers would run.
    return event->type() == QEvent::Close || event->type() == QEvent::ActivationChange;
}

/// Filters the events of the application, because presses on a disabled form do not reach its widgets.
SiblingCover::SiblingCover(QWidget& page, const QString& line, std::function<void()> pressed)
    : PageCover(&page, Bar::None), pressed_(std::move(pressed)) {
    setObjectName(QStringLiteral("sibling"));
    say(line);
    appear();
    QCoreApplication::instance()->installEventFilter(this);
}

bool SiblingCover::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && watched == window()->windowHandle()) {
        pressed_();
    }
    return false;
}

}  // namespace orv
