#pragma once

#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QWidget>

#include "adapters/qt/manual/manual_book.h"
#include "adapters/qt/manual/manual_browser.h"
#include "adapters/qt/views/accessibility.h"

namespace orv {

/// The window of the manual: the page, back and forward, and a search over all pages. It is not modal: the page that
/// the operator works on goes on taking input, and the window can also be used while a modal dialog is open.
class ManualWindow : public QWidget, public AccessibleRole {
public:
    ManualWindow(ManualBook book, ManualBrowser::PictureFile pictureFile);

    /// Opens the section that has the name, in front of the other windows. False if no section has it.
    bool open(const QString& name);
    QAccessible::Role accessibleRole() const override { return QAccessible::Window; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void layOut();
    void tieKeys();
    void search(const QString& words);
    /// Opens the hit that many rows further down, around the ends of the list.
    void goToHit(int step);
    void showHit(int row);
    void comeToFront();

    ManualBook book_;
    ManualBrowser* browser_;
    QLineEdit* words_;
    QListWidget* hits_;
    QList<ManualBook::Section> found_;
    /// The window that gets the keyboard back.
    QPointer<QWidget> caller_;
};

}  // namespace orv
