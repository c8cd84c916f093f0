#include "adapters/qt/page_cover.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>

#include "adapters/qt/views/page_scale.h"

namespace orv {
namespace {

constexpr QColor kVeil(0xf0, 0xf0, 0xf4, 0xa0);
constexpr int kPanelWidth = 280;  // design pixels
constexpr int kPanelMargin = 14;
constexpr int kBarHeight = 8;
constexpr int kLineFont = 10;

QWidget* movingBar(QWidget* panel, int height) {
    auto* bar = new QProgressBar(panel);
    bar->setRange(0, 0);
    bar->setTextVisible(false);
    bar->setFixedHeight(height);
    return bar;
}

}  // namespace

PageCover::PageCover(QWidget* page, Bar bar)
    : QWidget(page == nullptr ? nullptr : page->window(),
              page == nullptr ? Qt::Dialog | Qt::FramelessWindowHint : Qt::WindowFlags()),
      bar_(bar) {
    hide();
}

void PageCover::makePanel() {
    const PageScale scale;
    const int margin = scale.length(kPanelMargin);
    auto* panel = new QFrame(this);
    panel->setFrameStyle(QFrame::Panel | QFrame::Raised);
    panel->setAutoFillBackground(true);
    panel->setMinimumWidth(scale.length(kPanelWidth));
    line_ = new QLabel(panel);
    line_->setFont(scale.font(kLineFont, true));
    line_->setAlignment(Qt::AlignCenter);
    auto* rows = new QVBoxLayout(panel);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(margin / 2);
    rows->addWidget(line_);
    if (bar_ == Bar::Moving) {
        rows->addWidget(movingBar(panel, scale.length(kBarHeight)));
    }
    auto* place = new QGridLayout(this);
    place->setContentsMargins({});
    place->addWidget(panel, 0, 0, placeOfPanel());
}

/// A line about another window must not be hidden by that window, which usually opens above the middle of the page.
Qt::Alignment PageCover::placeOfPanel() const {
    if (isWindow()) {
        return {};
    }
    return Qt::AlignHCenter | (bar_ == Bar::Moving ? Qt::AlignVCenter : Qt::AlignBottom);
}

/// Covers the page only now, because the toolkit paints the area of a deleted child even if it was never visible.
void PageCover::appear() {
    if (!isWindow()) {
        setGeometry(parentWidget()->rect());
    }
    makePanel();
    raise();
    show();
    say(said_);
}

void PageCover::say(const QString& line) {
    said_ = line;
    if (line_ != nullptr) {
        line_->setText(line);
        setWindowTitle(line);
        announce(*this, line);
    }
}

QAccessible::Role PageCover::accessibleRole() const { return isWindow() ? QAccessible::Dialog : QAccessible::Pane; }

void PageCover::paintEvent(QPaintEvent*) {
    if (!isWindow()) {
        QPainter(this).fillRect(rect(), kVeil);
    }
}

}  // namespace orv
