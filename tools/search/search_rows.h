#pragma once

#include <QList>
#include <QStringList>
#include <optional>

namespace search {

/// A row of a data file. `key` is what a typed text is looked for in.
struct Row {
    QStringList fields;
    QString key;
};

/// Full width, small and capital letters, and hyphens make no difference to a search.
QString searchKey(const QString& text);

/// The rows of a UTF-8 file: fields parted by commas; a line that begins with # says nothing. `shown` are the fields
/// that can be searched. Nothing when the file can't be read or a line has not `fieldCount` fields.
std::optional<QList<Row>> readRows(const QString& file, qsizetype fieldCount, const QList<int>& shown);

/// Whether each word of the text stands somewhere in the row.
bool matches(const Row& row, const QString& typed);

}  // namespace search
