#include <QClipboard>
#include <QHelpEvent>
#include <QMimeData>
#include <QToolTip>
#include <map>

#include "adapters/qt/qt_test.h"

namespace orv {
namespace {

using Way = void (*)(QLineEdit& line, const QString& text);

void byKeys(QLineEdit& line, const QString& text) {
    for (const char32_t character : text.toStdU32String()) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUcs4(&character, 1));
        QApplication::sendEvent(&line, &press);
    }
}

void byPasting(QLineEdit& line, const QString& text) {
    QApplication::clipboard()->setText(text);
    QTest::keyClick(&line, Qt::Key_V, Qt::ControlModifier);
}

void byComposing(QLineEdit& line, const QString& text) {
    compose(line, text);
    compose(line, {}, text);
}

void byDropping(QLineEdit& line, const QString& text) {
    QMimeData data;
    data.setText(text);
    const QPoint at(line.width() - 4, 8);
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&line, &enter);
    QDragMoveEvent move(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    move.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(&line, &move);
    EXPECT_EQ(move.dropAction(), Qt::CopyAction) << "the source keeps its text";
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&line, &drop);
}

constexpr std::array<std::pair<const char*, Way>, 4> kWays{
    {{"keys", byKeys}, {"pasting", byPasting}, {"composing", byComposing}, {"dropping", byDropping}}};

class EntryTest : public QtTest {
protected:
    EntryTest() { show(page); }
    SamplePage page;
};

TEST_F(EntryTest, EveryWayOfEnteringIsMaskedAndCut) {
    struct Case {
        TextInput& control;
        const char* before;
        const char* entered;
        const char* after;
    };
    const std::vector<Case> cases{
        {page.code, "", "1a２-3４", "1234"},           {page.name, "", "山ｱ田ｲ", "山田"},
        {page.name, "", "あいうえおか", "あいうえお"}, {page.name, "a", "あいうえお", "aあいうえ"},
        {page.kana, "", "やまがAー", "ヤマガー"},      {page.open, "", "甲\n乙\t丙", "甲乙丙"},
    };
    for (const auto& [wayName, way] : kWays) {
        for (const Case& row : cases) {
            SCOPED_TRACE(std::string(wayName) + ": " + row.entered);
            row.control.setText(row.before);
            QLineEdit* line = enter(row.control);
            line->setCursorPosition(static_cast<int>(line->text().size()));
            way(*line, toQt(row.entered));
            EXPECT_EQ(row.control.text(), row.after);
            EXPECT_EQ(line->text(), toQt(row.after));
        }
    }
}

TEST_F(EntryTest, AnOpenCompositionIsTakenBeforeAnythingElse) {
    std::string seen;
    page.save.onClick = [&] { seen = page.name.text(); };
    page.name.onValidate = [&] { seen = page.name.text(); };
    page.onQueryUnload = [&](bool& kept, UnloadMode) {
        seen = page.name.text();
        kept = true;
    };
    page.name.onKeyDown = [&](int) { seen = page.name.text(); };
    const std::map<std::string, std::function<void()>> ends{
        {"tab", [&] { QTest::keyClick(findWidget(page.name), Qt::Key_Tab); }},
        {"button", [&] { QTest::mouseClick(findWidget(page.save), Qt::LeftButton); }},
        {"access key", [&] { pressAccessKey(findWidget(page.name)); }},
        {"enter", [&] { QTest::keyClick(findWidget(page.name), Qt::Key_Return); }},
        {"close box", [&] { findWindow(page)->close(); }},
    };
    for (const auto& [end, leave] : ends) {
        SCOPED_TRACE(end);
        page.name.setText("");
        seen.clear();
        compose(*enter(page.name), "かいしゃｱ");
        leave();
        EXPECT_EQ(seen, "かいしゃ");
        EXPECT_EQ(findLine(page.name)->text(), "かいしゃ");
    }
}

TEST_F(EntryTest, AssignmentsByTheSystemAreNotLimited) {
    const std::string longText(40000, 'x');
    page.code.setText(longText);
    EXPECT_EQ(findLine(page.code)->text().size(), 40000);
    byKeys(*enter(page.code), "1");
    EXPECT_EQ(page.code.text(), longText);
    page.secret.setText("abc");
    EXPECT_EQ(findLine(page.secret)->displayText(), "***");
}

TEST_F(EntryTest, ARefusalIsExplainedUntilTheNextKey) {
    const std::vector<std::tuple<const Control*, const char*, QString>> cases{
        {&page.code, "x", "半角の数字で入力してください。"},
        {&page.name, "漢字漢字漢字", "全角5文字（10バイト）までです。"},
        {&page.year, "10000", "1～9999の数を入力してください。"},
    };
    int beeps = 0;
    for (const auto& [control, entered, advice] : cases) {
        QLineEdit* line = enter(*control);
        byPasting(*line, entered);
        if (control == &page.year) {
            QTest::keyClick(line, Qt::Key_Tab);
        }
        EXPECT_TRUE(QTest::qWaitFor([&] { return QToolTip::isVisible() && QToolTip::text() == advice; })) << entered;
        EXPECT_EQ(windows.beeps, ++beeps) << entered;
        EXPECT_EQ(line->accessibleDescription(), advice);
        QTest::keyClick(line, Qt::Key_Home);
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); })) << entered;
        EXPECT_EQ(line->accessibleDescription(), "") << entered;
    }
    byKeys(*enter(page.code), "xx");
    QTest::qWait(400);
    EXPECT_TRUE(QToolTip::isVisible()) << "the second key does not hide the bubble of its own refusal";
}

