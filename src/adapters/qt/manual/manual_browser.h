#pragma once

#include <QTextBrowser>
#include <functional>

#include "adapters/qt/manual/manual_book.h"

namespace orv {

/// Shows the pages of a book. Reads only the book and the pictures, whose files `pictureFile` finds by name.
class ManualBrowser : public QTextBrowser {
public:
    using PictureFile = std::function<QString(const QString& name)>;

    ManualBrowser(const ManualBook& book, PictureFile pictureFile, QWidget* parent);

    /// Marks each occurrence of the words on the page, in addition to the heading at which it was opened.
    void mark(const QString& words);

    /// Takes no input method, so that the keys scroll the page.
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

protected:
    void inputMethodEvent(QInputMethodEvent* event) override;
    QVariant loadResource(int type, const QUrl& name) override;
    void doSetSource(const QUrl& place, QTextDocument::ResourceType type) override;

private:
    QVariant picture(const QString& name) const;
    void markHeading(const QString& anchor);
    /// Returns a cursor at the heading with that anchor, or a null cursor if there is none.
    QTextCursor findHeading(const QString& anchor) const;

    const ManualBook& book_;
    PictureFile pictureFile_;
};

}  // namespace orv
