#include "adapters/qt/manual/manual_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWindow>
#include <utility>

#include "adapters/qt/views/page_scale.h"
#include "adapters/qt/views/screen_space.h"

namespace orv {
namespace {

constexpr Point kSize{760, 600};
constexpr int kListHeight = 130;
constexpr int kTextFont = 10;

QPushButton* barButton(const QString& caption, const QString& tip, QWidget* window) {
    auto* button = new QPushButton(caption, window);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

}  // namespace

ManualWindow::ManualWindow(ManualBook book, ManualBrowser::PictureFile pictureFile, const QString& version)
    : QWidget(nullptr, Qt::Window),
      book_(std::move(book)),
      browser_(new ManualBrowser(book_, std::move(pictureFile), this)),
      words_(new QLineEdit(this)),
      hits_(new QListWidget(this)) {
    const PageScale scale;
    setObjectName(QStringLiteral("manual"));
    setFont(scale.font(kTextFont));
    resize(
        QSize(scale.length(kSize.x), scale.length(kSize.y)).boundedTo(measureScreen(screen(), Sizing::Free).inside()));
    layOut(version);
    tieKeys();
    connect(browser_, &QTextBrowser::sourceChanged, this,
            [this](const QUrl& place) { setWindowTitle(book_.titleAt(place) + QStringLiteral(" - ヘルプ")); });
    connect(words_, &QLineEdit::textChanged, this, &ManualWindow::search);
    connect(words_, &QLineEdit::returnPressed, this, [this] { goToHit(1); });
    connect(hits_, &QListWidget::currentRowChanged, this, &ManualWindow::showHit);
}

void ManualWindow::layOut(const QString& version) {
    auto* back = barButton(QStringLiteral("← 戻る"), QStringLiteral("Alt+←"), this);
    auto* forward = barButton(QStringLiteral("進む →"), QStringLiteral("Alt+→"), this);
    auto* contents = barButton(QStringLiteral("目次"), QStringLiteral("Alt+Home"), this);
    connect(back, &QPushButton::clicked, browser_, &QTextBrowser::backward);
    connect(forward, &QPushButton::clicked, browser_, &QTextBrowser::forward);
    connect(contents, &QPushButton::clicked, this, [this] { browser_->setSource(book_.contents()); });
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
    browser_->setAccessibleName(QStringLiteral("説明"));
    words_->setPlaceholderText(QStringLiteral("言葉で探す（Ctrl+F）"));
    words_->setAccessibleName(QStringLiteral("言葉で探す"));
    hits_->setAccessibleName(QStringLiteral("見つかった項目"));
    hits_->setFixedHeight(PageScale().length(kListHeight));
    hits_->hide();
    auto* bar = new QHBoxLayout;
    for (QPushButton* button : {back, forward, contents}) {
        bar->addWidget(button);
    }
    bar->addWidget(words_, 1);
    auto* column = new QVBoxLayout(this);
    column->addLayout(bar);
    column->addWidget(hits_);
    column->addWidget(browser_, 1);
    column->addWidget(new QLabel(QStringLiteral("お客様情報設定 ") + version, this), 0, Qt::AlignRight);
}

void ManualWindow::tieKeys() {
    const auto on = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    on(Qt::Key_Escape, [this] { close(); });
    on(Qt::ALT | Qt::Key_Left, [this] { browser_->backward(); });
    on(Qt::ALT | Qt::Key_Right, [this] { browser_->forward(); });
    on(Qt::ALT | Qt::Key_Home, [this] { browser_->setSource(book_.contents()); });
    on(Qt::Key_F3, [this] { goToHit(1); });
    on(Qt::SHIFT | Qt::Key_F3, [this] { goToHit(-1); });
    on(Qt::CTRL | Qt::Key_F, [this] {
        words_->setFocus();
        words_->selectAll();
    });
}

bool ManualWindow::open(const QString& name) {
    const QUrl place = book_.findPlace(name);
    if (place.isEmpty()) {
        return false;
    }
    comeToFront();
    words_->clear();
    browser_->setSource(place);
    browser_->setFocus();
    return true;
}

/// A modal dialog blocks input to all windows that do not belong to it. The toolkit determines the dialog of a window
/// when the window appears.
void ManualWindow::comeToFront() {
    if (QWidget* active = QApplication::activeWindow(); active != this) {
        caller_ = active;
    }
    const QWidget* modal = QApplication::activeModalWidget();
    QWindow* owner = modal == nullptr ? nullptr : modal->window()->windowHandle();
    winId();
    if (windowHandle()->transientParent() != owner) {
        hide();
        windowHandle()->setTransientParent(owner);
    }
    show();
    raise();
    activateWindow();
}

void ManualWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    if (caller_) {
        caller_->activateWindow();
    }
}

void ManualWindow::search(const QString& words) {
    const QSignalBlocker quiet(hits_);
    found_ = book_.find(words);
    hits_->clear();
    for (const ManualBook::Section& hit : found_) {
        hits_->addItem(hit.title == hit.page ? hit.title : hit.title + QStringLiteral("　－　") + hit.page);
    }
    if (found_.isEmpty()) {
        auto* none = new QListWidgetItem(QStringLiteral("見つかりません。"), hits_);
        none->setFlags(Qt::NoItemFlags);
    }
    hits_->setVisible(!words.trimmed().isEmpty());
}

void ManualWindow::goToHit(int step) {
    const int count = static_cast<int>(found_.size());
    if (count > 0) {
        const int start = hits_->currentRow() < 0 && step < 0 ? 0 : hits_->currentRow();
        hits_->setCurrentRow((start + step + count) % count);
    }
}

void ManualWindow::showHit(int row) {
    if (row >= 0 && row < found_.size()) {
        browser_->setSource(found_[row].place);
        browser_->mark(words_->text());
    }
}

}  // namespace orv
