#include <gtest/gtest.h>

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QWindow>
#include <memory>

#include "adapters/qt/manual/manual_help.h"
#include "adapters/system/system_adapters.h"
#include "support/temp_folder.h"
#include "support/widgets.h"

namespace orv {
namespace {

class Manual : public testing::Test {
protected:
    void putPages() {
        folder.write("H/manual/index.md", "# 目次\n[会社](a.md) [b](b.md#x) [c](missing.md) [d](../d.md)\n");
        std::string longText;
        for (int line = 0; line < 100; ++line) {
            longText += "\n行\n";
        }
        folder.write("H/manual/a.md",
                     "# 会社\n<a id=\"txt_A\"></a>\n<a id=\"txt_B\"></a>\n## 会社名\nﾃｽﾄ\n" + longText);
        folder.write("H/manual/b.md",
                     "# 保存\n会社名と TEL\n\n<a id=\"btm_Save\"></a>\n## 保存する\n| 1 |\n|---|\n| ２ |\n");
    }
    static QWidget* window() {
        for (QWidget* top : QApplication::topLevelWidgets()) {
            if (top->objectName() == QStringLiteral("manual") && top->isVisible()) {
                return top;
            }
        }
        return nullptr;
    }
    static QString title() { return window()->windowTitle().section(QStringLiteral(" - "), 0, 0); }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        ASSERT_TRUE(QTest::qWaitForWindowActive(window(), kPatience));
        QTest::keyClick(window()->windowHandle(), key, modifiers);
    }

    const TempFolder folder;
    const SystemPaths paths{folder.path().string(), folder.path().string()};
    const SystemFiles files{paths};
    ManualHelp help{files, [] { return std::string("H:\\"); }, "9.8.7"};
};

TEST_F(Manual, OpensSectionsGoesBackAndSearchesByKeys) {
    EXPECT_FALSE(help.ShowHelp("txt_A", "SSX"));
    EXPECT_EQ(help.ErrorInfo().code, "HELP0001");
    putPages();
    EXPECT_FALSE(help.ShowHelp("txt_C", "SSX"));
    EXPECT_EQ(help.ErrorInfo().code, "HELP0002");
    EXPECT_EQ(window(), nullptr);
    for (const auto& [control, section] :
         {std::pair("txt_A", "会社名"), {"btm_Save", "保存する"}, {"txt_B", "会社名"}}) {
        EXPECT_TRUE(help.ShowHelp(control, "SSX"));
        EXPECT_EQ(title(), section);
    }
    EXPECT_TRUE(window()->findChild<QLabel*>()->text().contains(QStringLiteral("9.8.7")));
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(title(), "保存する");
    press(Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(title(), "目次");
    // Each word in any width, in tables too, titles first, around the ends.
    for (const auto& [words, first, second] : {std::tuple("会社名", "会社名", "保存"),
                                               {"2", "保存する", "保存する"},
                                               {"ｔｅｌ 会社", "保存", "保存"},
                                               {"テスト", "会社名", "会社名"}}) {
        press(Qt::Key_F, Qt::ControlModifier);
        dynamic_cast<QLineEdit&>(*QApplication::focusWidget()).setText(QString::fromUtf8(words));
        press(Qt::Key_Return);
        EXPECT_EQ(title(), first) << words;
        press(Qt::Key_F3);
        EXPECT_EQ(title(), second) << words;
        press(Qt::Key_F3, Qt::ShiftModifier);
        EXPECT_EQ(title(), first) << words;
    }
    EXPECT_TRUE(help.ShowHelp("txt_A", "SSX"));
    EXPECT_EQ(window()->findChild<QLineEdit*>()->text(), "") << "a search of before";
    EXPECT_FALSE(QApplication::focusWidget()->inputMethodQuery(Qt::ImEnabled).toBool());
    press(Qt::Key_End);
    const QScrollBar& bar = *dynamic_cast<QAbstractScrollArea&>(*QApplication::focusWidget()).verticalScrollBar();
    EXPECT_GT(bar.value(), 0);
    QInputMethodEvent nothingComposed({}, {{QInputMethodEvent::Cursor, 0, 1}});
    QApplication::sendEvent(QApplication::focusWidget(), &nothingComposed);
    EXPECT_EQ(bar.value(), bar.maximum());
    press(Qt::Key_Escape);
    EXPECT_EQ(window(), nullptr);
}

TEST_F(Manual, TakesInputAboveAModalDialogAndGivesTheKeyboardBack) {
    putPages();
    ASSERT_TRUE(help.ShowHelp("txt_A", "SSX")) << "so that it is there when the dialog appears";
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog, kPatience));
    ASSERT_TRUE(help.ShowHelp("btm_Save", "SSX"));
    const auto* back = window()->findChild<QPushButton*>();
    QTest::mouseClick(window()->windowHandle(), Qt::LeftButton, {}, back->geometry().center());
    EXPECT_EQ(title(), "会社名");
    press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog, kPatience));
}

}  // namespace
}  // namespace orv
