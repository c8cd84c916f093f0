#include "adapters/qt/sibling_cover.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWindow>

namespace orv {

/// A disabled form keeps presses from the widgets, so that they are seen only on their way.
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
