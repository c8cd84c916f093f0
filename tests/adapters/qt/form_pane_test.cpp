#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QWindow>

#include "adapters/qt/qt_test.h"
#include "adapters/qt/text_lines.h"
#include "platform/forms/busy.h"
#include "platform/waiting.h"

namespace orv {
namespace {

class FormPaneTest : public QtTest {
protected:
    QString focused() const {
        return QApplication::focusWidget() == nullptr ? QString() : QApplication::focusWidget()->objectName();
    }
    void press(int key) const { QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key)); }
    SamplePage page;
};

TEST_F(FormPaneTest, KeysComeToTheFormFirstByTheirClassicCodes) {
    show(page);
    std::vector<int> codes;
    page.onKeyDown = [&](int code) { codes.push_back(code); };
    page.open.setFocus();
    for (const int key : {int{Qt::Key_A}, int{Qt::Key_7}, int{Qt::Key_F1}, int{Qt::Key_Escape}, int{Qt::Key_Left}}) {
        press(key);
    }
    press(Qt::Key_Shift);
    press(Qt::Key_Tab);
    EXPECT_EQ(codes, (std::vector<int>{'A', '7', 112, 27, 37}));
    EXPECT_EQ(page.open.text(), "a7");
}

TEST_F(FormPaneTest, ADisabledFormTakesNothing) {
    show(page);
    int clicks = 0;
    int refused = 0;
    page.save.onClick = [&] { ++clicks; };
    page.onQueryUnload = [&](bool&, UnloadMode) { ++clicks; };
    page.onCloseRefused = [&] { ++refused; };
    page.open.setFocus();
    page.setEnabled(false);
    for (const Control* control : {static_cast<const Control*>(&page.save), static_cast<const Control*>(&page.tick)}) {
        QTest::mouseClick(findWindow(page)->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          findWidget(*control)->geometry().center());
    }
    QTest::keyClicks(findLine(page.open), "abc");
    compose(*findLine(page.open), "", "あ");
    findWindow(page)->close();
    pressAccessKey(findWindow(page));
    QTest::keyClick(findWindow(page), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(refused, 1);
    EXPECT_EQ(page.tick.value(), 0);
    EXPECT_EQ(page.open.text(), "");
    EXPECT_EQ(page.activeControl(), &page.open);

    page.name.setFocus();
    page.setEnabled(true);
    EXPECT_EQ(focused(), "txt_Name");
}

TEST_F(FormPaneTest, AButtonDisabledDuringItsClickKeepsTheFocus) {
    show(page);
    EXPECT_EQ(focused(), "txt_Code") << "the first input field";
    bool again = true;
    page.save.onClick = [&] {
        page.save.setEnabled(false);
        QTimer::singleShot(0, qApp, [] { QApplication::activeModalWidget()->close(); });
        windows.showNotice({.title = "題", .text = "文"});
        page.save.setEnabled(again);
    };
    QTest::mouseClick(findWidget(page.save), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return focused() == "btm_Save"; }, kPatience));
    again = false;
    QTest::keyClick(findWindow(page), Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return focused() == "txt_Code"; }, kPatience)) << "it can't have it any more";
}

TEST_F(FormPaneTest, OneWindowShowsOneFormAfterTheOther) {
    SamplePage next("next");
    next.setCaption("次");
    show(page);
    const QWindow* window = findWindow(page)->windowHandle();
    forms.show(next);
    forms.unload(page, UnloadMode::Code);
    EXPECT_EQ(findWindow(next)->windowHandle(), window);
    EXPECT_EQ(findWindow(next)->windowTitle(), "次[*]");
    EXPECT_EQ(focused(), "txt_Code");
    EXPECT_TRUE(findWidget(next.code)->hasFocus());
}

