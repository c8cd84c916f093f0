#include <QWindow>
#include <tuple>

#include "adapters/qt/qt_test.h"

namespace orv {
namespace {

class FormWindowTest : public QtTest {
protected:
    QString focused() const {
        return QApplication::focusWidget() == nullptr ? QString() : QApplication::focusWidget()->objectName();
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    SamplePage page;
};

TEST_F(FormWindowTest, TabGoesThroughWhatCanBeUsed) {
    page.name.setEnabled(false);
    page.secret.setVisible(false);
    show(page);
    page.code.setFocus();
    QStringList way;
    for (int i = 0; i < 9; ++i) {
        way << focused();
        press(Qt::Key_Tab);
    }
    EXPECT_EQ(way.join(' '), "txt_Code txt_Kana txt_Open txt_Year cbo_List chk_Tick chk_Bare(0) btm_Save txt_Code");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), "txt_Code");
    page.code.setEnabled(false);
    EXPECT_EQ(focused(), "txt_Kana");
}

TEST_F(FormWindowTest, TheFocusIsOneOnBothSides) {
    std::vector<std::string> events;
    page.code.onValidate = [&] { events.push_back("validate " + page.code.text()); };
    page.year.onValidate = [&] { events.push_back("validate " + page.year.text()); };
    page.name.onGotFocus = [&] { events.push_back("name"); };
    show(page);
    EXPECT_EQ(focused(), "txt_Code");
    QTest::keyClicks(widgetOf(page.code), "12");
    enter(page.name);
    EXPECT_EQ(page.activeControl(), &page.name);
    page.year.setFocus();
    EXPECT_EQ(focused(), "txt_Year");
    QTest::keyClicks(widgetOf(page.year), "7");
    press(Qt::Key_Tab);
    EXPECT_EQ(page.activeControl(), &page.list);
    EXPECT_EQ(events, (std::vector<std::string>{"validate 12", "name", "validate 7"}));
    page.year.setFocus();
    pressAccessKey(widgetOf(page.year));
    EXPECT_EQ(page.activeControl(), &page.save);
    EXPECT_EQ(events.back(), "validate 7");
    EXPECT_EQ(events.size(), 4U);
}

TEST_F(FormWindowTest, EnterBelongsToThePage) {
    show(page);
    for (Control* control : std::vector<Control*>{&page.code, &page.year, &page.list, &page.tick}) {
        int key = 0;
        control->onKeyDown = [&](int code) {
            key = code;
            page.focusNext();
        };
        control->setFocus();
        press(Qt::Key_Return);
        EXPECT_EQ(key, kKeyEnter) << control->name();
        EXPECT_NE(page.activeControl(), control);
        EXPECT_EQ(focused(), toQt(page.activeControl()->objectName()));
        control->onKeyDown = nullptr;
    }
}

TEST_F(FormWindowTest, KeysComeToTheFormFirstByTheirClassicCodes) {
    show(page);
    std::vector<int> codes;
    page.onKeyDown = [&](int code) {
        codes.push_back(code);
        EXPECT_LT(page.open.text().size(), codes.size());
    };
    page.open.setFocus();
    for (const int key : {int{Qt::Key_A}, int{Qt::Key_7}, int{Qt::Key_F1}, int{Qt::Key_Escape}, int{Qt::Key_Left}}) {
        press(key);
    }
    for (const int silent : {int{Qt::Key_Shift}, int{Qt::Key_Control}, int{Qt::Key_Alt}, int{Qt::Key_Tab}}) {
        press(silent);
    }
    EXPECT_EQ(codes, (std::vector<int>{'A', '7', kKeyF1, 27, 37}));
    EXPECT_EQ(page.open.text(), "a7");
}

TEST_F(FormWindowTest, ADisabledFormTakesNothing) {
    show(page);
    int clicks = 0;
    page.save.onClick = [&] { ++clicks; };
    page.onQueryUnload = [&](bool& kept, UnloadMode) {
        ++clicks;
        kept = true;
    };
    page.open.setFocus();
    page.setEnabled(false);
    QTest::mouseClick(windowOf(page), Qt::LeftButton, Qt::NoModifier, widgetOf(page.save)->geometry().center());
    QTest::keyClicks(windowOf(page), "abc");
    for (const Control* control : {static_cast<const Control*>(&page.save), static_cast<const Control*>(&page.tick)}) {
        QTest::mouseClick(windowOf(page)->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          widgetOf(*control)->geometry().center());
    }
    QTest::keyClicks(lineOf(page.open), "abc");
    compose(*lineOf(page.open), "", "あ");
    windowOf(page)->close();
    pressAccessKey(windowOf(page));
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(page.tick.value(), 0);
    EXPECT_EQ(page.open.text(), "");
    EXPECT_EQ(page.activeControl(), &page.open);

    page.setEnabled(true);
    EXPECT_EQ(focused(), "txt_Open");
    page.setEnabled(false);
    page.name.setFocus();
    page.setEnabled(true);
    EXPECT_EQ(focused(), "txt_Name");
    QTest::keyClicks(widgetOf(page.name), "x");
    EXPECT_EQ(page.name.text(), "x");
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

TEST_F(FormWindowTest, LosingTheWindowIsToldOnce) {
    SamplePage other("other");
    show(page);
    int lost = 0;
    page.code.onLostFocus = [&] { ++lost; };
    show(other);
    EXPECT_EQ(lost, 1);
}

TEST_F(FormWindowTest, EveryScaleIsExact) {
    for (const auto& [scale, window, second, font] :
         std::vector<std::tuple<const char*, QSize, QRect, int>>{{"1", {400, 300}, {100, 22, 120, 20}, 12},
                                                                 {"1.5", {600, 450}, {150, 33, 180, 30}, 18},
                                                                 {"2", {800, 600}, {200, 44, 240, 40}, 24}}) {
        SCOPED_TRACE(scale);
        qputenv("ORV_SCALE", scale);
        SamplePage scaled("scaled");
        show(scaled);
        EXPECT_EQ(windowOf(scaled)->size(), window);
        EXPECT_EQ(widgetOf(scaled.name)->geometry(), second);
        EXPECT_EQ(widgetOf(scaled.name)->font().pixelSize(), font);
        forms.unload(scaled, UnloadMode::Code);
    }
}

TEST_F(FormWindowTest, WhatIsDrawnStandsBehindTheControls) {
    qputenv("ORV_SCALE", "1.5");
    page.onLoad = [&] {
        page.canvas().clear(Colour{0xfff6f6});
        page.canvas().draw(DrawnLine{{0, 282}, {400, 282}, Colour{0x0000ff}});
        page.canvas().draw(DrawnBox{{300, 10, 20, 20}, Colour{0x996666}});
    };
    show(page);
    const auto shown = [&] { return windowOf(page)->grab().toImage(); };
    QImage image = shown();
    EXPECT_EQ(image.pixelColor(590, 440).name(), "#f6f6ff");
    EXPECT_EQ(image.pixelColor(590, 423).name(), "#ff0000");
    EXPECT_EQ(image.pixelColor(451, 16).name(), "#666699");
    EXPECT_EQ(image.pixelColor(480, 16).name(), "#f6f6ff");

    const QRect caption(15, 33, 130, 30);
    const QImage written = image.copy(caption);
    page.name.setVisible(false);
    settle();
    EXPECT_NE(shown().copy(caption), written);
}

}  // namespace
}  // namespace orv
