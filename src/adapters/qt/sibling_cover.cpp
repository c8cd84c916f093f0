#include "adapters/qt/sibling_cover.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWindow>

namespace orv {

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
