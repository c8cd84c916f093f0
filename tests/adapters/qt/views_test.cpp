#include <QAbstractItemView>
#include <QComboBox>
#include <QDir>
#include <QMimeData>
#include <QUrl>
#include <QWheelEvent>

#include "adapters/qt/qt_test.h"
#include "support/scripted_machine.h"

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

    QColor colourAt(const Control& control, QPoint fromRightBottom) const {
        const QImage image = findWidget(control)->grab().toImage();
        return image.pixelColor(image.width() - fromRightBottom.x(), image.height() - fromRightBottom.y());
    }

    SamplePage page;
    int clicks = 0;
};

TEST_F(ViewsTest, ChoosingRaisesTheChoiceOnce) {
    auto* box = findWidget<QComboBox>(page.list);
    enter(page.open);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(page.list.text(), "東京");
    EXPECT_EQ(clicks, 1);
    box->showPopup();
    box->view()->setCurrentIndex(box->model()->index(2, 0));
    QTest::keyClick(box->view(), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return page.list.listIndex() == 2; }, kPatience));
    EXPECT_EQ(clicks, 2);
    box->showPopup();
    QTest::keyClick(box->view(), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicks == 3; })) << "the same entry again, too";
    page.list.onClick = [&] {
        if (page.list.listIndex() != 0) page.list.setListIndex(0);
    };
    QTest::keyClick(box, Qt::Key_Up);
    EXPECT_EQ(page.list.listIndex(), 0);
    EXPECT_EQ(box->currentIndex(), 0) << "a handler that takes the choice back is followed";
}

TEST_F(ViewsTest, EnterAndTheWheelOpenAndChooseNothing) {
    auto* box = findWidget<QComboBox>(page.list);
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

TEST_F(ViewsTest, ColoursReachTheScreen) {
    for (Control* control : std::vector<Control*>{&page.tick, &page.name, &page.year, &page.list}) {
        for (const bool enabled : {true, false}) {
            control->setBackColour(Colour{0xddddff});
            control->setEnabled(enabled);
            const QPoint place(control == &page.list ? 60 : 8, 10);
            EXPECT_EQ(colourAt(*control, place).name(), "#ffdddd") << control->name() << enabled;
        }
        control->setEnabled(true);
    }
    page.tick.setForeColour(Colour{0xffffff});
    EXPECT_EQ(findWidget(page.tick)->palette().color(QPalette::WindowText), QColor(Qt::white));
    EXPECT_NE(colourAt(page.panel, {8, 10}), QColor(Qt::white)) << "it can't be entered";
}

TEST_F(ViewsTest, EveryTextIsLegibleInAllColoursOfTheDesktop) {
    for (TextInput* input : {&page.code, &page.name, &page.kana, &page.open, &page.secret}) {
        input->setText(input == &page.code ? "88" : "あア");
    }
    page.year.setText("8888");
    page.distance.setText("88.8");
    page.list.setListIndex(0);
    const auto measureContrast = [](QWidget& widget) {
        const QImage image = widget.grab(widget.rect().adjusted(4, 4, -4, -4)).toImage();
        int darkest = 255;
        int lightest = 0;
        for (int i = 0; i < image.width() * image.height(); ++i) {
            const int grey = qGray(image.pixel(i % image.width(), i / image.width()));
            darkest = std::min(darkest, grey);
            lightest = std::max(lightest, grey);
        }
        return lightest - darkest;
    };
    const QPalette usual = QApplication::palette();
    for (const bool given : {false, true}) {
        for (const QColor& desktop : {QColor(Qt::white), QColor(0x2a, 0x2e, 0x32), QColor(Qt::black)}) {
            QPalette colours(desktop);
            QApplication::style()->polish(colours);
            QApplication::setPalette(colours);
            for (Control* control : page.controls()) {
                if (given && control->kind() < ControlKind::Label) {
                    control->setBackColour(Colour{0xddddff});
                }
                for (const bool enabled : {true, false, true}) {
                    control->setEnabled(enabled);
                    EXPECT_TRUE(control == &page.photo || measureContrast(*findWidget(*control)) > 128)
                        << control->name() << given << desktop.name().toStdString() << enabled;
                }
            }
        }
    }
    QApplication::setPalette(usual);
}

TEST_F(ViewsTest, APictureIsPaintedAtItsDestinationAndCutAndAgainAsItWas) {
    BlankPictures pictures;
    services().pictures = &pictures;
    page.photo.setDstRect({10, 4, 20, 10});
    page.photo.setDstClipRect({10, 4, 15, 10});
    const QColor empty = findWidget(page.photo)->grab().toImage().pixelColor(20, 10);
    page.photo.load("a.jpg");
    const QImage image = findWidget(page.photo)->grab().toImage();
    EXPECT_EQ(image.pixelColor(12, 8), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(23, 8), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(27, 8), empty);
    const std::vector<std::uint32_t> inItsPlace(200, 0xff00ff00U);
    EXPECT_EQ(findWidget(page.photo)->grab().toImage(), image) << inItsPlace.size() << " pixels later";
    page.photo.setBackErase(false);
    EXPECT_EQ(findWidget(page.photo)->grab().toImage(), image);
    page.photo.setDstRect({0, 0, 300, 20});
    page.photo.setDstClipRect({0, 0, 120, 20});
    for (const auto& [scrolls, shown] : {std::pair{false, Qt::red}, {true, Qt::blue}}) {
        page.photo.setAutoScroll(scrolls);
        page.photo.scrollBy(1000, 1000);
        EXPECT_EQ(findWidget(page.photo)->grab().toImage().pixelColor(38, 10), QColor(shown));
    }
}

TEST_F(ViewsTest, AFileIsDroppedOnAPictureThatTakesOne) {
    std::string dropped;
    page.photo.onDrop = [&](const std::string& file) { dropped = file; };
    const auto drop = [&](const QList<QUrl>& urls) {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.setDropAction(Qt::MoveAction);
        QApplication::sendEvent(findWidget(page.photo), &enter);
        QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        if (enter.isAccepted()) {
            EXPECT_EQ(enter.dropAction(), Qt::CopyAction) << "the source keeps its file";
            QApplication::sendEvent(findWidget(page.photo), &event);
        }
        EXPECT_EQ(dropped, "") << "the other program must not wait for it";
        settle();
        return std::exchange(dropped, "");
    };
    const QUrl photo = QUrl::fromLocalFile("/tmp/写真.jpg");
    EXPECT_EQ(drop({photo}), "");
    page.photo.setAcceptsDrops(true);
    EXPECT_EQ(drop({photo}), QDir::toNativeSeparators(photo.toLocalFile()).toStdString());
    EXPECT_EQ(drop({photo, QUrl::fromLocalFile("/tmp/b.jpg")}), "") << "which of them is meant";
    page.setEnabled(false);
    EXPECT_EQ(drop({photo}), "");
    page.setEnabled(true);
    QTimer::singleShot(0, qApp, [&] {
        EXPECT_EQ(drop({photo}), "") << "under a notice";
        QApplication::activeModalWidget()->close();
    });
    windows.showNotice({.title = "題", .text = "文"});
}

}  // namespace
}  // namespace orv
