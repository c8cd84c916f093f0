#include <QAbstractItemView>
#include <QComboBox>
#include <QMimeData>
#include <QUrl>
#include <QWheelEvent>
#include <tuple>

#include "adapters/qt/qt_test.h"

namespace orv {
namespace {

class ViewsTest : public QtTest {
protected:
    ViewsTest() {
        page.list.addItems({"東京", "神奈川", "千葉"});
        page.list.onClick = [this] { ++clicks; };
        page.tick.onClick = [this] { ++clicks; };
        page.save.onClick = [this] { ++clicks; };
        show(page);
    }

    QColor colourOf(const Control& control, QPoint fromRightBottom) const {
        const QImage image = widgetOf(control)->grab().toImage();
        return image.pixelColor(image.width() - fromRightBottom.x(), image.height() - fromRightBottom.y());
    }

    SamplePage page;
    int clicks = 0;
};

TEST_F(ViewsTest, ChoosingRaisesTheChoiceOnce) {
    auto* box = widgetOf<QComboBox>(page.list);
    enter(page.open);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(page.list.text(), "東京");
    EXPECT_EQ(clicks, 1);
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(page.list.text(), "神奈川");
    EXPECT_EQ(clicks, 2);

    box->showPopup();
    box->view()->setCurrentIndex(box->model()->index(2, 0));
    QTest::keyClick(box->view(), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return page.list.listIndex() == 2; }));
    EXPECT_EQ(clicks, 3);
}

TEST_F(ViewsTest, AListFollowsTheSystem) {
    const auto* box = widgetOf<QComboBox>(page.list);
    EXPECT_EQ(box->currentIndex(), -1);
    page.list.setText("千葉");
    EXPECT_EQ(box->currentIndex(), 2);
    EXPECT_EQ(clicks, 1);
    page.list.clear();
    EXPECT_EQ(box->count(), 0);
    EXPECT_EQ(box->currentIndex(), -1);
    page.list.addItem("埼玉");
    EXPECT_EQ(box->currentIndex(), -1);
    page.list.setListIndex(0);
    EXPECT_EQ(box->currentText(), "埼玉");
    EXPECT_EQ(clicks, 2);
}

TEST_F(ViewsTest, AListStandsInExactlyItsColour) {
    EXPECT_EQ(colourOf(page.list, {60, 10}).name(), "#ffffff") << "of the system";
    page.list.setBackColour(Colour{0xddddff});
    EXPECT_EQ(colourOf(page.list, {60, 10}).name(), "#ffdddd");
    page.list.setEnabled(false);
    page.list.setBackColour(Colour{0xe0e0e0});
    EXPECT_EQ(colourOf(page.list, {60, 10}).name(), "#e0e0e0");
}

TEST_F(ViewsTest, AHandlerThatTakesTheChoiceBackIsFollowed) {
    page.list.setListIndex(0);
    page.list.onClick = [&] {
        if (page.list.listIndex() != 0) page.list.setListIndex(0);
    };
    auto* box = widgetOf<QComboBox>(page.list);
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(page.list.listIndex(), 0);
    EXPECT_EQ(box->currentIndex(), 0);
}

TEST_F(ViewsTest, EnterAndTheWheelOpenAndChooseNothing) {
    auto* box = widgetOf<QComboBox>(page.list);
    box->setFocus();
    int key = 0;
    page.list.onKeyDown = [&](int code) { key = code; };
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(key, kKeyEnter);
    EXPECT_FALSE(box->view()->isVisible());
    QWheelEvent wheel(QPointF(5, 5), box->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(box, &wheel);
    EXPECT_EQ(page.list.listIndex(), -1);
}

TEST_F(ViewsTest, ATickIsChangedOncePerClickAndKey) {
    QWidget* box = widgetOf(page.tick);
    box->setFocus();
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, {6, 10});
    EXPECT_EQ(page.tick.value(), 1);
    QTest::keyClick(box, Qt::Key_Space);
    EXPECT_EQ(page.tick.value(), 0);
    EXPECT_EQ(clicks, 2);
    page.tick.setValue(2);
    QTest::keyClick(box, Qt::Key_Space);
    EXPECT_NE(page.tick.value(), 2);
    EXPECT_EQ(clicks, 4);
}

