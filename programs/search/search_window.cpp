#include "search_window.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMessageBox>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "adapters/machine/own_process.h"
#include "adapters/qt/application.h"
#include "adapters/qt/views/screen_space.h"
#include "sibling_client.h"

namespace search {
namespace {

constexpr QSize kSize{560, 420};

bool movesInList(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

/// Returns the text after the program's name.
QString tail(int count, char* arguments[]) {
    QStringList words;
    for (const std::string& argument : orv::programArguments(count, arguments)) {
        words << QString::fromStdString(argument);
    }
    return words.join(' ');
}

int refuse(const SearchPlan& plan, const QString& why) {
    QMessageBox::critical(nullptr, plan.title, why);
    return EXIT_FAILURE;
}

}  // namespace

std::optional<CommandLine> readCommandLine(const QString& text, qsizetype valueCount, qsizetype handleCount) {
    const QStringList parts = text.split(',');
    const qsizetype values = parts.size() - handleCount - 1;
    if (values < valueCount || (values > valueCount && valueCount < 2)) {
        return std::nullopt;
    }
    CommandLine line{.values = parts.mid(0, values), .handles = parts.mid(values, handleCount), .button = parts.last()};
    if (values > valueCount) {
        line.values = parts.mid(0, valueCount - 2);
        line.values << parts.mid(valueCount - 2, values - valueCount + 1).join(',') << parts[values - 1];
    }
    const auto isHandle = [](const QString& part) { return part.toUInt() > 0; };
    const bool fine = std::all_of(line.handles.begin(), line.handles.end(), isHandle) && isHandle(line.button);
    return fine ? std::optional(line) : std::nullopt;
}

SearchWindow::SearchWindow(const SearchPlan& plan, QList<Row> rows, const QStringList& current)
    : plan_(plan),
      rows_(std::move(rows)),
      text_(new QLineEdit(this)),
      list_(new QTableWidget(static_cast<int>(rows_.size()), static_cast<int>(plan.shown.size()), this)),
      state_(new QLabel(this)),
      choose_(new QPushButton(QStringLiteral("選択"), this)) {
    setWindowTitle(plan.title);
    const QScreen* screen = QGuiApplication::primaryScreen();
    resize(kSize.boundedTo(orv::measureScreen(screen, orv::Sizing::Free).inside()));
    fillList();
    layOut();
    text_->installEventFilter(this);
    connect(text_, &QLineEdit::textChanged, this, [this] { filter(); });
    connect(list_, &QTableWidget::cellDoubleClicked, this, [this] { choose(); });
    begin(current);
}

void SearchWindow::fillList() {
    for (int row = 0; row < list_->rowCount(); ++row) {
        for (int column = 0; column < list_->columnCount(); ++column) {
            list_->setItem(row, column, new QTableWidgetItem(rows_[row].fields[plan_.shown[column]]));
        }
    }
    list_->setAccessibleName(QStringLiteral("検索結果"));
    list_->setHorizontalHeaderLabels(plan_.headings);
    list_->horizontalHeader()->setStretchLastSection(true);
    list_->verticalHeader()->hide();
    list_->setSelectionBehavior(QAbstractItemView::SelectRows);
    list_->setSelectionMode(QAbstractItemView::SingleSelection);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setTabKeyNavigation(false);
    list_->resizeColumnsToContents();
}

void SearchWindow::layOut() {
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(choose_, QDialogButtonBox::AcceptRole);
    buttons->addButton(QStringLiteral("中止"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { choose(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    choose_->setDefault(true);
    auto* prompt = new QLabel(plan_.prompt, this);
    prompt->setBuddy(text_);
    auto* column = new QVBoxLayout(this);
    for (QWidget* widget : QList<QWidget*>{prompt, text_, list_, state_, buttons}) {
        column->addWidget(widget);
    }
}

/// Selects the current row, if the list has it, and the text that found it, so that typing replaces it.
void SearchWindow::begin(const QStringList& current) {
    filter();
    for (const QString& value : current.mid(0, current.size() - 1)) {
        if (text_->text().isEmpty()) {
            text_->setText(value);
        }
    }
    if (!choose_->isEnabled()) {
        text_->clear();
    }
    text_->selectAll();
    for (int row = 0; row < list_->rowCount() && !current.isEmpty(); ++row) {
        if (rows_[row].fields[plan_.sent[current.size() - 1]] == current.last() && !list_->isRowHidden(row)) {
            list_->selectRow(row);
        }
    }
}

void SearchWindow::filter() {
    int found = 0;
    list_->setCurrentItem(nullptr);
    for (int row = 0; row < list_->rowCount(); ++row) {
        const bool fits = matches(rows_[row], text_->text());
        list_->setRowHidden(row, !fits);
        if (fits && ++found == 1) {
            list_->selectRow(row);
        }
    }
    choose_->setEnabled(found > 0);
    state_->setText(found > 0 ? QStringLiteral("%1 件").arg(found) : QString(plan_.nothingFound));
}

void SearchWindow::choose() {
    if (list_->currentRow() >= 0) {
        accept();
    }
}

bool SearchWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == text_ && event->type() == QEvent::KeyPress && movesInList(static_cast<QKeyEvent*>(event)->key())) {
        QApplication::sendEvent(list_, event);
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

int runSearch(const SearchPlan& plan, int count, char* arguments[]) {
    const orv::Application application(arguments[0]);
    const auto line = readCommandLine(tail(count, arguments), plan.valueCount, plan.sent.size());
    SiblingClient client(line ? line->button : QString());
    if (!line || !client.connected()) {
        return refuse(plan, QStringLiteral("お客様情報設定の画面から起動してください。"));
    }
    const QString file = QCoreApplication::applicationDirPath() + "/DAT/" + plan.dataFile;
    const auto rows = readRows(file, plan.fieldCount, plan.shown);
    if (!rows) {
        return refuse(plan, QStringLiteral("データファイルを読み込めません。\n") + file);
    }
    SearchWindow window(plan, *rows, line->values);
    client.onHangUp([&window] { window.reject(); });
    client.onToFront([&window] {
        window.showNormal();
        window.raise();
        window.activateWindow();
    });
    if (window.exec() == QDialog::Accepted) {
        for (qsizetype i = 0; i < plan.sent.size(); ++i) {
            client.setText(line->handles[i], window.chosen().fields[plan.sent[i]]);
        }
    }
    client.pressKey(line->button);
    return EXIT_SUCCESS;
}

}  // namespace search
