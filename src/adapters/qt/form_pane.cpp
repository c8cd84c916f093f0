#include "adapters/qt/form_pane.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QTimer>
#include <algorithm>

#include "adapters/qt/canvas_painter.h"
#include "adapters/qt/nested_events.h"
#include "adapters/qt/top_window.h"
#include "adapters/qt/views/qt_text.h"

namespace orv {
namespace {

constexpr Colour kFocus{0x0060e0};
constexpr int kCaptionFont = 9;
constexpr int kUnitGap = 3;
constexpr int kUnitWidth = 60;
constexpr int kKeySpace = 32;

bool acceptsFocus(const Control& control) {
    return control.kind() != ControlKind::Label && control.kind() != ControlKind::Image;
}

/// Returns the classic code of a key. 0 for Tab and the modifiers, which are not reported to the form.
int toKeyCode(int key) {
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return kKeyEnter;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Shift:
        case Qt::Key_Control:
        case Qt::Key_Alt:
        case Qt::Key_AltGr:
        case Qt::Key_Meta:
        case Qt::Key_CapsLock:
        case Qt::Key_NumLock:
            return 0;
        case Qt::Key_Space:
            return kKeySpace;
        case Qt::Key_Escape:
            return kKeyEscape;
        case Qt::Key_Backspace:
            return 8;
        case Qt::Key_Delete:
            return 46;
        case Qt::Key_Left:
            return 37;
        case Qt::Key_Up:
            return 38;
        case Qt::Key_Right:
            return 39;
        case Qt::Key_Down:
            return 40;
        default:
            break;
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) {
        return kKeyF1 + key - Qt::Key_F1;
    }
    return key < 0x100 ? key : 255;
}

}  // namespace