struct PaintSpy : QObject {
    explicit PaintSpy(QObject& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

TEST_F(FormPaneTest, InputThatCameWhileTheFormWasDisabledIsDropped) {
    show(page);
    int clicks = 0;
    page.save.onClick = [&] { ++clicks; };
    const auto clickIsDue = [&] {
        QTimer::singleShot(0, qApp, [this] {
            QTest::mouseClick(findWindow(page)->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                              findWidget(page.save)->geometry().center());
        });
    };
    clickIsDue();
    settle();
    EXPECT_EQ(clicks, 1);

    page.setEnabled(false);
    clickIsDue();
    findWidget(page.save)->update();
    PaintSpy painted(*findWidget(page.save));
    page.setEnabled(true);
    EXPECT_EQ(painted.count, 0) << "an input to it would be dropped as well";
    settle();
    EXPECT_GT(painted.count, 0);
    EXPECT_EQ(clicks, 1);
}

TEST_F(FormPaneTest, AFailureEnablesTheFormAndHandlesNoEventOnItsWay) {
    show(page);
    bool handled = false;
    {
        const BusyForm disabled(page);
        QTimer::singleShot(0, qApp, [&] { handled = true; });
    }
    EXPECT_TRUE(page.enabled());
    EXPECT_FALSE(handled);
    settle();
    QTest::keyClicks(findLine(page.open), "a");
    EXPECT_EQ(page.open.text(), "a");
}

class WindowSystemTest : public QtTest {
protected:
    /// Runs `act` once the next modal window is shown.
    static void actMeanwhile(std::function<void(QWidget&)> act) {
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
        {[](QWidget& box) { QTest::keyClick(&box, Qt::Key_N); }, 1},
    };
    SamplePage page;
    for (const bool withForm : {false, true}) {
        if (withForm) show(page);
        for (const auto& [act, answer] : acts) {
            actMeanwhile([&](QWidget& box) {
                EXPECT_EQ(box.parentWidget(), withForm ? findWindow(page) : nullptr);
                EXPECT_EQ(dynamic_cast<QMessageBox&>(box).textFormat(), Qt::PlainText);
                EXPECT_LT(box.findChild<QWidget*>("notice_0")->x(), box.findChild<QWidget*>("notice_1")->x());
                act(box);
            });
            EXPECT_EQ(windows.showNotice(notice), answer);
        }
    }
}

TEST_F(WindowSystemTest, AModalWindowCanBeDeletedInItsOwnLoop) {
    SamplePage page;
    place(page);
    QTimer::singleShot(0, qApp, [&] {
        const QPointer<QWidget> pane = findPane(page);
        forms.unload(page, UnloadMode::Code);
        settle();
        EXPECT_TRUE(pane.isNull());
    });
    forms.showModal(page);
    EXPECT_FALSE(page.loaded());
}

/// A full-width character counts as two.
int measureWidth(const QString& line) {
    int width = 0;
    for (const QChar sign : line) {
        width += sign.unicode() < 0x100 ? 1 : 2;
    }
    return width;
}

TEST(TextLines, BreakAfterClausesThenPhrasesAndInsideAWordAtLast) {
    const std::vector<std::pair<QString, QString>> cases = {
        {"短い文。", "短い文。"},
        {"会社を切り替えます。\n切り替えてもよろしいですか？", "会社を切り替えます。\n切り替えてもよろしいですか？"},
        {"入力内容を確認してください。保存は行っていません。", "入力内容を確認してください。\n保存は行っていません。"},
        {"ほかの端末またはサーバーでデータベースが使用中", "ほかの端末またはサーバーで\nデータベースが使用中"},
        {"「お客様情報」は登録済みの会社に限ります", "「お客様情報」は\n登録済みの会社に限ります"},
        {"ＡＢＣＤＥＦＧＨＩＪＫＬＭＮＯＰＱＲ", "ＡＢＣＤＥＦＧＨＩ\nＪＫＬＭＮＯＰＱＲ"},
        {"", ""},
    };
    for (const auto& [text, lines] : cases) {
        EXPECT_EQ(brokenIntoLines(text, 30, measureWidth), lines) << text.toStdString();
    }
}

TEST_F(WindowSystemTest, WorkIsShownAfterAWhileAndTakesAllInput) {
    SamplePage page;
    int clicks = 0;
    page.save.onClick = [&] { ++clicks; };
    page.onQueryUnload = [&](bool& kept, UnloadMode) { kept = ++clicks > 0; };
    page.name.onLostFocus = [&] { ++clicks; };
    show(page);
    enter(page.name);
    windows.showWork("保存しています…");
    const auto* cover = findWindow(page)->findChild<QWidget*>("work");
    EXPECT_FALSE(cover->isVisible()) << "a short work is not worth a flicker";
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            whileWaiting();
            return cover->isVisible();
        },
        60'000));
    EXPECT_EQ(cover->findChild<QLabel*>()->text(), "保存しています…");
    QTest::mouseClick(findWindow(page)->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      findWidget(page.save)->geometry().center());
    QTest::keyClick(findWindow(page)->windowHandle(), Qt::Key_S, Qt::ControlModifier);
    findWindow(page)->window()->close();
    QEvent otherWindow(QEvent::ActivationChange);
    QApplication::sendEvent(findWindow(page)->window(), &otherWindow);
    windows.showWork("");
    settle();
    EXPECT_EQ(findWindow(page)->findChild<QWidget*>("work"), nullptr);
    EXPECT_EQ(clicks, 0);
    QTest::mouseClick(findWidget(page.save), Qt::LeftButton);
    EXPECT_GT(clicks, 0);
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
        actMeanwhile([&](QWidget& box) {
            QTest::qWait(120);
            box.close();
        });
        windows.showNotice({.title = "題", .text = "文"});
        EXPECT_TRUE(alive);
    };
    QTest::mouseClick(findWidget(page.save), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !alive; }, kPatience));
    EXPECT_NE(findWindow(next), nullptr);
}

}  // namespace
}  // namespace orv
