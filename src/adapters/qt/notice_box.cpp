#include "adapters/qt/notice_box.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

#include "adapters/qt/nested_events.h"
#include "adapters/qt/text_lines.h"
#include "adapters/qt/views/qt_text.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

QMessageBox::Icon iconOf(Notice::Kind kind) {
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
    NoticeBox(const Notice& notice, QWidget* owner, QSize room)
        : QMessageBox(iconOf(notice.kind), toQt(notice.title), {}, NoButton, owner), text_(toQt(notice.text)) {
        setObjectName(QStringLiteral("notice"));
        // The text comes from outside and must not be interpreted as markup.
        setTextFormat(Qt::PlainText);
        setTextInteractionFlags(Qt::TextSelectableByMouse);
        setText(brokenIntoLines(text_, widestLine(room), [this](const QString& line) { return widthOf(line); }));
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
    int widthOf(const QString& line) const { return fontMetrics().horizontalAdvance(line); }
    /// The toolkit cuts text that is wider than its own limit, which depends on the screen.
    int widestLine(QSize room) const {
        const int limit = room.width() > kSmallScreen ? std::min(room.width() - kKeptFree, kWidestBox) : room.width();
        return std::min(widthOf(QString(kLongestLine, u'あ')), limit - kAroundText);
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

}  // namespace

std::size_t runNotice(const Notice& notice, QWidget* owner, QSize room) {
    if (qApp == nullptr || QGuiApplication::primaryScreen() == nullptr) {
        throw RunTimeError(Failure::Internal, "メッセージを表示できません。");
    }
    NoticeBox box(notice, owner, room);
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

}  // namespace orv