/// The frame around the control that has the focus. Clicks pass through it.
class FormPane::FocusFrame : public QWidget {
public:
    explicit FocusFrame(QWidget* page) : QWidget(page) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
        hide();
    }
    void around(const QWidget& widget) {
        setGeometry(widget.geometry().adjusted(-2, -2, 2, 2));
        raise();
        show();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(QPen(toQt(kFocus), 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
};

FormPane::FormPane(Form& form, FormHost& forms, std::span<const Placement> layout, const PageScale& scale)
    : form_(form), forms_(forms), scale_(scale) {
    setObjectName(toQt(form.name()));
    setAttribute(Qt::WA_OpaquePaintEvent);
    resize(scale_.length(form.scaleWidth()), scale_.length(form.scaleHeight()));
    setFont(scale_.font(kCaptionFont));
    for (Control* control : form.controls()) {
        addView(*control, layout);
    }
    focusFrame_ = new FocusFrame(this);
    orderTabs();
    refresh();
    form_.observe([this] { refresh(); });
    form_.observeFocus([this](Control& control) { giveFocus(control); });
    form_.observeEnabledLater([this] { QTimer::singleShot(0, this, [this] { enableIfStillDue(); }); });
}

FormPane::~FormPane() = default;

void FormPane::leave() {
    left_ = true;
    form_.observe({});
    form_.observeFocus({});
    form_.observeEnabledLater({});
    for (const PlacedView& placed : placed_) {
        placed.view->release();
    }
    if (TopWindow* top = topWindow()) {
        top->dismiss(*this);
    }
    hide();
    deleteLater();
}

TopWindow* FormPane::topWindow() const { return dynamic_cast<TopWindow*>(window()); }

/// A control that is not in the layout works without being shown.
void FormPane::addView(Control& control, std::span<const Placement> layout) {
    const auto place = std::find_if(layout.begin(), layout.end(), [&](const Placement& row) {
        return row.control == control.name() && row.index == control.index();
    });
    if (place == layout.end()) {
        return;
    }
    auto view = makeView(control, this, scale_);
    control.setBox(place->box);
    QWidget& widget = view->widget();
    widget.setGeometry(scale_.box(place->box));
    widget.setFocusPolicy(acceptsFocus(control) ? Qt::StrongFocus : Qt::NoFocus);
    widget.installEventFilter(this);
    view->refresh();
    placed_.push_back({std::move(view), place->captionWidth});
}

void FormPane::placeAll() {
    for (const PlacedView& placed : placed_) {
        placed.view->widget().setGeometry(scale_.box(placed.view->control().box()));
    }
    if (const ControlView* view = findView(focusWidget()); view != nullptr && focusFrame_->isVisible()) {
        focusFrame_->around(view->widget());
    }
    update();
}

void FormPane::orderTabs() {
    QWidget* last = nullptr;
    for (const Control* control : form_.tabOrder()) {
        ControlView* view = findView(*control);
        if (view == nullptr || !acceptsFocus(*control)) {
            continue;
        }
        if (last != nullptr) {
            setTabOrder(last, &view->widget());
        }
        last = &view->widget();
    }
}

void FormPane::refresh() {
    // The toolkit replaces "[*]" with its mark for unsaved changes; "[*][*]" is a literal "[*]".
    setWindowTitle(toQt(form_.caption()).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")) +
                   QStringLiteral("[*]"));
    setWindowModified(form_.hasUnsavedChanges());
    if (form_.enabled() && gate_) {
        openGate();
    } else if (!form_.enabled() && !gate_) {
        gate_ = std::make_unique<InputGate>(*this);
    }
    if (isVisible()) {
        window()->setWindowRole(role());
        window()->setWindowModified(isWindowModified());
    }
}

void FormPane::enableIfStillDue() {
    if (!left_ && form_.enabled()) {
        form_.setEnabled(true);
    }
}

QString FormPane::role() const { return toQt(form_.name() + (gate_ ? " (disabled)" : "")); }

/// Drops the input that arrived while the form was disabled. The window is painted only afterwards, so that all input
/// to the painted page counts.
void FormPane::openGate() {
    const QPointer<QWidget> unpainted = window();
    unpainted->setUpdatesEnabled(false);
    {
        const NestedEvents nested;
        QCoreApplication::processEvents();
    }
    gate_.reset();
    if (unpainted) {
        unpainted->setUpdatesEnabled(true);
        // The toolkit has just skipped an update request but believes that it is still pending.
        QCoreApplication::postEvent(unpainted, new QEvent(QEvent::UpdateRequest), Qt::LowEventPriority);
    }
    showFocus();
}

/// Selects the text, so that the operator replaces it. The toolkit does so only in the active window, which is still
/// that of a notice when the notice has just been closed. The first focus selects nothing: a key would lose the text of
/// a page that has just been opened.
void FormPane::giveFocus(Control& control) {
    ControlView* view = findView(control);
    if (view == nullptr || view->widget().hasFocus()) {
        return;
    }
    const bool first = focusWidget() == nullptr;
    view->widget().setFocus(first ? Qt::OtherFocusReason : Qt::TabFocusReason);
    if (auto* line = qobject_cast<QLineEdit*>(&view->widget()); line != nullptr && !first) {
        line->selectAll();
    }
}

/// Does not scroll to a field that was clicked, because the page must not move under the mouse.
void FormPane::focusArrived(ControlView& view, Qt::FocusReason reason) {
    TopWindow* top = topWindow();
    if (const PlacedView* placed = findPlaced(&view.widget()); top != nullptr && reason != Qt::MouseFocusReason) {
        top->reveal(placedArea(*placed));
    }
    focusFrame_->around(view.widget());
    form_.focusArrived(view.control());
}

QRect FormPane::placedArea(const PlacedView& placed) const {
    const Box& box = placed.view->control().box();
    const int unit = readWords(placed.view->control()).unit.isEmpty() ? 0 : kUnitGap + kUnitWidth;
    return scale_.box({box.x - placed.captionWidth, box.y, placed.captionWidth + box.width + unit, box.height});
}

const FormPane::PlacedView* FormPane::findPlaced(const QObject* widget) const {
    const auto found = std::find_if(placed_.begin(), placed_.end(),
                                    [&](const PlacedView& placed) { return &placed.view->widget() == widget; });
    return found == placed_.end() ? nullptr : &*found;
}

ControlView* FormPane::findView(const QObject* widget) const {
    const PlacedView* placed = findPlaced(widget);
    return placed == nullptr ? nullptr : placed->view.get();
}

ControlView* FormPane::findView(const Control& control) const {
    const auto found = std::find_if(placed_.begin(), placed_.end(),
                                    [&](const PlacedView& placed) { return &placed.view->control() == &control; });
    return found == placed_.end() ? nullptr : found->view.get();
}

void FormPane::showFocus() {
    if (Control* active = form_.activeControl()) {
        giveFocus(*active);
    }
}

void FormPane::centre() {
    centred_ = true;
    if (TopWindow* top = topWindow()) {
        top->centre();
    }
}

void FormPane::commit() {
    if (ControlView* view = findView(focusWidget())) {
        view->commit();
    }
}

bool FormPane::eventFilter(QObject* watched, QEvent* event) {
    ControlView* view = left_ ? nullptr : findView(watched);
    if (view == nullptr) {
        return false;
    }
    switch (event->type()) {
        case QEvent::FocusAboutToChange:
            view->commit();
            return false;
        case QEvent::FocusIn:
            focusArrived(*view, static_cast<QFocusEvent*>(event)->reason());
            return false;
        case QEvent::FocusOut:
            focusFrame_->hide();
            return false;
        case QEvent::Show:
        case QEvent::Hide:
            update();
            return false;
        case QEvent::KeyPress:
            return keyPressed(*view, *static_cast<QKeyEvent*>(event));
        default:
            return false;
    }
}

/// Enter and Space press a button. In all other controls Enter is passed to the form, never to the widget.
bool FormPane::keyPressed(ControlView& view, const QKeyEvent& event) {
    const int code = toKeyCode(event.key());
    if (code == 0) {
        return false;
    }
    const bool enter = code == kKeyEnter;
    if (view.control().kind() == ControlKind::Button && (enter || code == kKeySpace)) {
        return event.isAutoRepeat() || view.press();
    }
    if (enter) {
        view.commit();
    }
    const bool used = form_.keyDown(code);
    return enter || used || left_;
}

void FormPane::paintEvent(QPaintEvent*) {
    if (left_) {
        return;
    }
    QPainter painter(this);
    paintCanvas(painter, form_.canvas(), scale_, rect());
    paintCaptions(painter);
}

void FormPane::paintCaptions(QPainter& painter) const {
    painter.setFont(scale_.font(kCaptionFont));
    painter.setPen(toQt(kPageText));
    painter.translate(0, -textLift(painter.font()));
    for (const PlacedView& placed : placed_) {
        if (!placed.view->control().visible()) {
            continue;
        }
        const ControlWords words = readWords(placed.view->control());
        const Box& box = placed.view->control().box();
        const QRect front = scale_.box({box.x - placed.captionWidth, box.y, placed.captionWidth, box.height});
        painter.drawText(front, Qt::AlignRight | Qt::AlignVCenter, words.caption);
        const QRect after = scale_.box({box.right() + kUnitGap, box.y, kUnitWidth, box.height});
        painter.drawText(after, Qt::AlignLeft | Qt::AlignVCenter, words.unit);
    }
}

void FormPane::pressCloseBox() {
    if (gate_) {
        form_.onCloseRefused.raise();
        return;
    }
    commit();
    forms_.unload(form_, UnloadMode::CloseBox);
}

void FormPane::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (form_.sizing() == Sizing::Free && !left_) {
        form_.resize({qRound(width() / scale_.factor()), qRound(height() / scale_.factor())});
        placeAll();
    }
}

void FormPane::windowLeft() {
    commit();
    form_.focusLeft();
}

}  // namespace orv
