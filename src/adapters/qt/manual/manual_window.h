#pragma once

#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QWidget>

#include "adapters/qt/manual/manual_book.h"
#include "adapters/qt/manual/manual_browser.h"
#include "adapters/qt/views/accessibility.h"

namespace orv {

/// The manual's window: a page, buttons for back and forward, and a search over all pages. It is not modal, so the
/// operator can go on working on the page. It can also be used while a modal dialog is open.
class ManualWindow : public QWidget, public AccessibleRole {
public:
    /// `version` is shown below the page.
    ManualWindow(ManualBook book, ManualBrowser::PictureFile pictureFile, const QString& version);

    /// Opens the section with that name in front of all other windows. False if there is none.
    bool open(const QString& name);
    QAccessible::Role accessibleRole() const override { return QAccessible::Window; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void layOut(const QString& version);
    void tieKeys();
    void search(const QString& words);
    /// Opens the hit `step` rows further down and wraps around at both ends of the list.
    void goToHit(int step);
    void showHit(int row);
    void comeToFront();

    ManualBook book_;
    ManualBrowser* browser_;
    QLineEdit* words_;
    QListWidget* hits_;
    QList<ManualBook::Section> found_;
    /// The window that gets the keyboard focus back.
    QPointer<QWidget> caller_;
};

}  // namespace orv
