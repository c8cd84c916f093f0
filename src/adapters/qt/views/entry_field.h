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
    /// Takes what is being composed in as it stands, also from an input method that does not answer at once.
    void finishComposition();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void enter(const QString& offered);
    /// What stays of the text when the selection, and a part before or behind the cursor, is replaced.
    QString textWithout(int replacedFrom, int replacedLength) const;

    Admission admission_;
    QString preedit_;
    bool deaf_ = false;
};

}  // namespace orv
