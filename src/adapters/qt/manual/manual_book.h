#pragma once

#include <QList>
#include <QString>
#include <QTextDocument>
#include <QUrl>
#include <vector>

#include "adapters/text/manual_pages.h"

namespace orv {

/// Provides the manual as HTML pages and searches it.
class ManualBook {
public:
    struct Section {
        QUrl place;
        QString title;
        QString page;
        /// Title and text, normalised for comparison.
        QString key;
    };

    explicit ManualBook(const std::vector<ManualPage>& pages);

    /// Returns the page as HTML; empty for a file that is not a page.
    QString html(const QUrl& place) const;
    /// Returns the place of the section with that name; empty if there is none.
    QUrl findPlace(const QString& name) const { return places_.value(name); }
    QUrl contents() const;
    /// Returns the title of the section at that place, or of the page.
    QString titleAt(const QUrl& place) const;
    /// Returns the sections that contain all the words, with those that have them in the title first.
    QList<Section> find(const QString& words) const;

private:
    void add(const ManualPage& page);
    void addSection(Section section, const ManualSection& source);

    QHash<QString, QString> html_;
    QHash<QString, QUrl> places_;
    QList<Section> sections_;
};

}  // namespace orv
