#include "search_rows.h"

#include <QFile>
#include <algorithm>

namespace search {

QString searchKey(const QString& text) { return text.normalized(QString::NormalizationForm_KC).toLower().remove('-'); }

std::optional<QList<Row>> readRows(const QString& file, qsizetype fieldCount, const QList<int>& shown) {
    QFile data(file);
    if (!data.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return std::nullopt;
    }
    QList<Row> rows;
    for (const QString& line : QString::fromUtf8(data.readAll()).split('\n', Qt::SkipEmptyParts)) {
        if (line.startsWith('#')) {
            continue;
        }
        Row row{.fields = line.split(','), .key = {}};
        if (row.fields.size() != fieldCount) {
            return std::nullopt;
        }
        for (const int field : shown) {
            row.key += searchKey(row.fields[field]) + ' ';
        }
        rows.append(row);
    }
    return rows;
}

bool matches(const Row& row, const QString& typed) {
    const QStringList words = searchKey(typed).split(' ', Qt::SkipEmptyParts);
    return std::all_of(words.begin(), words.end(), [&row](const QString& word) { return row.key.contains(word); });
}

}  // namespace search
