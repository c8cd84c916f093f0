#pragma once

#include <QLineEdit>
#include <functional>

namespace orv {

/// A line in which only what its owner admits can be entered, whichever way it comes: by key, by pasting, by dropping
/// or from an input method. What is refused never stands in it, so that undoing can't bring it back.
class EntryField : public QLineEdit {
public:
    /// What is taken of `offered` when `kept` stands in the field already.
    using Admission = std::function<QString(const QString& kept, const QString& offered)>;

    explicit EntryField(QWidget* page);

    void admitBy(Admission admission) { admission_ = std::move(admission); }
    /// `settled` is called when the text has changed, but never while a composition is open.
    void whenSettled(std::function<void()> settled);
    /// Tells input methods whether they can compose in the field.
    void allowInputMethod(bool allowed);
    /// Shows a text that the operator has not entered. An open composition is dropped.
    void show(const QString& text);
    /// Takes what is being composed as it stands, without waiting for the input method.
    void finishComposition();

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void enter(const QString& offered);
    void openMenu(const QPoint& at);
    /// What stays of the text when the selection, and a part before or behind the cursor, is replaced.
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
    bool deaf_ = false;  // while the input method is reset
    bool allowed_ = true;
    bool replacing_ = false;  // the composition has removed the selected text
    /// The composition that was taken last, in whichever field.
    static inline QString ended_;
};

}  // namespace orv
