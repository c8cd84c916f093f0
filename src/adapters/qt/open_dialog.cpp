#include "adapters/qt/open_dialog.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLocale>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QUrl>

#include "adapters/qt/nested_events.h"
#include "adapters/qt/views/page_scale.h"
#include "adapters/qt/views/qt_text.h"

namespace orv {
namespace {

constexpr Point kSize{620, 400};
constexpr int kSizeColumn = 1;
constexpr int kKindColumn = 2;
constexpr int kDateColumn = 3;
constexpr int kNameWidth = 240;
constexpr int kSizeWidth = 80;
constexpr int kDateWidth = 120;

/// Sizes and dates in the one form that every clerk reads, whatever the language of the machine.
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

/// "JPEGファイル|*.jpg" as the toolkit has it: "JPEGファイル (*.jpg)".
QString filterOf(const FileQuestion& question) {
    const QStringList parts = toQt(question.filter).split(QLatin1Char('|'));
    return parts.front() + QStringLiteral(" (") + parts.back() + QStringLiteral(")");
}

/// The names of the kinds are not all in Japanese, and the filter has told the kind.
void arrange(QFileDialog& dialog) {
    const PageScale scale;
    dialog.resize(scale.length(kSize.x), scale.length(kSize.y));
    if (auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"))) {
        list->header()->setSectionHidden(kKindColumn, true);
        list->header()->setStretchLastSection(true);
        list->header()->resizeSection(0, scale.length(kNameWidth));
        list->header()->resizeSection(kSizeColumn, scale.length(kSizeWidth));
        list->header()->resizeSection(kDateColumn, scale.length(kDateWidth));
        list->setItemDelegate(new JapaneseCells(list));
        list->header()->setContextMenuPolicy(Qt::NoContextMenu);
    }
}

}  // namespace

std::optional<std::string> runOpenDialog(const FileQuestion& question, QWidget* owner) {
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
    arrange(dialog);
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
