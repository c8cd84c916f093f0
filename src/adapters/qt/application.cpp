#include "adapters/qt/application.h"

#include <QApplication>
#include <QCoreApplication>
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

#include "adapters/qt/desktop.h"
#include "adapters/qt/views/accessibility.h"
#include "adapters/qt/views/office_style.h"
#include "adapters/qt/views/page_scale.h"
#include "adapters/qt/views/qt_text.h"

namespace orv {
namespace {

constexpr const char* kPlatform = "QT_QPA_PLATFORM";
constexpr int kTextFont = 9;
constexpr double kPointsAnInch = 72;

/// Returns a light palette with the style's colours for disabled text.
QPalette calmPalette() {
    QPalette palette(QColor(0xf0, 0xf0, 0xf4), toQt(kPageBack));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(role, Qt::black);
    }
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(0x33, 0x66, 0xcc));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    QApplication::style()->polish(palette);
    return palette;
}

/// Replaces the toolkit's default colours. A desktop with colours of its own keeps them, even dark ones.
void replacePlainColours(QStyle& style) {
    QPalette plain = style.standardPalette();
    style.polish(plain);
    if (QApplication::palette() == plain) {
        QApplication::setPalette(calmPalette());
    }
}

/// Returns the first installed font. For a font with several families the toolkit would look for substitutes at once
/// instead of when a character is missing.
QFont japaneseFont() {
    for (const QString& family : japaneseFamilies()) {
        if (QFontDatabase::hasFamily(family)) {
            return QFont(family);
        }
    }
    return QFont(QStringLiteral("sans-serif"));
}

int pixelSize(const QFont& font) {
    return font.pixelSize() > 0
               ? font.pixelSize()
               : qRound(font.pointSizeF() * QGuiApplication::primaryScreen()->logicalDotsPerInch() / kPointsAnInch);
}

/// Returns the font for dialogs, menus and tips: as large as the pages' text, or as the desktop's if that is larger.
QFont textFont() {
    const int wished = pixelSize(QApplication::font());
    QApplication::setFont(japaneseFont());
    QFont font = PageScale().font(kTextFont);
    font.setPixelSize(std::max(font.pixelSize(), wished));
    return font;
}

/// Without a display the toolkit would abort with an English text. So it can fall back to a platform without windows,
/// which is reported here unless the environment names it.
std::unique_ptr<QApplication> makeToolkit(int& count, char** arguments) {
    auto toolkit = std::make_unique<QApplication>(count, arguments);
    if (!qEnvironmentVariableIsSet(kPlatform) && QGuiApplication::platformName() == QStringLiteral("offscreen")) {
        toolkit.reset();
        std::fputs("画面に接続できません。\n", stderr);
        std::exit(EXIT_FAILURE);
    }
    return toolkit;
}

/// Loads the Japanese translation of the toolkit's own texts, which are mainly those of the open dialog.
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

/// Restricts the toolkit to its own icons, which are enough. It would search every icon theme of the machine for
/// missing ones. That is tens of thousands of files each time an open dialog is shown.
void useOwnIcons() {
    const QStringList none{QStringLiteral(":/none")};
    QIcon::setThemeSearchPaths(none);
    QIcon::setFallbackSearchPaths(none);
}

}  // namespace

Application::Application(const char* programName)
    : name_(programName),
      platforms_(toolkitPlatforms()),
      arguments_{name_.data(), option_.data(), platforms_.data(), nullptr},
      count_(qEnvironmentVariableIsSet(kPlatform) ? 1 : 3) {
    application_ = prepareToolkit([this] { return makeToolkit(count_, arguments_.data()); });
    inputOrder_ = keepInputInOrder();
    words_ = japaneseWords();
    useOwnIcons();
    installAccessibility();
    QApplication::setStyle(new OfficeStyle);
    replacePlainColours(*QApplication::style());
    QApplication::setFont(textFont());
    QApplication::setQuitOnLastWindowClosed(false);
    // The style caches images of buttons by palette. Every page creates new palettes, so the cached images would never
    // be used again.
    QPixmapCache::setCacheLimit(0);
}

Application::~Application() = default;

int Application::run() const { return QApplication::exec(); }

}  // namespace orv
