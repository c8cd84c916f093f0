#include "adapters/qt/views/entry_field.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <algorithm>
#include <limits>
#include <utility>

#include "platform/scope.h"

namespace orv {
namespace {

bool typesText(const QKeyEvent& event) {
    const Qt::KeyboardModifiers command = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (event.text().isEmpty() || (event.modifiers() & command)) {
        return false;
    }
    const QChar first = event.text().front();
    return first.isPrint() || first.isHighSurrogate();
}

}  // namespace

EntryField::EntryField(QWidget* page) : QLineEdit(page) {
    // The toolkit's default limit would cut text that the program sets.
    setMaxLength(std::numeric_limits<int>::max());
}

void EntryField::whenSettled(std::function<void()> settled) {
    settled_ = std::move(settled);
    connect(this, &QLineEdit::textChanged, this, [this] { settle(); });
}

void EntryField::settle() {
    if (!composing() && settled_ && !signalsBlocked()) {
        settled_();
    }
}

/// The attribute alone is not enough, because the line edit answers the query itself.
void EntryField::allowInputMethod(bool allowed) {
    allowed_ = allowed;
    setAttribute(Qt::WA_InputMethodEnabled, allowed);
}

QVariant EntryField::inputMethodQuery(Qt::InputMethodQuery query) const {
    return query == Qt::ImEnabled && !allowed_ ? QVariant(false) : QLineEdit::inputMethodQuery(query);
}

void EntryField::show(const QString& text) {
    endComposition({});
    setText(text);
}

void EntryField::enter(const QString& offered) {
    finishComposition();
    const QString admitted = admission_(textWithout(0, 0), offered);
    if (!admitted.isEmpty()) {
        insert(admitted);
    }
}

QString EntryField::textWithout(int replacedFrom, int replacedLength) const {
    QString kept = text();
    int cursor = cursorPosition();
    if (hasSelectedText()) {
        cursor = selectionStart();
        kept.remove(cursor, selectedText().size());
    }
    return kept.remove(std::max(0, cursor + replacedFrom), replacedLength);
}

void EntryField::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste)) {
        enter(QGuiApplication::clipboard()->text());
    } else if (event->keyCombination() == (Qt::CTRL | Qt::Key_Y)) {
        redo();
    } else if (event->keyCombination() == (Qt::SHIFT | Qt::Key_F10)) {
        openMenu(mapToGlobal(inputMethodQuery(Qt::ImCursorRectangle).toRectF().toRect().bottomLeft()));
    } else if (typesText(*event)) {
        enter(event->text());
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

/// Preedit text passes unchanged; only committed text is checked. If the commit of a composition is refused, the text
/// that was selected when it began is restored.
void EntryField::inputMethodEvent(QInputMethodEvent* event) {
    if (deaf_ || isLateCommit(*event)) {
        return;
    }
    const int from = event->replacementStart();
    const int length = event->replacementLength();
    const QString taken = admission_(textWithout(from, length), event->commitString());
    QInputMethodEvent admitted(event->preeditString(), event->attributes());
    admitted.setCommitString(taken, from, length);
    const bool composed = composing();
    replacing_ = taken.isEmpty() && (composed ? replacing_ : hasSelectedText());
    if (composed) {
        noteEnd(*event);
    }
    preedit_ = event->preeditString();
    QLineEdit::inputMethodEvent(&admitted);
    if (composing()) {
        return;
    }
    if (composed && replacing_ && !event->commitString().isEmpty()) {
        undo();
    }
    settle();
}

void EntryField::noteEnd(const QInputMethodEvent& event) {
    if (event.commitString() == preedit_) {
        ended_ = preedit_;
    } else if (event.preeditString().isEmpty() && event.commitString().isEmpty()) {
        forgetLater();
    }
}

/// The plug-in for ibus still holds a cancelled composition and would commit it when the field loses the focus.
void EntryField::forgetLater() {
    const auto forget = [this] {
        if (hasFocus() && !composing()) {
            resetInputMethod();
        }
    };
    QMetaObject::invokeMethod(this, forget, Qt::QueuedConnection);
}

void EntryField::resetInputMethod() {
    const FlagGuard deaf(deaf_);
    QGuiApplication::inputMethod()->reset();
}

void EntryField::finishComposition() { endComposition(preedit_); }

/// Resets the input method and replaces the preedit text with `commit`. Some input methods commit when they are reset
/// and would enter the text twice. An immediate commit is ignored, a late one is recognised by `isLateCommit`.
void EntryField::endComposition(const QString& commit) {
    if (!composing()) {
        return;
    }
    resetInputMethod();
    QInputMethodEvent last;
    last.setCommitString(commit);
    const QString composed = preedit_;
    inputMethodEvent(&last);
    ended_ = composed;
}

/// True for the second commit of a composition. It follows a reset and reaches the field that has the focus by then. A
/// commit that the operator makes always follows preedit text.
bool EntryField::isLateCommit(const QInputMethodEvent& event) {
    if (event.preeditString().isEmpty() && event.commitString().isEmpty()) {
        return false;
    }
    const QString ended = std::exchange(ended_, {});
    return event.preeditString().isEmpty() && event.commitString() == ended;
}

void EntryField::mousePressEvent(QMouseEvent* event) {
    finishComposition();
    QLineEdit::mousePressEvent(event);
}

void EntryField::mouseReleaseEvent(QMouseEvent* event) {
    const QClipboard* clipboard = QGuiApplication::clipboard();
    if (event->button() == Qt::MiddleButton && clipboard->supportsSelection()) {
        setCursorPosition(cursorPositionAt(event->position().toPoint()));
        enter(clipboard->text(QClipboard::Selection));
    } else {
        QLineEdit::mouseReleaseEvent(event);
    }
}

/// The source keeps its text: a program that proposes to move it would delete it even if it is refused.
void EntryField::dragMoveEvent(QDragMoveEvent* event) {
    QLineEdit::dragMoveEvent(event);
    event->setDropAction(Qt::CopyAction);
}

void EntryField::dropEvent(QDropEvent* event) {
    QDragLeaveEvent left;
    dragLeaveEvent(&left);
    setFocus(Qt::OtherFocusReason);
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    enter(event->mimeData()->text());
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void EntryField::contextMenuEvent(QContextMenuEvent* event) { openMenu(event->globalPos()); }

void EntryField::openMenu(const QPoint& at) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString& word, bool usable, auto action) {
        menu->addAction(word, this, action)->setEnabled(usable);
    };
    const bool readable = hasSelectedText() && echoMode() == QLineEdit::Normal;
    add(QStringLiteral("元に戻す(&U)\tCtrl+Z"), isUndoAvailable(), [this] { undo(); });
    add(QStringLiteral("やり直し(&R)\tCtrl+Y"), isRedoAvailable(), [this] { redo(); });
    menu->addSeparator();
    add(QStringLiteral("切り取り(&T)\tCtrl+X"), readable, [this] { cut(); });
    add(QStringLiteral("コピー(&C)\tCtrl+C"), readable, [this] { copy(); });
    add(QStringLiteral("貼り付け(&P)\tCtrl+V"), !QGuiApplication::clipboard()->text().isEmpty(),
        [this] { enter(QGuiApplication::clipboard()->text()); });
    add(QStringLiteral("削除(&D)\tDel"), hasSelectedText(), [this] { del(); });
    menu->addSeparator();
    add(QStringLiteral("すべて選択(&A)\tCtrl+A"), !text().isEmpty(), [this] { selectAll(); });
    menu->popup(at);
}

}  // namespace orv
