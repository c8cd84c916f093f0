#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QSignalBlocker>

#include "adapters/qt/views/qt_text.h"
#include "adapters/qt/views/views.h"

namespace orv {
namespace {

std::string toUtf8(const QString& text) { return text.toStdString(); }

class TextView : public ControlView {
public:
    TextView(TextInput& control, ComposedLine* line) : ControlView(control, line), text_(control), line_(*line) {
        const TextDesign& design = control.textDesign();
        line_.setFrame(true);
        if (design.password) {
            line_.setEchoMode(QLineEdit::Password);
        }
        line_.setAttribute(Qt::WA_InputMethodEnabled, design.ime != Ime::Disabled && !design.password);
        connect(&line_, &QLineEdit::textEdited, this, [this] { takeEntry(); });
        line_.onComposed([this] { takeEntry(); });
    }

    void commit() override {
        if (line_.composing()) {
            line_.finishComposition();
        }
        takeEntry();
    }

private:
    void show() override {
        paintWith(QPalette::Base, QPalette::Text);
        const QString text = toQt(text_.text());
        if (!line_.composing() && line_.text() != text) {
            line_.setText(text);
            line_.setCursorPosition(0);
        }
    }

    /// Hands over what has been entered since the control was last in step; nothing while a composition is open. What
    /// the control did not admit leaves the line again, and can't be brought back by undoing.
    void takeEntry() {
        const QString known = toQt(text_.text());
        const QString now = line_.text();
        if (line_.composing() || now == known) {
            return;
        }
        const EventScope scope;
        const qsizetype cursor = line_.cursorPosition();
        const QString after = now.mid(cursor);
        qsizetype start = 0;
        const qsizetype most = std::min(cursor, std::max<qsizetype>(0, known.size() - after.size()));
        while (start < most && now[start] == known[start]) {
            ++start;
        }
        const QString before = now.left(start);
        const QString entered = now.mid(start, cursor - start);
        const QString admitted = toQt(text_.typed(toUtf8(before), toUtf8(entered), toUtf8(after)));
        if (admitted != entered) {
            const QSignalBlocker blocker(line_);
            line_.setText(toQt(text_.text()));
            line_.setCursorPosition(static_cast<int>(before.size() + admitted.size()));
        }
    }

    TextInput& text_;
    ComposedLine& line_;
};

}  // namespace

void ComposedLine::inputMethodEvent(QInputMethodEvent* event) {
    const bool was = composing();
    preedit_ = event->preeditString();
    QLineEdit::inputMethodEvent(event);
    if (!composing() && (was || !event->commitString().isEmpty()) && composed_) {
        composed_();
    }
}

void ComposedLine::finishComposition() {
    QGuiApplication::inputMethod()->commit();
    if (!composing()) {
        return;
    }
    QInputMethodEvent taken;
    taken.setCommitString(preedit_);
    QCoreApplication::sendEvent(this, &taken);
    QGuiApplication::inputMethod()->reset();
}

std::unique_ptr<ControlView> makeTextView(TextInput& control, QWidget* page) {
    return std::make_unique<TextView>(control, new ComposedLine(page));
}

}  // namespace orv
