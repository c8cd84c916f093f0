#include "adapters/qt/notice_box.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>

#include "adapters/qt/nested_events.h"
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

/// Its text can be copied by key, as in the boxes that the operator knows, for whoever is asked for help.
class NoticeBox : public QMessageBox {
public:
    using QMessageBox::QMessageBox;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->matches(QKeySequence::Copy)) {
            QGuiApplication::clipboard()->setText(text());
        } else {
            QMessageBox::keyPressEvent(event);
        }
    }
};

}  // namespace

std::size_t runNotice(const Notice& notice, QWidget* owner) {
    if (qApp == nullptr || QGuiApplication::primaryScreen() == nullptr) {
        throw RunTimeError(Failure::Internal, "メッセージを表示できません。");
    }
    NoticeBox box(iconOf(notice.kind), toQt(notice.title), {}, QMessageBox::NoButton, owner);
    box.setObjectName(QStringLiteral("notice"));
    // The text comes from outside: it is never read as anything but text.
    box.setTextFormat(Qt::PlainText);
    box.setText(toQt(notice.text));
    std::vector<QPushButton*> buttons;
    for (const std::string& word : notice.buttons) {
        QPushButton* button = box.addButton(toQt(word), QMessageBox::AcceptRole);
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