TEST_F(EntryTest, ATipGivesTheLimitAndATextThatIsLongerThanItsField) {
    const std::string longText = "架空不動産流通株式会社　見本駅前店　賃貸営業部";
    page.kana.setText(longText);
    for (const auto& [control, tip] : std::vector<std::pair<const Control*, std::string>>{
             {&page.name, "全角5文字（10バイト）までです。"},
             {&page.kana, longText + "\n全角5文字（10バイト）までです。"},
             {&page.code, "4文字までです。"},
             {&page.year, "1～9999の数を入力してください。"}}) {
        QHelpEvent pause(QEvent::ToolTip, {}, findLine(*control)->mapToGlobal(QPoint()));
        QApplication::sendEvent(findLine(*control), &pause);
        EXPECT_EQ(QToolTip::text().toStdString(), tip);
    }
}

/// A focused number field uses another format, and its value is accepted when the focus leaves.
TEST_F(EntryTest, ANumberInItsTwoFormats) {
    struct Case {
        NumberInput& input;
        const char *before, *atWork, *typed, *after, *read;
    };
    constexpr const char* kUntouched = nullptr;
    for (const Case& c : std::vector<Case>{{page.year, "30", "30", "2024", "2024", "2024"},
                                           {page.year, "30", "30", "１２", "12", "12"},
                                           {page.year, "30", "30", "10000", "30", "30"},
                                           {page.year, "30", "30", "", "", ""},
                                           {page.distance, "", "0", kUntouched, "", ""},
                                           {page.distance, "", "0", "0", "0", ""},
                                           {page.distance, "0.5", "0.5", kUntouched, "0.5", ".5"}}) {
        c.input.setText(c.before);
        QLineEdit* line = enter(c.input);
        EXPECT_EQ(line->text(), c.atWork);
        if (c.typed != kUntouched) {
            line->selectAll();
            QTest::keyClick(line, Qt::Key_Delete);
            byPasting(*line, toQt(c.typed));
        }
        EXPECT_EQ(c.input.text(), c.before);
        QTest::keyClick(line, Qt::Key_Tab);
        EXPECT_EQ(c.input.text(), c.after);
        EXPECT_EQ(line->text(), toQt(c.read));
    }
}

TEST_F(EntryTest, ANumberTakesItsOpenComposition) {
    page.year.setText("30");
    QLineEdit* line = enter(page.year);
    line->selectAll();
    compose(*line, "１２");
    QTest::keyClick(line, Qt::Key_Tab);
    EXPECT_EQ(page.year.text(), "12");
}

TEST_F(EntryTest, InputMethodsLearnWhereTheyCanCompose) {
    const std::map<const Control*, bool> allowed{
        {&page.code, false}, {&page.name, true}, {&page.secret, false}, {&page.year, false}};
    for (const auto& [control, expected] : allowed) {
        QInputMethodQueryEvent query(Qt::ImEnabled);
        QApplication::sendEvent(findWidget(*control), &query);
        EXPECT_EQ(query.value(Qt::ImEnabled).toBool(), expected) << control->name();
    }
}

TEST_F(EntryTest, ASelectedTextChangesOnlyWhenItsCompositionEnds) {
    struct Case {
        const char* commit;
        const char* after;
        int changes;
    };
    int changes = 0;
    page.name.onChange = [&] { ++changes; };
    for (const Case& row : {Case{"大阪", "大阪", 1}, {"ｵｵｻｶ", "東京", 0}, {"", "", 1}}) {
        SCOPED_TRACE(row.commit);
        page.name.setText("東京");
        changes = 0;
        QLineEdit* line = enter(page.name);
        line->selectAll();
        compose(*line, "おおさか");
        EXPECT_EQ(page.name.text(), "東京");
        page.name.setEnabled(true);
        compose(*line, {}, row.commit);
        EXPECT_EQ(page.name.text(), row.after);
        EXPECT_EQ(line->text(), row.after);
        EXPECT_EQ(changes, row.changes);
    }
}

TEST_F(EntryTest, ACommitThatComesLateIsNotTakenTwice) {
    compose(*enter(page.name), "かな");
    QLineEdit* next = enter(page.open);
    compose(*next, {}, "かな");
    EXPECT_EQ(page.name.text() + "|" + page.open.text(), "かな|");
    byComposing(*next, "かな");
    compose(*next, {}, "!");
    EXPECT_EQ(page.open.text(), "かな!");
}

TEST_F(EntryTest, KeysUndoAndOpenTheMenu) {
    QLineEdit* line = enter(page.open);
    byKeys(*line, "a");
    QTest::keyClick(line, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(page.open.text(), "");
    QTest::keyClick(line, Qt::Key_Y, Qt::ControlModifier);
    line->selectAll();
    compose(*line, {}, "\n");
    EXPECT_EQ(page.open.text(), "a") << "a refused commit undoes nothing";
    QTest::keyClick(line, Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QApplication::activePopupWidget()->close();
}

}  // namespace
}  // namespace orv
