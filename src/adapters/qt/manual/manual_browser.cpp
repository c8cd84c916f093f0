#include "adapters/qt/manual/manual_browser.h"

#include <QImage>
#include <QStyle>
#include <QTextBlock>
#include <QTextCursor>
#include <QtMath>
#include <algorithm>
#include <utility>

#include "adapters/qt/views/page_scale.h"

namespace orv {
namespace {

constexpr int kMargin = 12;
const QColor kHere(0xe4, 0xe4, 0xff);
const QColor kMark(0xff, 0xee, 0x88);

using Marks = QList<QTextEdit::ExtraSelection>;

QTextEdit::ExtraSelection makeMark(const QTextCursor& at, bool isWholeLine) {
    QTextEdit::ExtraSelection mark;
    mark.cursor = at;
    mark.format.setBackground(isWholeLine ? kHere : kMark);
    mark.format.setProperty(QTextFormat::FullWidthSelection, isWholeLine);
    return mark;
}

}  // namespace

ManualBrowser::ManualBrowser(const ManualBook& book, PictureFile pictureFile, QWidget* parent)
    : QTextBrowser(parent), book_(book), pictureFile_(std::move(pictureFile)) {
    setOpenExternalLinks(false);
    connect(this, &QTextBrowser::sourceChanged, this, [this](const QUrl& place) { markHeading(place.fragment()); });
    document()->setDocumentMargin(PageScale().length(kMargin));
}

/// A link names a page, and a page is always HTML.
void ManualBrowser::doSetSource(const QUrl& place, QTextDocument::ResourceType) {
    QTextBrowser::doSetSource(place, QTextDocument::HtmlResource);
}

/// A heading near the end of its page cannot be scrolled to the top, so its position alone does not identify it.
void ManualBrowser::markHeading(const QString& anchor) {
    const QTextCursor heading = findHeading(anchor);
    setExtraSelections(heading.isNull() ? Marks() : Marks{makeMark(heading, true)});
}

QTextCursor ManualBrowser::findHeading(const QString& anchor) const {
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const QTextBlock::iterator first = block.begin();
        if (!first.atEnd() && first.fragment().charFormat().anchorNames().contains(anchor)) {
            return QTextCursor(block);
        }
    }
    return {};
}

QVariant ManualBrowser::loadResource(int type, const QUrl& name) {
    return type == QTextDocument::ImageResource ? picture(name.fileName()) : QVariant(book_.html(name));
}

/// Scales the picture like the text around it, but not wider than the page.
QVariant ManualBrowser::picture(const QString& name) const {
    const QImage image(pictureFile_(name));
    const PageScale scale;
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    const int space = width() - 2 * frameWidth() - bar - 2 * qCeil(document()->documentMargin());
    const int width = std::min(scale.length(image.width()), space);
    return image.isNull() || width <= 0 ? QVariant(image)
                                        : QVariant(image.scaledToWidth(width, Qt::SmoothTransformation));
}

QVariant ManualBrowser::inputMethodQuery(Qt::InputMethodQuery query) const {
    return query == Qt::ImEnabled ? QVariant(false) : QTextBrowser::inputMethodQuery(query);
}

/// An input method reports to a new focus that nothing is composed. The toolkit would scroll to the beginning of the
/// page.
void ManualBrowser::inputMethodEvent(QInputMethodEvent* event) { event->ignore(); }

void ManualBrowser::mark(const QString& words) {
    Marks marks;
    for (const QString& word : words.split(u' ', Qt::SkipEmptyParts)) {
        for (QTextCursor at = document()->find(word); !at.isNull(); at = document()->find(word, at)) {
            marks.push_back(makeMark(at, false));
        }
    }
    setExtraSelections(extraSelections() + marks);
}

}  // namespace orv
