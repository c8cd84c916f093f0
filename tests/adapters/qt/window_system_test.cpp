#include <unistd.h>

#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTreeView>
#include <algorithm>
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

TEST_F(WindowSystemTest, AModalFormShowsNoHourglass) {
    SamplePage dialog;
    place(dialog);
    windows.pointer(true);
    meanwhile([&](QWidget&) {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        forms.unload(dialog, UnloadMode::Code);
    });
    forms.showModal(dialog);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    windows.pointer(false);
}

bool isJapanese(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar each) { return each.unicode() >= 0x3000; });
}

TEST_F(WindowSystemTest, TheOpenDialogGivesOneFileThatIsThere) {
    const QTemporaryDir folder;
    for (const char* name : {"写真.jpg", "b.JPG", "c.png"}) {
        QFile(folder.filePath(name)).open(QIODevice::WriteOnly);
    }
    const FileQuestion question{"ファイルを開く", "JPEGファイル|*.jpg", folder.path().toStdString()};
    const auto pickedBy = [&](const std::function<void(QWidget&, QLineEdit&)>& act) {
        meanwhile([&](QWidget& box) { act(box, *box.findChild<QLineEdit*>("fileNameEdit")); });
        return windows.openFile(question).value_or("cancelled");
    };
    const auto enterName = [&](const QString& name) {
        return pickedBy([&](QWidget&, QLineEdit& line) {
            line.setText(name);
            QTest::keyClick(&line, Qt::Key_Return);
        });
    };
    EXPECT_EQ(enterName("写真.jpg"), folder.filePath("写真.jpg").toStdString());
    EXPECT_EQ(enterName(folder.filePath("c.png")), folder.filePath("c.png").toStdString()) << "the filter only hides";
    EXPECT_EQ(pickedBy([](QWidget& box, QLineEdit&) { QTest::keyClick(&box, Qt::Key_Escape); }), "cancelled");
    EXPECT_EQ(pickedBy([](QWidget& box, QLineEdit&) { box.close(); }), "cancelled");
}

TEST_F(WindowSystemTest, TheOpenDialogSpeaksJapanese) {
    meanwhile([](QWidget& box) {
        EXPECT_EQ(box.windowTitle(), "ファイルを開く");
        int words = 0;
        const auto expectJapanese = [&](const QString& text) {
            words += text.isEmpty() ? 0 : 1;
            EXPECT_TRUE(text.isEmpty() || isJapanese(text)) << text.toStdString();
        };
        for (const auto* button : box.findChildren<QAbstractButton*>()) {
            if (button->isVisible()) {
                expectJapanese(button->text());
                expectJapanese(button->toolTip());
            }
        }
        for (const auto* label : box.findChildren<QLabel*>()) {
            expectJapanese(label->isVisible() ? label->text() : QString());
        }
        const auto* list = box.findChild<QTreeView*>("treeView");
        for (int column = 0; column < list->model()->columnCount(); ++column) {
            expectJapanese(list->isColumnHidden(column) ? QString()
                                                        : list->model()->headerData(column, Qt::Horizontal).toString());
        }
        EXPECT_GE(words, 12);
        box.close();
    });
    windows.openFile({"ファイルを開く", "JPEGファイル|*.jpg", "/there/is/none"});
}

/// Its panel is as wide as the form.
struct FreeForm : Form {
    explicit FreeForm(Point size) : Form("free", "自由", size, Sizing::Free) {
        onResize = [this] { panel.setWidth(scaleWidth()); };
    }
    ~FreeForm() override { services().forms->unload(*this, UnloadMode::Code); }
    Label panel{*this, "lbl_Panel", {.look = LabelLook::Panel}};
};

TEST_F(WindowSystemTest, AFormOfFreeSizeBeginsWithinTheScreenAndItsControlsFollow) {
    qputenv("ORV_SCALE", "2");
    FreeForm form({5000, 5000});
    show(form);
    QWidget* window = windowOf(form);
    const QSize screen = window->screen()->availableSize();
    EXPECT_TRUE(QRect({}, screen).contains(QRect({}, window->size())));
    EXPECT_EQ(form.scaleWidth(), window->width() / 2);
    EXPECT_EQ(widgetOf(form.panel)->width(), window->width());
    window->resize(300, 200);
    settle();
    EXPECT_EQ(form.scaleWidth(), 150);
    EXPECT_EQ(form.scaleHeight(), 100);
    EXPECT_EQ(widgetOf(form.panel)->width(), 300);
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
