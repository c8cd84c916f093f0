#include "adapters/qt/views/advice_bubble.h"

#include <QHelpEvent>
#include <QLineEdit>
#include <QTimer>
#include <QToolTip>
#include <utility>

#include "adapters/qt/views/accessibility.h"
#include "platform/machine/window_system.h"
#include "platform/services.h"

namespace orv {
namespace {

constexpr int kShownFor = 15'000;  // milliseconds

}  // namespace

AdviceBubble::AdviceBubble(QLineEdit& field, QString limit, std::function<void(const QString&)> fault)
    : QObject(&field), field_(field), limit_(std::move(limit)), fault_(std::move(fault)) {
    field_.installEventFilter(this);
}

void AdviceBubble::refuse(const QString& why) {
    fault_(why);
    if (why.isEmpty()) {
        return;
    }
    services().windows->beep();
    announce(field_, why);
    // A place outside the rectangle makes the toolkit show the same text anew. Otherwise a bubble that is already
    // visible would still disappear, because of the key that has led to this refusal.
    const QRect nextToPlace(1, 0, field_.width(), field_.height());
    QToolTip::showText(field_.mapToGlobal(QPoint(0, field_.height() / 2)), why, &field_, nextToPlace, kShownFor);
}

void AdviceBubble::refuseLater(const QString& why) {
    QTimer::singleShot(0, this, [this, why] { refuse(why); });
}

bool AdviceBubble::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        QToolTip::hideText();
        fault_({});
    }
    if (event->type() != QEvent::ToolTip) {
        return false;
    }
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), tip(), &field_);
    return true;
}

QString AdviceBubble::tip() const {
    const bool whole = field_.fontMetrics().horizontalAdvance(field_.displayText()) < field_.width();
    const QStringList lines{whole ? QString() : field_.displayText(), limit_};
    return lines.join(u'\n').trimmed();
}

}  // namespace orv
