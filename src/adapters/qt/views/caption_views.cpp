#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>

#include "adapters/qt/views/qt_text.h"
#include "adapters/qt/views/views.h"

namespace orv {
namespace {

constexpr Colour kActionButton{0xe8f4ff};
constexpr Colour kValueEdge{0xc4b8b8};
constexpr int kButtonFont = 9;

/// A flat box in the colour of the page, so that it does not look like a field.
class ValueLabel : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        painter.fillRect(rect(), toQt(kPageBack));
        painter.setPen(toQt(kValueEdge));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        painter.end();
        QLabel::paintEvent(event);
    }
};

class LabelView : public ControlView {
public:
    LabelView(Label& control, QLabel* label, const PageScale& scale)
        : ControlView(control, label), caption_(control), label_(*label), scale_(scale) {
        label_.setTextFormat(Qt::PlainText);
        label_.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        const LabelLook look = control.labelDesign().look;
        if (look == LabelLook::Panel) {
            label_.setMargin(scale.length(2));
        }
        QPalette palette = label_.palette();
        palette.setColor(QPalette::WindowText, toQt(look == LabelLook::Title ? kHeading : kPageText));
        label_.setPalette(palette);
    }

private:
    void show() override {
        label_.setFont(scale_.font(caption_.fontSize(), caption_.labelDesign().look == LabelLook::Title));
        label_.setContentsMargins(0, 0, 0, 2 * textLift(label_.font()));
        const QString text = toQt(caption_.caption());
        const QString spoken = readWords(caption_).spoken;
        label_.setText(text);
        if (caption_.labelDesign().look == LabelLook::Panel) {
            tipIfCut(text, label_.width());
        }
        label_.setAccessibleName(spoken.isEmpty() ? text : spoken + QStringLiteral("：") + text);
    }

    Label& caption_;
    QLabel& label_;
    PageScale scale_;
};

class ButtonView : public ControlView {
public:
    ButtonView(Button& control, QPushButton* button, const PageScale& scale)
        : ControlView(control, button), button_(control), push_(*button), scale_(scale) {
        push_.setAutoDefault(false);
        connect(&push_, &QPushButton::clicked, this, [this] { press(); });
        for (const std::string& keys : control.shortcuts()) {
            const auto* shortcut = new QShortcut(QKeySequence(toQt(keys)), &push_);
            connect(shortcut, &QShortcut::activated, this, [this] { press(); });
        }
        push_.setToolTip(keysInWords());
    }

    /// Gives the button the focus, like a click of the mouse, so that the field that loses it is validated first. After
    /// a shortcut the field gets the focus back. The handler may delete the view.
    bool press() override {
        if (button_.usable() && button_.owner().ownerEnabled()) {
            const QPointer<QWidget> left = push_.window()->focusWidget();
            push_.setFocus(Qt::ShortcutFocusReason);
            const QPointer<ButtonView> self = this;
            pressing_ = true;
            button_.press();
            if (self) {
                endPress(left);
            }
        }
        return true;
    }

private:
    void show() override {
        keepFocus();
        push_.setText(words());
        push_.setFont(scale_.font(kButtonFont, button_.buttonDesign().look != ButtonLook::Plain));
        if (button_.buttonDesign().look == ButtonLook::Plain) {
            return;
        }
        const bool page = button_.buttonDesign().look == ButtonLook::Page;
        const bool marked = button_.marked();
        QPalette palette = push_.palette();
        palette.setColor(QPalette::Button, toQt(marked ? kBar : page ? kPageBack : kActionButton));
        palette.setColor(QPalette::ButtonText, toQt(marked ? kHeading : kPageText));
        push_.setPalette(palette);
    }

    QStringList description() const override {
        QStringList sentences{push_.toolTip()};
        if (button_.marked()) {
            sentences.prepend(QStringLiteral("表示中のページです。"));
        }
        return sentences;
    }

    void endPress(QWidget* left) {
        pressing_ = false;
        if (released()) {
            return;
        }
        if (focusIsParked()) {
            button_.owner().focusNext();
        } else if (left != nullptr && left->isEnabled() && push_.window()->focusWidget() == &push_) {
            left->setFocus(Qt::OtherFocusReason);
        }
    }

    /// Returns the focus to a button that is disabled during its own click and then enabled again. Meanwhile the page
    /// has the focus. Otherwise the toolkit would give it to the next field, which the next key would change.
    void keepFocus() {
        if (pressing_ && !button_.enabled() && push_.hasFocus()) {
            push_.parentWidget()->setFocus();
        } else if (pressing_ && button_.enabled() && focusIsParked()) {
            push_.setEnabled(true);
            push_.setFocus();
        }
    }

    bool focusIsParked() const { return push_.window()->focusWidget() == push_.parentWidget(); }

    /// Returns the shortcuts as text, for example "Alt+2、Ctrl+PgDown".
    QString keysInWords() const {
        QStringList keys;
        for (const std::string& shortcut : button_.shortcuts()) {
            keys.append(QKeySequence(toQt(shortcut)).toString(QKeySequence::NativeText));
        }
        return keys.join(QStringLiteral("、"));
    }

    QString words() const {
        const char32_t key = button_.buttonDesign().accessKey;
        const QString text = toQt(button_.caption());
        return key == 0 ? text : text + QStringLiteral("(&") + QChar(static_cast<char16_t>(key)) + QStringLiteral(")");
    }

    Button& button_;
    QPushButton& push_;
    PageScale scale_;
    bool pressing_ = false;
};

}  // namespace

std::unique_ptr<ControlView> makeViewFor(Label& control, QWidget* page, const PageScale& scale) {
    const bool isPanel = control.labelDesign().look == LabelLook::Panel;
    return std::make_unique<LabelView>(control, isPanel ? new ValueLabel(page) : new QLabel(page), scale);
}

std::unique_ptr<ControlView> makeViewFor(Button& control, QWidget* page, const PageScale& scale) {
    return std::make_unique<ButtonView>(control, new QPushButton(page), scale);
}

}  // namespace orv
