#pragma once

#include <QLineEdit>
#include <functional>

namespace orv {

/// A line edit that accepts only input that its owner admits: typed, pasted, dropped or from an input method. Refused
/// input never becomes part of the text, so undoing cannot restore it.
class EntryField : public QLineEdit {
public:
    /// Returns the part of `offered` that is accepted if the field already contains `kept`.
    using Admission = std::function<QString(const QString& kept, const QString& offered)>;

    explicit EntryField(QWidget* page);

    void admitBy(Admission admission) { admission_ = std::move(admission); }
    /// `settled` is called when the text has changed, but not during a composition.
    void whenSettled(std::function<void()> settled);
    /// Allows or forbids input methods to compose in the field.
    void allowInputMethod(bool allowed);
    /// Shows a text that the operator has not entered. Discards an open composition.
    void show(const QString& text);
    /// Commits an open composition in its present form, without waiting for the input method.
    void finishComposition();

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void enter(const QString& offered);
    void openMenu(const QPoint& at);
    /// Returns the text without the selection and without the part to be replaced, whose start is relative to the
    /// cursor.
    QString textWithout(int replacedFrom, int replacedLength) const;

    bool composing() const { return !preedit_.isEmpty(); }
    void endComposition(const QString& commit);
    void noteEnd(const QInputMethodEvent& event);
    void forgetLater();
    void resetInputMethod();
    void settle();
    static bool isLateCommit(const QInputMethodEvent& event);

    Admission admission_;
    std::function<void()> settled_;
    QString preedit_;
    bool deaf_ = false;  // true while the input method is reset
    bool allowed_ = true;
    bool replacing_ = false;  // true if the composition has removed the selected text
    /// The last composition that was committed, in any field.
    static inline QString ended_;
};

}  // namespace orv