TEST_F(ViewsTest, ColoursReachTheScreen) {
    struct Case {
        Control& control;
        Colour back;
        Colour fore;
    };
    for (const Case& row : {Case{page.tick, {0xff8080}, {0xffffff}}, Case{page.tick, {0xffdddd}, {0x000000}},
                            Case{page.name, {0xddddff}, {0x000000}}, Case{page.year, {0xe0e0e0}, {0x000000}}}) {
        for (const bool enabled : {true, false}) {
            SCOPED_TRACE(row.control.name() + (enabled ? "" : " disabled"));
            row.control.setBackColour(row.back);
            row.control.setForeColour(row.fore);
            row.control.setEnabled(enabled);
            EXPECT_EQ(colourOf(row.control, {8, 10}).name(), toQt(row.back).name());
        }
        row.control.setEnabled(true);
    }
    page.tick.setForeColour(Colour{0xffffff});
    EXPECT_EQ(widgetOf(page.tick)->palette().color(QPalette::WindowText), QColor(Qt::white));
    EXPECT_EQ(colourOf(page.panel, {8, 10}), QColor(Qt::white));
}

TEST_F(ViewsTest, AButtonIsPressedOnceWhicheverWay) {
    QWidget* button = widgetOf(page.save);
    const std::vector<std::pair<const char*, std::function<void()>>> ways{
        {"mouse", [&] { QTest::mouseClick(button, Qt::LeftButton); }},
        {"blank", [&] { QTest::keyClick(button, Qt::Key_Space); }},
        {"enter", [&] { QTest::keyClick(button, Qt::Key_Return); }},
        {"keypad", [&] { QTest::keyClick(button, Qt::Key_Enter, Qt::KeypadModifier); }},
        {"access key", [&] { pressAccessKey(widgetOf(page.open)); }},
    };
    const auto pressed = [&](const auto& way) {
        const int before = clicks;
        enter(page.open);
        if (button->isEnabled()) button->setFocus();
        way();
        return clicks - before;
    };
    for (const auto& [name, way] : ways) {
        SCOPED_TRACE(name);
        EXPECT_EQ(pressed(way), 1);
        page.save.setEnabled(false);
        EXPECT_EQ(pressed(way), 0);
        page.save.setEnabled(true);
    }
    QTest::keyEvent(QTest::Press, button, Qt::Key_Return);
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QApplication::sendEvent(button, &repeated);
    EXPECT_EQ(clicks, 6);
}

TEST_F(ViewsTest, EveryControlCanBeFoundByNameAndHeard) {
    for (const auto& [control, object, spoken] :
         std::vector<std::tuple<Control*, const char*, const char*>>{{&page.code, "txt_Code", "番号"},
                                                                     {&page.open, "txt_Open", "何でも"},
                                                                     {&page.year, "txt_Year", "年"},
                                                                     {&page.list, "cbo_List", "一覧"},
                                                                     {&page.tick, "chk_Tick", "上記と同じ"},
                                                                     {&page.bare, "chk_Bare(0)", "加盟"},
                                                                     {&page.save, "btm_Save", "保存"},
                                                                     {&page.panel, "lbl_Panel", "件数：12"}}) {
        EXPECT_EQ(widgetOf(*control)->objectName(), toQt(object));
        EXPECT_EQ(widgetOf(*control)->accessibleName(), toQt(spoken));
    }
    page.panel.setCaption("13");
    EXPECT_EQ(widgetOf(page.panel)->accessibleName(), toQt("件数：13"));
}

