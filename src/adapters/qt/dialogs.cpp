#include "adapters/qt/dialogs.h"

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QFontInfo>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QUrl>
#include <algorithm>
#include <utility>

#include "adapters/qt/desktop.h"
#include "adapters/qt/nested_events.h"
#include "adapters/qt/text_lines.h"
#include "adapters/qt/views/qt_text.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

QMessageBox::Icon toIcon(Notice::Kind kind) {
    switch (kind) {
        case Notice::Kind::Warning:
            return QMessageBox::Warning;
        case Notice::Kind::Critical:
            return QMessageBox::Critical;
        case Notice::Kind::Question:
            return QMessageBox::Question;
        case Notice::Kind::Information:
            break;
    }
    return QMessageBox::Information;
}

constexpr int kLongestLine = 40;  // full-width characters
// The toolkit's limits for the width of a message box. On a small screen it is the whole width. On others it is the
// width less the part kept free, at most that of the widest box.
constexpr int kSmallScreen = 1024;
constexpr int kKeptFree = 500;
constexpr int kWidestBox = 1000;
constexpr int kAroundText = 140;  // the icon and the margins

QString withAccessKey(const QString& word) {
    const bool yes = word == QStringLiteral("はい");
    const bool no = word == QStringLiteral("いいえ");
    return yes ? word + QStringLiteral("(&Y)") : no ? word + QStringLiteral("(&N)") : word;
}

/// Breaks the text into lines itself. Ctrl+C copies the text without these line breaks, to be sent to support.
class NoticeBox : public QMessageBox {
public:
    NoticeBox(const Notice& notice, QWidget* owner, QSize space)
        : QMessageBox(toIcon(notice.kind), toQt(notice.title), {}, NoButton, owner), text_(toQt(notice.text)) {
        setObjectName(QStringLiteral("notice"));
        // The text comes from outside and must not be interpreted as markup.
        setTextFormat(Qt::PlainText);
        setTextInteractionFlags(Qt::TextSelectableByMouse);
        setText(brokenIntoLines(text_, widestLine(space), [this](const QString& line) { return measureWidth(line); }));
        keepLines();
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->matches(QKeySequence::Copy)) {
            QGuiApplication::clipboard()->setText(text_);
        } else {
            QMessageBox::keyPressEvent(event);
        }
    }

private:
    int measureWidth(const QString& line) const { return fontMetrics().horizontalAdvance(line); }
    /// The toolkit cuts text that is wider than its own limit, which depends on the screen.
    int widestLine(QSize space) const {
        const int limit =
            space.width() > kSmallScreen ? std::min(space.width() - kKeptFree, kWidestBox) : space.width();
        return std::min(measureWidth(QString(kLongestLine, u'あ')), limit - kAroundText);
    }
    /// Stops the toolkit from wrapping the lines again at a width that does not grow with the font.
    void keepLines() {
        if (auto* label = findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
            label->setWordWrap(false);
            label->setMinimumWidth(label->sizeHint().width());
        }
    }

    QString text_;
};

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

QString startFolder(const FileQuestion& question) {
    const QString folder = toQt(question.folder);
    return !folder.isEmpty() && QDir(folder).exists() ? folder : QDir::homePath();
}

/// Converts "JPEGファイル|*.jpg" to the toolkit's form "JPEGファイル (*.jpg)".
QString toFilter(const FileQuestion& question) {
    const QStringList parts = toQt(question.filter).split(QLatin1Char('|'));
    return parts.front() + QStringLiteral(" (") + parts.back() + QStringLiteral(")");
}

/// Names the lists for assistive technology, because the toolkit does not.
void nameLists(const QFileDialog& dialog) {
    const auto setName = [&dialog](const char* list, const QString& name) {
        if (auto* named = dialog.findChild<QWidget*>(QLatin1String(list))) {
            named->setAccessibleName(name);
        }
    };
    for (const auto& [list, label] : {std::pair("lookInCombo", "lookInLabel"), {"fileTypeCombo", "fileTypeLabel"}}) {
        if (const auto* named = dialog.findChild<QLabel*>(QLatin1String(label))) {
            setName(list, named->text());
        }
    }
    setName("sidebar", QStringLiteral("場所"));
    setName("treeView", QStringLiteral("ファイル"));
    setName("listView", QStringLiteral("ファイル"));
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

/// Shows no list of names while one is typed. The list would open at the first letter, and the next letters would be
/// lost while the input method still answers to them.
void suggestNoNames(const QFileDialog& dialog) {
    if (auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
        name->setCompleter(nullptr);
    }
}

/// Enlarges the dialog by the same factor as its text, up to the size of `space`.
void arrange(QFileDialog& dialog, QSize space) {
    const QSizeF size = kSize * QFontInfo(dialog.font()).pixelSize() / kDesignFont;
    dialog.resize(size.toSize().boundedTo(space));
    if (auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"))) {
        arrangeColumns(*list);
    }
}

}  // namespace

std::size_t runNotice(const Notice& notice, QWidget* owner, QSize space) {
    if (qApp == nullptr || QGuiApplication::primaryScreen() == nullptr) {
        throw RunTimeError(Failure::Internal, "メッセージを表示できません。");
    }
    NoticeBox box(notice, owner, space);
    std::vector<QPushButton*> buttons;
    for (const std::string& word : notice.buttons) {
        QPushButton* button = box.addButton(withAccessKey(toQt(word)), QMessageBox::AcceptRole);
        button->setObjectName(toQt("notice_" + std::to_string(buttons.size())));
        buttons.push_back(button);
    }
    box.setDefaultButton(buttons.at(notice.defaultButton));
    box.setEscapeButton(buttons.at(notice.escapeButton));
    const NestedEvents nested;
    box.exec();
    if (owner != nullptr) {
        owner->activateWindow();
    }
    const auto pressed = std::find(buttons.begin(), buttons.end(), box.clickedButton());
    return pressed == buttons.end() ? notice.escapeButton : static_cast<std::size_t>(pressed - buttons.begin());
}

std::optional<std::string> runOpenDialog(const FileQuestion& question, QWidget* owner, QSize space) {
    QFileDialog dialog(owner, toQt(question.title));
    dialog.setObjectName(QStringLiteral("open_file"));
    dialog.setOptions(openDialogOptions());
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setViewMode(QFileDialog::Detail);
    const QString start = startFolder(question);
    dialog.setDirectory(start);
    dialog.setNameFilter(toFilter(question));
    dialog.setSidebarUrls({QUrl::fromLocalFile(start), QUrl::fromLocalFile(QDir::homePath())});
    arrange(dialog, space);
    nameLists(dialog);
    suggestNoNames(dialog);
    const NestedEvents nested;
    const bool accepted = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
    if (owner != nullptr) {
        owner->activateWindow();
    }
    if (!accepted) {
        return std::nullopt;
    }
    return QDir::toNativeSeparators(dialog.selectedFiles().front()).toStdString();
}

}  // namespace orv
