#include "adapters/qt/views/control_view.h"

#include <QSignalBlocker>

#include "adapters/qt/views/qt_text.h"

namespace orv {
namespace {

/// Removes blanks and the final punctuation, which are not read out.
QString readOut(const QString& words) {
    const QString text = words.trimmed();
    return text.endsWith(u'：') || text.endsWith(u'～') ? text.chopped(1) : text;
}

/// The spoken name defaults to the caption, or else to the unit.
ControlWords readOwnWords(const Control& control) {
    const auto [caption, unit, spoken] = control.texts();
    return {toQt(caption), toQt(unit), readOut(toQt(!spoken.empty() ? spoken : !caption.empty() ? caption : unit))};
}

}  // namespace

ControlWords readWords(const Control& control) {
    ControlWords words = readOwnWords(control);
    if (!control.block().empty()) {
        words.spoken.prepend(readOut(toQt(control.block())) + QStringLiteral("の"));
    }
    return words;
}

ControlView::ControlView(Control& control, QWidget* widget) : control_(control), widget_(widget) {
    widget_->setObjectName(toQt(control.objectName()));
    widget_->setAccessibleName(readWords(control).spoken);
    control_.observe([this] { refresh(); });
}

ControlView::~ControlView() { release(); }

void ControlView::release() {
    if (!released_) {
        released_ = true;
        control_.observe({});
        disconnect(widget_, nullptr, this, nullptr);
    }
}

void ControlView::refresh() {
    const QSignalBlocker blocker(widget_);
    show();
    widget_->setEnabled(control_.enabled());
    widget_->setVisible(control_.visible());
    widget_->setAccessibleDescription(description().join(u' '));
}

QStringList ControlView::description() const {
    const ControlWords words = readWords(control_);
    QStringList sentences;
    if (!control_.fault().empty()) {
        sentences << toQt(control_.fault());
    }
    if (control_.required()) {
        sentences << QStringLiteral("入力が必要です。");
    }
    if (const QString unit = readOut(words.unit); !unit.isEmpty() && !words.spoken.endsWith(unit)) {
        sentences << QStringLiteral("「%1」が続きます。").arg(unit);
    }
    return sentences;
}

void ControlView::setFault(const QString& why) {
    if (!released_) {
        control_.setFault(why.toStdString());
    }
}

void ControlView::tipIfCut(const QString& text, int space) const {
    widget_->setToolTip(widget_->fontMetrics().horizontalAdvance(text) > space ? text : QString());
}

void ControlView::paintWith(QPalette::ColorRole background, std::initializer_list<QPalette::ColorRole> texts) {
    const auto back = control_.backColour();
    if (!back) {
        return;
    }
    QPalette palette = widget_->palette();
    palette.setColor(background, toQt(*back));
    for (const QPalette::ColorRole text : texts) {
        palette.setColor(text, toQt(control_.foreColour()));
        palette.setColor(QPalette::Disabled, text, toQt(kDisabledText));
    }
    if (palette != widget_->palette()) {
        widget_->setPalette(palette);
    }
}

}  // namespace orv