/// Red on its left half, blue on its right.
class TwoColours : public Picture {
public:
    int width() const override { return 20; }
    int height() const override { return 10; }
    Pixels scaled(int width, int height) const override {
        Pixels pixels{width, height, {}};
        for (int i = 0; i < width * height; ++i) {
            pixels.argb.push_back(i % width < width / 2 ? 0xffff0000U : 0xff0000ffU);
        }
        return pixels;
    }
    void size(int, int) override {}
    void save(const std::string&, std::int32_t, std::int32_t, int) const override {}
};

class OnePicture : public PictureLibrary {
public:
    PictureInfo info(const std::string&) const override { return {}; }
    std::unique_ptr<Picture> load(const std::string&, PictureSize) const override {
        return std::make_unique<TwoColours>();
    }
};

TEST_F(ViewsTest, APictureIsPaintedAtItsDestinationAndCut) {
    OnePicture pictures;
    services().pictures = &pictures;
    page.photo.setDstRect({10, 4, 40, 12});
    page.photo.setDstClipRect({10, 4, 30, 12});
    const QColor empty = widgetOf(page.photo)->grab().toImage().pixelColor(20, 10);
    page.photo.load("a.jpg");
    const QImage image = widgetOf(page.photo)->grab().toImage();
    EXPECT_EQ(image.pixelColor(15, 10), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(38, 10), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(45, 10), empty);
    EXPECT_EQ(image.pixelColor(5, 10), empty);
    page.photo.clear();
    EXPECT_EQ(widgetOf(page.photo)->grab().toImage().pixelColor(15, 10), empty);
}

TEST_F(ViewsTest, APictureAtItsOwnSizeIsPaintedAgainAsItWas) {
    OnePicture pictures;
    services().pictures = &pictures;
    page.photo.setDstRect({0, 0, 20, 10});
    page.photo.setDstClipRect({0, 0, 20, 10});
    page.photo.load("any");
    show(page);
    const QImage first = widgetOf(page.photo)->grab().toImage();
    // Takes the memory that the picture's pixels had.
    const std::vector<std::vector<std::uint32_t>> others(32, std::vector<std::uint32_t>(256, 0xff00ff00U));
    EXPECT_EQ(widgetOf(page.photo)->grab().toImage(), first);
    EXPECT_EQ(first.pixelColor(15, 5), QColor(Qt::blue));
}

TEST_F(ViewsTest, AFileIsDroppedOnAPictureThatTakesOne) {
    std::string dropped;
    page.photo.onDrop = [&](const std::string& file) { dropped = file; };
    const auto drop = [&](const QList<QUrl>& urls) {
        QMimeData data;
        data.setUrls(urls);
        QWidget* area = widgetOf(page.photo);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(area, &enter);
        if (enter.isAccepted()) {
            QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(area, &event);
            EXPECT_EQ(dropped, "") << "the other program must not wait for it";
            settle();
        }
        return std::exchange(dropped, "");
    };
    const QUrl photo = QUrl::fromLocalFile("/tmp/写真.jpg");
    EXPECT_EQ(drop({photo}), "");
    page.photo.setAcceptsDrops(true);
    EXPECT_EQ(drop({photo}), "/tmp/写真.jpg");
    EXPECT_EQ(drop({QUrl("http://localhost/a.jpg")}), "");
    EXPECT_EQ(drop({photo, QUrl::fromLocalFile("/tmp/b.jpg")}), "") << "which of them is meant";
    for (const bool enabled : {false, true}) {
        page.setEnabled(enabled);
        EXPECT_EQ(drop({photo}), enabled ? "/tmp/写真.jpg" : "");
    }
    QTimer::singleShot(0, qApp, [&] {
        EXPECT_EQ(drop({photo}), "") << "under a notice";
        QApplication::activeModalWidget()->close();
    });
    windows.showNotice({.title = "題", .text = "文"});
    page.photo.setEnabled(false);
    EXPECT_EQ(drop({photo}), "");
}

}  // namespace
}  // namespace orv
