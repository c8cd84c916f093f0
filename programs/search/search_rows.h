#pragma once

#include <QList>
#include <QStringList>
#include <optional>

namespace search {

/// A row of a data file. `key` is the text that a search compares.
struct Row {
    QStringList fields;
    QString key;
};

/// Removes differences of width, of small and capital letters, and of hyphens.
QString searchKey(const QString& text);

/// Returns the rows of a UTF-8 file with fields separated by commas and comments after #. `shown` lists the searchable
/// fields. Returns nothing if the file cannot be read or a line does not have `fieldCount` fields.
std::optional<QList<Row>> readRows(const QString& file, qsizetype fieldCount, const QList<int>& shown);

/// True if the row contains each word of the text.
bool matches(const Row& row, const QString& typed);

}  // namespace search
