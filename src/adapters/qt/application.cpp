#include "adapters/qt/application.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>
#include <QTranslator>
#include <array>
#include <utility>

namespace orv {
namespace {

/// The words of the toolkit's own menu on a field.
class FieldMenuWords : public QTranslator {
public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* source, const char*, int) const override {
        static constexpr std::array<std::pair<std::string_view, const char*>, 7> kWords{{
            {"&Undo", "元に戻す(&U)"},
            {"&Redo", "やり直し(&R)"},
            {"Cu&t", "切り取り(&T)"},
            {"&Copy", "コピー(&C)"},
            {"&Paste", "貼り付け(&P)"},
            {"Delete", "削除"},
            {"Select All", "すべて選択"},
        }};
        for (const auto& [english, japanese] : kWords) {
            if (english == source) {
                return QString::fromUtf8(japanese);
            }
        }
        return {};
    }
};

/// Light, and readable also where nothing can be entered.
QPalette calmPalette() {
    QPalette palette(QColor(0xf0, 0xf0, 0xf4), QColor(0xf6, 0xf6, 0xff));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(role, Qt::black);
        palette.setColor(QPalette::Disabled, role, QColor(0x48, 0x48, 0x48));
    }
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(0x33, 0x66, 0xcc));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

QFont japaneseFont() {
    QFont font;
    font.setFamilies({QStringLiteral("Noto Sans CJK JP"), QStringLiteral("IPAPGothic"), QStringLiteral("TakaoPGothic"),
                      QStringLiteral("sans-serif")});
    font.setPixelSize(13);
    return font;
}

}  // namespace

Application::Application(const char* programName) : name_(programName), arguments_{name_.data(), nullptr} {
    application_ = std::make_unique<QApplication>(count_, arguments_);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(calmPalette());
    QApplication::setFont(japaneseFont());
    QApplication::setQuitOnLastWindowClosed(false);
    auto* words = new FieldMenuWords(application_.get());
    QCoreApplication::installTranslator(words);
}

Application::~Application() = default;

int Application::run() const { return QApplication::exec(); }

}  // namespace orv
