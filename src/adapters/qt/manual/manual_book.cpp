#include "adapters/qt/manual/manual_book.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextList>
#include <QTextTable>
#include <algorithm>

#include "adapters/qt/views/page_scale.h"
#include "adapters/qt/views/qt_text.h"

namespace orv {
namespace {

constexpr int kTextFont = 10;
constexpr int kCellPadding = 4;
constexpr int kLineHeight = 140;  // per cent
constexpr int kBlockSpace = 6;
constexpr int kHeadingSpace = 16;
constexpr QChar kPicture = QChar::ObjectReplacementCharacter;
const QColor kHeading(0x33, 0x33, 0x80);
const QColor kTableLine(0xb0, 0xb0, 0xc8);
const QColor kTableHead(0xdd, 0xdd, 0xff);

/// Removes the differences that a search ignores: full or half width, capital or small letters.
QString normalise(const QString& text) { return text.normalized(QString::NormalizationForm_KC).toLower(); }

QUrl placeIn(const QString& file, const QString& anchor) {
    QUrl place(QStringLiteral("manual:/") + file);
    place.setFragment(anchor);
    return place;
}

/// A section without a name is addressed by its number.
QString makeAnchor(const ManualSection& section, qsizetype number) {
    return section.names.empty() ? QStringLiteral("section%1").arg(number) : toQt(section.names.front());
}

void nameHeading(const QTextBlock& heading, const QString& anchor) {
    QTextCursor first(heading);
    first.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorNames({anchor});
    first.mergeCharFormat(format);
}

void drawTable(QTextTable& table) {
    QTextTableFormat format = table.format();
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(kTableLine);
    format.setBorderCollapse(true);
    format.setCellSpacing(0);
    format.setCellPadding(kCellPadding);
    table.setFormat(format);
    for (int column = 0; column < table.columns(); ++column) {
        QTextCharFormat head = table.cellAt(0, column).format();
        head.setBackground(kTableHead);
        table.cellAt(0, column).setFormat(head);
    }
}

/// Adds space between the lines. The line of a picture is high enough without it.
void styleBlock(const QTextBlock& block) {
    const PageScale scale;
    const bool isHeading = block.blockFormat().headingLevel() > 0;
    QTextBlockFormat format;
    if (!block.text().contains(kPicture)) {
        format.setLineHeight(kLineHeight, QTextBlockFormat::ProportionalHeight);
    }
    if (!QTextCursor(block).currentTable() && !block.textList()) {
        format.setTopMargin(scale.length(isHeading ? kHeadingSpace : kBlockSpace));
        format.setBottomMargin(scale.length(kBlockSpace));
    }
    QTextCursor whole(block);
    whole.mergeBlockFormat(format);
    if (isHeading) {
        whole.select(QTextCursor::BlockUnderCursor);
        QTextCharFormat colour;
        colour.setForeground(kHeading);
        whole.mergeCharFormat(colour);
    }
}

void style(QTextDocument& document) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        styleBlock(block);
    }
    for (QTextFrame* frame : document.rootFrame()->childFrames()) {
        if (auto* table = qobject_cast<QTextTable*>(frame)) {
            drawTable(*table);
        }
    }
}

}  // namespace

ManualBook::ManualBook(const std::vector<ManualPage>& pages) {
    for (const ManualPage& page : pages) {
        add(page);
    }
}

void ManualBook::add(const ManualPage& page) {
    QTextDocument document;
    document.setDefaultFont(PageScale().font(kTextFont));
    document.setMarkdown(toQt(page.markdown));
    style(document);
    const QString file = toQt(page.file);
    std::size_t next = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0 && next < page.sections.size()) {
            const ManualSection& source = page.sections[next++];
            const QString anchor = makeAnchor(source, sections_.size());
            nameHeading(block, anchor);
            addSection({placeIn(file, anchor), toQt(source.title), toQt(page.sections.front().title), {}}, source);
        }
        if (next > 0) {
            sections_.back().key += normalise(block.text()) + u'\n';
        }
    }
    html_[file] = document.toHtml();
}

void ManualBook::addSection(Section section, const ManualSection& source) {
    for (const std::string& name : source.names) {
        places_[toQt(name)] = section.place;
    }
    sections_.push_back(std::move(section));
}

QString ManualBook::html(const QUrl& place) const { return html_.value(place.fileName()); }

QUrl ManualBook::contents() const { return placeIn(QString::fromLatin1(kManualContents), {}); }

QString ManualBook::titleAt(const QUrl& place) const {
    const auto isAt = [&](const Section& section) {
        return place.hasFragment() ? section.place == place : section.place.fileName() == place.fileName();
    };
    const auto found = std::ranges::find_if(sections_, isAt);
    return found == sections_.end() ? QString() : found->title;
}

QList<ManualBook::Section> ManualBook::find(const QString& words) const {
    const QStringList keys = normalise(words).split(u' ', Qt::SkipEmptyParts);
    const auto holdsAll = [&](const QString& text) {
        return std::ranges::all_of(keys, [&](const QString& key) { return text.contains(key); });
    };
    QList<Section> hits;
    if (!keys.isEmpty()) {
        std::ranges::copy_if(sections_, std::back_inserter(hits), [&](const Section& s) { return holdsAll(s.key); });
    }
    std::stable_partition(hits.begin(), hits.end(), [&](const Section& s) { return holdsAll(normalise(s.title)); });
    return hits;
}

}  // namespace orv
