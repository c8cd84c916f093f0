#include <QMessageBox>
#include <QPushButton>

#include "adapters/qt/qt_test.h"

namespace orv {
namespace {

class WindowSystemTest : public QtTest {
protected:
    /// Once the next modal window is up.
    static void meanwhile(std::function<void(QWidget&)> act) {
        QTimer::singleShot(0, qApp, [act = std::move(act)] {
            ASSERT_NE(QApplication::activeModalWidget(), nullptr);
            act(*QApplication::activeModalWidget());
        });
    }
};

TEST_F(WindowSystemTest, ANoticeAnswersWithItsButtons) {
    const Notice notice{.title = "確認",
                        .text = "<b>終了</b>しますか？",
                        .kind = Notice::Kind::Question,
                        .buttons = {"はい", "いいえ", "中止"},
                        .defaultButton = 1,
                        .escapeButton = 2};
    const std::vector<std::pair<void (*)(QWidget&), std::size_t>> acts = {
        {[](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); }, 1},
        {[](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); }, 2},
        {[](QWidget& box) { box.findChild<QPushButton*>("notice_0")->click(); }, 0},
    };
    SamplePage page;
    for (const bool withForm : {false, true}) {
        if (withForm) show(page);
        for (const auto& [act, answer] : acts) {
            meanwhile([&](QWidget& box) {
                EXPECT_EQ(box.parentWidget(), withForm ? windowOf(page) : nullptr);
                EXPECT_EQ(dynamic_cast<QMessageBox&>(box).textFormat(), Qt::PlainText);
                act(box);
            });
            EXPECT_EQ(windows.showNotice(notice), answer);
        }
    }
}

TEST_F(WindowSystemTest, AModalFormRunsUntilItIsUnloadedAndMayDieAtOnce) {
    SamplePage page;
    show(page);
    {
        SamplePage dialog("dialog");
        place(dialog);
        dialog.save.onClick = [&] { forms.unload(dialog, UnloadMode::Code); };
        meanwhile([&](QWidget& window) {
            EXPECT_EQ(&window, windowOf(dialog));
            EXPECT_TRUE(window.isModal());
            ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
            compose(*enter(dialog.name), "まだ");
            QTest::keyClick(widgetOf(dialog.save), Qt::Key_Space);
        });
        forms.showModal(dialog);
        EXPECT_FALSE(dialog.loaded());
    }
    settle();
    EXPECT_TRUE(QTest::qWaitForWindowActive(windowOf(page)));
}

TEST_F(WindowSystemTest, AFormStaysAsLongAsItsOwnHandlerRuns) {
    SamplePage next("next");
    struct MortalPage : SamplePage {
        explicit MortalPage(bool& living) : SamplePage("mortal"), alive(living) {}
        ~MortalPage() override { alive = false; }
        bool& alive;
    };
    bool alive = true;
    auto mortal = std::make_unique<MortalPage>(alive);
    MortalPage& page = *mortal;
    show(page);
    page.save.onClick = [&] {
        show(next);
        forms.unload(page, UnloadMode::Code);
        forms.retire(std::move(mortal));
        meanwhile([&](QWidget& box) {
            QTest::qWait(120);
            box.close();
        });
        windows.showNotice({.title = "題", .text = "文"});
        EXPECT_TRUE(alive);
    };
    QTest::mouseClick(widgetOf(page.save), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !alive; }));
    EXPECT_NE(windowOf(next), nullptr);
}

}  // namespace
}  // namespace orv
