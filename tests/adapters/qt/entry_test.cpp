#include <QAbstractButton>
#include <QClipboard>
#include <QMimeData>
#include <map>
#include <tuple>

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
        {page.code, "", "1a2-34", "1234"},
        {page.code, "123", "456", "1234"},
        {page.name, "", "山ｱ田ｲ", "山田"},
        {page.name, "", "あいうえおか", "あいうえお"},
        {page.name, "a", "あいうえお", "aあいうえ"},
        {page.name, "", "①☃あ", "①☃あ"},
        {page.name, "あいうえお", "x", "あいうえお"},
        {page.kana, "", "やまがAー", "ヤマガー"},
        {page.open, "", "甲\n乙\t丙", "甲乙丙"},
        {page.open, "", "𠮷野家", "𠮷野家"},
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

TEST_F(EntryTest, NothingIsCutWhileACompositionIsOpen) {
    QLineEdit* line = enter(page.kana);
    compose(*line, "やまだたろうはなこx");
    EXPECT_EQ(page.kana.text(), "");
    EXPECT_EQ(line->text(), "");
    compose(*line, {}, "やまだたろうはなこx");
    EXPECT_EQ(page.kana.text(), "ヤマダタロ");
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
        {"tab", [&] { QTest::keyClick(widgetOf(page.name), Qt::Key_Tab); }},
        {"other field", [&] { QTest::mouseClick(widgetOf(page.code), Qt::LeftButton); }},
        {"button", [&] { QTest::mouseClick(widgetOf(page.save), Qt::LeftButton); }},
        {"assistive technology", [&] { widgetOf<QAbstractButton>(page.save)->click(); }},
        {"access key", [&] { pressAccessKey(widgetOf(page.name)); }},
        {"enter", [&] { QTest::keyClick(widgetOf(page.name), Qt::Key_Return); }},
        {"close box", [&] { windowOf(page)->close(); }},
    };
    for (const auto& [end, leave] : ends) {
        SCOPED_TRACE(end);
        page.name.setText("");
        seen.clear();
        compose(*enter(page.name), "かいしゃｱ");
        leave();
        EXPECT_EQ(seen, "かいしゃ");
        EXPECT_EQ(lineOf(page.name)->text(), "かいしゃ");
    }
}

TEST_F(EntryTest, TheCursorAndTheSelectionBehaveAsInAnyField) {
    page.code.setText("129");
    QLineEdit* line = enter(page.code);
    line->setCursorPosition(2);
    byPasting(*line, "a3b45");
    EXPECT_EQ(page.code.text(), "1239");
    EXPECT_EQ(line->cursorPosition(), 3);

    line->setSelection(0, 3);
    byKeys(*line, "x");
    EXPECT_EQ(line->selectedText(), "123");
    byKeys(*line, "7");
    EXPECT_EQ(page.code.text(), "79");
}

TEST_F(EntryTest, ACompositionReplacesTheSelectionAndWhatItNames) {
    page.name.setText("旧会社");
    QLineEdit* line = enter(page.name);
    line->setSelection(0, 1);
    compose(*line, "しん");
    compose(*line, {}, "新ｱ");
    EXPECT_EQ(page.name.text(), "新会社");

    QInputMethodEvent again;
    again.setCommitString("新興", -1, 1);
    QApplication::sendEvent(line, &again);
    EXPECT_EQ(page.name.text(), "新興会社");
}

TEST_F(EntryTest, UndoBringsBackNothingThatWasRefused) {
    QLineEdit* line = enter(page.code);
    byKeys(*line, "1x2");
    byPasting(*line, "yyy98765");
    EXPECT_EQ(page.code.text(), "1298");
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(line, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_TRUE(std::string("1298").starts_with(page.code.text())) << page.code.text();
        EXPECT_EQ(line->text(), toQt(page.code.text()));
    }
    EXPECT_EQ(page.code.text(), "");
}

TEST_F(EntryTest, WhatTheSystemSetsIsNotLimited) {
    const std::string longText(40000, 'x');
    page.code.setText(longText);
    EXPECT_EQ(lineOf(page.code)->text().size(), 40000);
    byKeys(*enter(page.code), "1");
    EXPECT_EQ(page.code.text(), longText);
    page.name.setText("改\n行");
    EXPECT_EQ(page.name.text(), "改\n行");
}

TEST_F(EntryTest, TheInputMethodIsOffWhereTheFieldSaysSo) {
    EXPECT_FALSE(lineOf(page.code)->testAttribute(Qt::WA_InputMethodEnabled));
    EXPECT_FALSE(lineOf(page.secret)->testAttribute(Qt::WA_InputMethodEnabled));
    EXPECT_FALSE(lineOf(page.year)->testAttribute(Qt::WA_InputMethodEnabled));
    EXPECT_TRUE(lineOf(page.kana)->testAttribute(Qt::WA_InputMethodEnabled));
    page.secret.setText("abc");
    EXPECT_EQ(lineOf(page.secret)->displayText(), "***");
}

TEST_F(EntryTest, AHandlerThatSetsAnotherTextWins) {
    page.open.onChange = [&] { page.open.setText("定"); };
    byKeys(*enter(page.open), "x");
    EXPECT_EQ(lineOf(page.open)->text(), "定");
    EXPECT_EQ(page.open.text(), "定");
}

TEST_F(EntryTest, ANumberIsTakenWhenTheFieldIsLeft) {
    for (const auto& [entered, after] : std::map<const char*, const char*>{{"2024", "2024"},
                                                                           {"007", "7"},
                                                                           {"１２", "12"},
                                                                           {"12abc", "12"},
                                                                           {"0", "30"},
                                                                           {"10000", "30"},
                                                                           {"-", "30"},
                                                                           {"", ""}}) {
        SCOPED_TRACE(entered);
        page.year.setText("30");
        QLineEdit* line = enter(page.year);
        line->selectAll();
        QTest::keyClick(line, Qt::Key_Delete);
        byPasting(*line, toQt(entered));
        EXPECT_EQ(page.year.text(), "30");
        QTest::keyClick(line, Qt::Key_Tab);
        EXPECT_EQ(page.year.text(), after);
        EXPECT_EQ(line->text(), toQt(after));
    }
}

TEST_F(EntryTest, ANumberBeingTypedSurvivesARecolouringAndIsTakenOnDemand) {
    QLineEdit* line = enter(page.year);
    byKeys(*line, "15");
    page.year.setBackColour(Colour{0xddddff});
    EXPECT_EQ(line->text(), "15");
    windows.commitComposition();
    EXPECT_EQ(page.year.text(), "15");
}

TEST_F(EntryTest, UpAndDownCountWithinTheRange) {
    for (const auto& [before, key, after] :
         std::vector<std::tuple<const char*, Qt::Key, const char*>>{{"7", Qt::Key_Up, "8"},
                                                                    {"7", Qt::Key_Down, "6"},
                                                                    {"1", Qt::Key_Down, "1"},
                                                                    {"9999", Qt::Key_Up, "9999"},
                                                                    {"", Qt::Key_Up, "1"}}) {
        page.year.setText(before);
        QTest::keyClick(enter(page.year), key);
        EXPECT_EQ(page.year.text(), after) << before;
        EXPECT_EQ(lineOf(page.year)->text(), after);
    }
}

}  // namespace
}  // namespace orv
