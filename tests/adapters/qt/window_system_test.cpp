#include <unistd.h>

#include <QMessageBox>
#include <QPushButton>
#include <array>

#include "adapters/qt/descriptor_watch.h"
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
    using Act = std::function<void(QWidget&)>;
    const std::vector<std::pair<Act, std::size_t>> acts = {
        {[](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); }, 1},
        {[](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); }, 2},
        {[](QWidget& box) { box.close(); }, 2},
        {[](QWidget& box) { box.findChild<QPushButton*>("notice_0")->click(); }, 0},
    };
    SamplePage page;
    for (const bool withForm : {false, true}) {
        if (withForm) show(page);
        for (const auto& [act, answer] : acts) {
            meanwhile([&](QWidget& box) {
                EXPECT_EQ(box.parentWidget(), withForm ? windowOf(page) : nullptr);
                EXPECT_EQ(dynamic_cast<QMessageBox&>(box).textFormat(), Qt::PlainText);
                EXPECT_LT(box.findChild<QWidget*>("notice_0")->x(), box.findChild<QWidget*>("notice_1")->x());
                act(box);
            });
            EXPECT_EQ(windows.showNotice(notice), answer);
        }
    }
}

TEST_F(WindowSystemTest, TheHourglassYieldsToANotice) {
    windows.pointer(true);
    windows.pointer(true);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    meanwhile([](QWidget& box) {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        box.close();
    });
    windows.showNotice({.title = "題", .text = "文"});
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    windows.pointer(false);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
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

TEST_F(WindowSystemTest, TheCloseBoxOfADisabledFormKeepsItAndTells) {
    SamplePage page;
    show(page);
    int asked = 0;
    int refused = 0;
    page.onQueryUnload = [&](bool&, UnloadMode) { ++asked; };
    page.onCloseRefused = [&] { ++refused; };
    page.setEnabled(false);
    windowOf(page)->close();
    EXPECT_EQ(refused, 1);
    EXPECT_EQ(asked, 0);
    EXPECT_TRUE(page.loaded());
}

TEST_F(WindowSystemTest, ADescriptorIsWatchedUntilTheWatchIsReleased) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    int calls = 0;
    std::shared_ptr<void> watch = watchDescriptor(ends[0], [&] {
        if (++calls == 2) {
            watch.reset();
        }
    });
    settle();
    EXPECT_EQ(calls, 0);
    ASSERT_EQ(::write(ends[1], "x", 1), 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return calls == 2; }));
    QTest::qWait(20);
    EXPECT_EQ(calls, 2);
    ::close(ends[0]);
    ::close(ends[1]);
}

struct MortalPage : SamplePage {
    explicit MortalPage(bool& alive) : SamplePage("mortal"), alive_(alive) { alive_ = true; }
    ~MortalPage() override { alive_ = false; }
    bool& alive_;
};

TEST_F(WindowSystemTest, AFormStaysAsLongAsItsOwnHandlerRuns) {
    SamplePage next("next");
    bool alive = false;
    auto mortal = std::make_unique<MortalPage>(alive);
    MortalPage& page = *mortal;
    show(page);
    page.save.onClick = [&] {
        show(next);
        forms.unload(page, UnloadMode::Code);
        forms.retire(std::move(mortal));
        meanwhile([&](QWidget& box) {
            QTest::qWait(120);
            EXPECT_TRUE(alive);
            box.close();
        });
        windows.showNotice({.title = "題", .text = "文"});
        windows.repaint();
        EXPECT_TRUE(alive);
        EXPECT_EQ(page.name.text(), "");
    };
    QTest::mouseClick(widgetOf(page.save), Qt::LeftButton);
    EXPECT_EQ(windowOf(page), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !alive; }));
    EXPECT_NE(windowOf(next), nullptr);
}

TEST_F(WindowSystemTest, AFormIsCentred) {
    SamplePage page;
    place(page);
    forms.load(page);
    windows.centre(page);
    forms.show(page);
    const QRect area = windowOf(page)->screen()->availableGeometry();
    const QPoint off = windowOf(page)->frameGeometry().center() - area.center();
    EXPECT_LE(std::abs(off.x()), 20);
    EXPECT_LE(std::abs(off.y()), 30);
}

TEST_F(WindowSystemTest, ANoticeBeforeTheProgramRunsWaits) {
    {
        SamplePage page;
        show(page);
    }
    settle();
    meanwhile([](QWidget& box) { box.findChild<QPushButton*>("notice_1")->click(); });
    EXPECT_EQ(windows.showNotice({.title = "題", .text = "文", .buttons = {"一", "二"}}), 1U);
}

TEST_F(WindowSystemTest, TheProgramEndsWithItsLastForm) {
    SamplePage first("first");
    SamplePage second("second");
    show(first);
    std::vector<std::string> steps;
    QTimer::singleShot(0, qApp, [&] {
        show(second);
        forms.unload(first, UnloadMode::Code);
        steps.push_back("changed");
    });
    QTimer::singleShot(50, qApp, [&] {
        steps.push_back("closed");
        forms.unload(second, UnloadMode::Code);
    });
    QApplication::exec();
    EXPECT_EQ(steps, (std::vector<std::string>{"changed", "closed"}));
}

}  // namespace
}  // namespace orv
