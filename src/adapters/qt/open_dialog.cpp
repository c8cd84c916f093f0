#include "adapters/qt/open_dialog.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QFontInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QUrl>
#include <utility>

#include "adapters/qt/nested_events.h"
#include "adapters/qt/views/qt_text.h"

namespace orv {
namespace {

constexpr QSizeF kSize(620, 400);
constexpr int kNameColumn = 0;
constexpr int kSizeColumn = 1;
constexpr int kKindColumn = 2;
constexpr int kDateColumn = 3;
// The widest contents of the columns, with their margins.
constexpr QStringView kWidestSize = u"9,999.9 MB    ";
constexpr QStringView kWidestDate = u"2026/12/31 23:59    ";
constexpr double kDesignFont = 12;

/// Shows sizes and dates in the form used in Japan, whatever the language of the machine.
class JapaneseCells : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const auto* files = qobject_cast<const QFileSystemModel*>(index.model());
        if (files == nullptr) {
            return;
        }
        if (index.column() == kDateColumn) {
            option->text = files->lastModified(index).toString(QStringLiteral("yyyy/MM/dd HH:mm"));
        } else if (index.column() == kSizeColumn && !files->isDir(index)) {
            option->text = QLocale().formattedDataSize(files->size(index), 1, QLocale::DataSizeTraditionalFormat);
        }
    }
};

QString startOf(const FileQuestion& question) {
    const QString folder = toQt(question.folder);
    return !folder.isEmpty() && QDir(folder).exists() ? folder : QDir::homePath();
}

/// Converts "JPEGファイル|*.jpg" to the toolkit's form "JPEGファイル (*.jpg)".
QString filterOf(const FileQuestion& question) {
    const QStringList parts = toQt(question.filter).split(QLatin1Char('|'));
    return parts.front() + QStringLiteral(" (") + parts.back() + QStringLiteral(")");
}

/// Names the two lists for assistive technology, because the toolkit does not connect them with their labels.
void nameLists(const QFileDialog& dialog) {
    for (const auto& [list, label] : {std::pair("lookInCombo", "lookInLabel"), {"fileTypeCombo", "fileTypeLabel"}}) {
        auto* named = dialog.findChild<QComboBox*>(QLatin1String(list));
        const auto* name = dialog.findChild<QLabel*>(QLatin1String(label));
        if (named != nullptr && name != nullptr) {
            named->setAccessibleName(name->text());
        }
    }
}

/// Hides the type of the files: its names are not all in Japanese, and the filter already shows the type.
void arrangeColumns(QTreeView& list) {
    QHeaderView& header = *list.header();
    header.setSectionHidden(kKindColumn, true);
    header.setStretchLastSection(false);
    header.setSectionResizeMode(kNameColumn, QHeaderView::Stretch);
    header.resizeSection(kSizeColumn, list.fontMetrics().horizontalAdvance(kWidestSize.toString()));
    header.resizeSection(kDateColumn, list.fontMetrics().horizontalAdvance(kWidestDate.toString()));
    header.setContextMenuPolicy(Qt::NoContextMenu);
    list.setItemDelegate(new JapaneseCells(&list));
}

/// Enlarges the dialog by the same factor as its text, up to the size of `room`.
void arrange(QFileDialog& dialog, QSize room) {
    const QSizeF size = kSize * QFontInfo(dialog.font()).pixelSize() / kDesignFont;
    dialog.resize(size.toSize().boundedTo(room));
    if (auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"))) {
        arrangeColumns(*list);
    }
}

}  // namespace

std::optional<std::string> runOpenDialog(const FileQuestion& question, QWidget* owner, QSize room) {
    QFileDialog dialog(owner, toQt(question.title));
    dialog.setObjectName(QStringLiteral("open_file"));
    dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::ReadOnly);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setViewMode(QFileDialog::Detail);
    const QString start = startOf(question);
    dialog.setDirectory(start);
    dialog.setNameFilter(filterOf(question));
    dialog.setSidebarUrls({QUrl::fromLocalFile(start), QUrl::fromLocalFile(QDir::homePath())});
    arrange(dialog, room);
    nameLists(dialog);
    const NestedEvents nested;
    const bool accepted = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
    if (owner != nullptr) {
        owner->activateWindow();
    }
    if (!accepted) {
        return std::nullopt;
    }
    return QFile::encodeName(dialog.selectedFiles().front()).toStdString();
}

}  // namespace orv
