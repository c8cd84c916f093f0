#include "adapters/qt/application.h"

#include <fontconfig/fontconfig.h>

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QPixmapCache>
#include <QScreen>
#include <QStyle>
#include <QTranslator>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "adapters/qt/views/accessibility.h"
#include "adapters/qt/views/office_style.h"
#include "adapters/qt/views/page_scale.h"

namespace orv {
namespace {

constexpr const char* kPlatform = "QT_QPA_PLATFORM";
constexpr int kTextFont = 9;
constexpr double kPointsAnInch = 72;

/// Light, with the style's colours of what is disabled.
QPalette calmPalette() {
    QPalette palette(QColor(0xf0, 0xf0, 0xf4), QColor(0xf6, 0xf6, 0xff));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(role, Qt::black);
    }
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(0x33, 0x66, 0xcc));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    QApplication::style()->polish(palette);
    return palette;
}

/// A desktop with colours of its own keeps them, dark ones too. Others get the toolkit's plain ones by default.
void replacePlainColours(QStyle& style) {
    QPalette plain = style.standardPalette();
    style.polish(plain);
    if (QApplication::palette() == plain) {
        QApplication::setPalette(calmPalette());
    }
}

/// The first that the machine has. For a font of several families the toolkit would look for substitutes at once, not
/// when a character is missing.
QFont japaneseFont() {
    for (const char* name : {"Noto Sans CJK JP", "IPAPGothic", "TakaoPGothic"}) {
        if (const QString family = QString::fromLatin1(name); QFontDatabase::hasFamily(family)) {
            return QFont(family);
        }
    }
    return QFont(QStringLiteral("sans-serif"));
}

int pixelsOf(const QFont& font) {
    return font.pixelSize() > 0
               ? font.pixelSize()
               : qRound(font.pointSizeF() * QGuiApplication::primaryScreen()->logicalDotsPerInch() / kPointsAnInch);
}

/// For dialogs, menus and tips: as large as the text of the pages, or as the desktop wishes if that is larger.
QFont textFont() {
    const int wished = pixelsOf(QApplication::font());
    QApplication::setFont(japaneseFont());
    QFont font = PageScale().font(kTextFont);
    font.setPixelSize(std::max(font.pixelSize(), wished));
    return font;
}

/// A click is handled at once, a key only when the input method has answered, and by then another field may have the
/// focus. So the input method's plug-ins are told to wait for the answer.
void keepKeysAndClicksInOrder() {
    for (const char* plugIn : {"FCITX_QT_USE_SYNC", "IBUS_ENABLE_SYNC_MODE"}) {
        if (!qEnvironmentVariableIsSet(plugIn)) {
            qputenv(plugIn, "1");
        }
    }
}

/// Without a display the toolkit would abort with an English text. Therefore it can fall back to showing nothing, which
/// is reported here, unless the environment names the platform.
std::unique_ptr<QApplication> makeToolkit(int& count, char** arguments) {
    auto toolkit = std::make_unique<QApplication>(count, arguments);
    if (!qEnvironmentVariableIsSet(kPlatform) && QGuiApplication::platformName() == QStringLiteral("offscreen")) {
        toolkit.reset();
        std::fputs("画面に接続できません。\n", stderr);
        std::exit(EXIT_FAILURE);
    }
    return toolkit;
}

/// What the toolkit itself says, in the open dialog above all.
std::unique_ptr<QTranslator> japaneseWords() {
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    auto words = std::make_unique<QTranslator>();
    if (words->load(QStringLiteral("qtbase_ja"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(words.get());
    } else {
        std::fputs("日本語の翻訳ファイル (qtbase_ja.qm) がありません。\n", stderr);
    }
    return words;
}

/// The toolkit's own icons are enough. Whatever it does not have it would look for in every folder of every theme of
/// the machine, which is tens of thousands of files each time that an open dialog is shown.
void useOwnIcons() {
    const QStringList none{QStringLiteral(":/none")};
    QIcon::setThemeSearchPaths(none);
    QIcon::setFallbackSearchPaths(none);
}

}  // namespace

Application::Application(const char* programName)
    : name_(programName),
      arguments_{name_.data(), option_.data(), platforms_.data(), nullptr},
      count_(qEnvironmentVariableIsSet(kPlatform) ? 1 : 3) {
    keepKeysAndClicksInOrder();
    // The toolkit asks for the machine's fonts once the display is connected. Both take a while, so they run in
    // parallel. The thread reads the environment: a variable that is added meanwhile can crash it.
    const std::jthread fonts([] { FcInit(); });
    application_ = makeToolkit(count_, arguments_.data());
    words_ = japaneseWords();
    useOwnIcons();
    installAccessibility();
    QApplication::setStyle(new OfficeStyle);
    replacePlainColours(*QApplication::style());
    QApplication::setFont(textFont());
    QApplication::setQuitOnLastWindowClosed(false);
    // The style keys its pictures of buttons by palette, and every page makes new palettes: it would keep them in vain.
    QPixmapCache::setCacheLimit(0);
}

Application::~Application() = default;

int Application::run() const { return QApplication::exec(); }

}  // namespace orv
