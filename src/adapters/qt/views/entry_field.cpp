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
    // The toolkit's own limit would cut what the system sets.
    setMaxLength(std::numeric_limits<int>::max());
}

void EntryField::enter(const QString& offered) {
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
    } else if (typesText(*event)) {
        enter(event->text());
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

/// What is still being composed passes as it is; only what is committed is looked at.
void EntryField::inputMethodEvent(QInputMethodEvent* event) {
    if (deaf_) {
        return;
    }
    const int from = event->replacementStart();
    const int length = event->replacementLength();
    QInputMethodEvent admitted(event->preeditString(), event->attributes());
    admitted.setCommitString(admission_(textWithout(from, length), event->commitString()), from, length);
    preedit_ = event->preeditString();
    QLineEdit::inputMethodEvent(&admitted);
}

void EntryField::finishComposition() {
    if (preedit_.isEmpty()) {
        return;
    }
    QGuiApplication::inputMethod()->commit();
    if (preedit_.isEmpty()) {
        return;
    }
    QInputMethodEvent taken;
    taken.setCommitString(preedit_);
    QCoreApplication::sendEvent(this, &taken);
    // An input method that commits when it is reset would enter the same text again.
    deaf_ = true;
    QGuiApplication::inputMethod()->reset();
    deaf_ = false;
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

void EntryField::dropEvent(QDropEvent* event) {
    QDragLeaveEvent left;
    dragLeaveEvent(&left);
    setFocus(Qt::OtherFocusReason);
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    enter(event->mimeData()->text());
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void EntryField::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString& word, bool usable, auto action) {
        menu->addAction(word, this, action)->setEnabled(usable);
    };
    const bool readable = hasSelectedText() && echoMode() == QLineEdit::Normal;
    add(QStringLiteral("元に戻す(&U)"), isUndoAvailable(), [this] { undo(); });
    add(QStringLiteral("やり直し(&R)"), isRedoAvailable(), [this] { redo(); });
    menu->addSeparator();
    add(QStringLiteral("切り取り(&T)"), readable, [this] { cut(); });
    add(QStringLiteral("コピー(&C)"), readable, [this] { copy(); });
    add(QStringLiteral("貼り付け(&P)"), !QGuiApplication::clipboard()->text().isEmpty(),
        [this] { enter(QGuiApplication::clipboard()->text()); });
    add(QStringLiteral("削除(&D)"), hasSelectedText(), [this] { del(); });
    menu->addSeparator();
    add(QStringLiteral("すべて選択(&A)"), !text().isEmpty(), [this] { selectAll(); });
    menu->popup(event->globalPos());
}

}  // namespace orv
