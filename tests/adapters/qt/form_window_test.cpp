#include <QWindow>

#include "adapters/qt/qt_test.h"

namespace orv {
namespace {

class FormWindowTest : public QtTest {
protected:
    QString focused() const {
        return QApplication::focusWidget() == nullptr ? QString() : QApplication::focusWidget()->objectName();
    }
    void press(int key) const { QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key)); }
    SamplePage page;
};

TEST_F(FormWindowTest, TheFocusIsOneOnBothSides) {
    show(page);
    EXPECT_EQ(focused(), "txt_Code");
    enter(page.name);
    EXPECT_EQ(page.activeControl(), &page.name);
    page.year.setFocus();
    EXPECT_EQ(focused(), "txt_Year");
    press(Qt::Key_Tab);
    EXPECT_EQ(page.activeControl(), &page.list);
}

TEST_F(FormWindowTest, KeysComeToTheFormFirstByTheirClassicCodes) {
    show(page);
    std::vector<int> codes;
    page.onKeyDown = [&](int code) { codes.push_back(code); };
    page.open.setFocus();
    for (const int key : {int{Qt::Key_A}, int{Qt::Key_7}, int{Qt::Key_F1}, int{Qt::Key_Escape}, int{Qt::Key_Left}}) {
        press(key);
    }
    press(Qt::Key_Shift);
    press(Qt::Key_Tab);
    EXPECT_EQ(codes, (std::vector<int>{'A', '7', kKeyF1, 27, 37}));
    EXPECT_EQ(page.open.text(), "a7");
}

TEST_F(FormWindowTest, ADisabledFormTakesNothing) {
    show(page);
    int clicks = 0;
    int refused = 0;
    page.save.onClick = [&] { ++clicks; };
    page.onQueryUnload = [&](bool&, UnloadMode) { ++clicks; };
    page.onCloseRefused = [&] { ++refused; };
    page.open.setFocus();
    page.setEnabled(false);
    for (const Control* control : {static_cast<const Control*>(&page.save), static_cast<const Control*>(&page.tick)}) {
        QTest::mouseClick(windowOf(page)->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          widgetOf(*control)->geometry().center());
    }
    QTest::keyClicks(lineOf(page.open), "abc");
    compose(*lineOf(page.open), "", "あ");
    windowOf(page)->close();
    pressAccessKey(windowOf(page));
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(refused, 1);
    EXPECT_EQ(page.tick.value(), 0);
    EXPECT_EQ(page.open.text(), "");
    EXPECT_EQ(page.activeControl(), &page.open);

    page.name.setFocus();
    page.setEnabled(true);
    EXPECT_EQ(focused(), "txt_Name");
}

TEST_F(FormWindowTest, InputThatCameWhileTheFormWasDisabledIsDropped) {
    show(page);
    int clicks = 0;
    page.save.onClick = [&] { ++clicks; };
    const auto clickIsDue = [&] {
        QTimer::singleShot(0, qApp, [this] {
            QTest::mouseClick(windowOf(page)->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                              widgetOf(page.save)->geometry().center());
        });
    };
    clickIsDue();
    settle();
    EXPECT_EQ(clicks, 1);

    page.setEnabled(false);
    clickIsDue();
    page.setEnabled(true);
    settle();
    EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace orv
