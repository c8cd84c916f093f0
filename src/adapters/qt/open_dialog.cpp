#include "adapters/qt/open_dialog.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QTreeView>
#include <QUrl>

#include "adapters/qt/nested_events.h"
#include "adapters/qt/views/page_scale.h"
#include "adapters/qt/views/qt_text.h"

namespace orv {
namespace {

constexpr Point kSize{620, 400};
constexpr int kKindColumn = 2;
constexpr int kNameWidth = 260;

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
        list->header()->resizeSection(0, scale.length(kNameWidth));
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
