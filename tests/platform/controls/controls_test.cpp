#include <array>

#include "platform/controls/captions.h"
#include "platform/controls/check_box.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/image_control.h"
#include "platform/controls/input_advice.h"
#include "platform/controls/input_rules.h"
#include "platform/controls/number_input.h"
#include "platform/utf8.h"
#include "support/form_test.h"
#include "support/scripted_machine.h"

namespace orv {
namespace {

class InputRules : public FormTest {};

struct ClassRow {
    std::string_view sign;
    std::string_view held;
    std::string_view refused;
};

// Each row: characters in the class, and neighbours just outside.
constexpr auto kClasses = std::to_array<ClassRow>({
    {"9", "0189", "/:a ０-"},
    {"#", "09!-&(/:@[`{~", "a A'０ア"},
    {"a", "az", "AZ`{1ａ"},
    {"A", "AZ", "az@[1Ａ"},
    {"@", "!&(/:@[`{~-_.", "09aZ' ＠"},
    {"K", "｡ｦｱﾝﾞﾟｰ", "ア。a"},
    {"ａ", "ａｚ", "Ａa"},
    {"Ａ", "ＡＺ", "ａA"},
    {"＃", "０９！＠　（）－、。￥～", "0!ア漢ａ"},
    {"＠", "！＠　（）－、。￥～〒★→", "０@ア漢ａ"},
    {"Ｋ", "ァアンヴヶー・ヽヾ", "ｱあ漢、"},
});

TEST_F(InputRules, ClassesContainTheCharactersOfTheirNames) {
    for (const ClassRow& row : kClasses) {
        for (const char32_t character : toCharacters(row.held)) {
            EXPECT_TRUE(maskHolds(row.sign, character)) << row.sign << " " << toUtf8({&character, 1});
        }
        for (const char32_t character : toCharacters(row.refused)) {
            EXPECT_FALSE(maskHolds(row.sign, character)) << row.sign << " " << toUtf8({&character, 1});
        }
    }
}

struct EntryRow {
    TextDesign design;
    std::string kept, entered, admitted;
    std::string advice = {};
};

TEST_F(InputRules, InputIsFilteredAndThenCut) {
    const std::array<EntryRow, 14> rows{{
        {{}, "", "何でもabcｱ ''", "何でもabcｱ ''"},
        {{}, "", "line\r\nbreak\tand\x7f", "linebreakand"},
        {{.limit = characters(4)}, "あいうえお", "か", "", "4文字までです。"},
        {{.limit = bytes(5)}, "a", "あいう", "あい", "全角2文字（5バイト）までです。"},
        {{.limit = bytes(5)}, "", "ｱｲｳｴｵｶ", "ｱｲｳｴｵ", "全角2文字（5バイト）までです。"},
        // A character missing in the code page counts as one byte, because it is written as "?".
        {{.limit = bytes(3)}, "", "😀あb", "😀あ", "全角1文字（3バイト）までです。"},
        // A rejected character does not count.
        {{.mask = "9", .limit = characters(2)}, "", "a1b2c3", "12", "半角の数字で入力してください。"},
        {{.limit = bytes(12), .ime = Ime::FullKatakana}, "", "ﾊﾟｳﾞｶﾞﾅﾞぁ", "パヴガナ゛ァ"},
        {{.mask = "Ｋ"}, "", "ア漢", "ア", "カタカナで入力してください。"},
        {{.mask = "aA9#@"}, "", "ａ！～漢", "a!~", "半角の英数字と記号で入力してください。"},
        {{.refuse = "K"}, "", "山ｱ", "山", "半角カタカナは使えません。"},
        {{.mask = "#", .limit = characters(12)}, "", "０３－１２３４ー５６７８", "03-1234-5678"},
        {{.mask = "9"}, "", "１－２ー３", "123", "半角の数字で入力してください。"},
        {{.mask = "ＫＡａ＠＃"}, "", "ａー－1", "ａー－", "カタカナで入力してください。"},
    }};
    for (const EntryRow& row : rows) {
        EXPECT_EQ(admit(row.design, row.kept, row.entered), row.admitted) << row.entered;
        EXPECT_EQ(refusalAdvice(row.design, row.kept, row.entered), row.advice) << row.entered;
    }
}

constexpr int kInvalidValue = 380;
constexpr int kNotInList = 383;

class Controls : public FormTest {
protected:
    Form form{"frm_Test", "", {100, 100}};
    int raised = 0;
    std::function<void()> count = [this] { ++raised; };
};

TEST_F(Controls, ListChoosesByPlaceAndByText) {
    ComboBox list{form, "cbo", {}};
    list.addItems({"売買", "賃貸", "売買"});
    list.onClick = count;
    list.setListIndex(2);
    EXPECT_EQ(list.text(), "売買");
    list.setListIndex(2);
    EXPECT_EQ(raised, 1) << "no change, no click";
    list.setText("売買");
    EXPECT_EQ(list.listIndex(), 2) << "of two alike the chosen one stays";
    EXPECT_EQ(raised, 2) << "a text clicks even when it is chosen already";
    list.setListIndex(-1);
    EXPECT_EQ(raised, 3);
    EXPECT_EQ(list.text(), "");
    list.setText("賃貸");
    list.clear();
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_EQ(raised, 4) << "clearing raises nothing";
    list.addItem("賃貸");
    list.setEnabled(false);
    list.setText("賃貸");
    EXPECT_EQ(raised, 4) << "nor does a disabled list";
}

TEST_F(Controls, ListRejectsOtherItemsAndKeepsItsSelection) {
    ComboBox list{form, "cbo", {}};
    list.addItem("賃貸");
    list.setListIndex(0);
    list.onClick = count;
    EXPECT_EQ(catchFailure([&] { list.setText("売買"); }), kNotInList);
    EXPECT_EQ(catchFailure([&] { list.setListIndex(1); }), kInvalidValue);
    EXPECT_EQ(catchFailure([&] { list.setListIndex(-2); }), kInvalidValue);
    EXPECT_EQ(list.listIndex(), 0);
    EXPECT_EQ(list.list(1), "") << "one past the end is read by the page fill";
    EXPECT_EQ(raised, 0);
}

TEST_F(Controls, ANumberIsShownAsItsFormatSays) {
    struct Case {
        Value number;
        const char *format, *shown;
    };
    for (const Case& c : {Case{0.0, "##.#;;", ""},      Case{5.0, "##.#;;", "5"},  Case{0.5, "##.#;;", ".5"},
                          Case{99.9, "##.#;;", "99.9"}, Case{{}, "##.#;;", ""},    Case{0.0, "#0.#;;;0", "0"},
                          Case{0.5, "#0.#;;;0", "0.5"}, Case{{}, "#0.#;;;0", "0"}, Case{2030, "####;;;", "2030"},
                          Case{{}, "####;;;", ""},      Case{12, "##", "12"},      Case{-123, "##", "-123"},
                          Case{-2, "#;;", "-2"},        Case{-2, "#;0.0;", "2.0"}, Case{0, "#;#;00", "00"},
                          Case{3, "000.0#", "003.0"},   Case{1.5, "", "1.5"},      Case{{}, "", ""},
                          Case{1e15, "", "1e+15"},      Case{1e-5, "", "1e-05"}}) {
        EXPECT_EQ(formatNumber(c.number, c.format), c.shown) << c.format;
    }
}

TEST_F(Controls, AFormThatItsOwnLoadUnloadsIsNotShown) {
    form.onLoad = [&] { forms.unload(form, UnloadMode::Code); };
    forms.show(form);
    forms.showModal(form);
    EXPECT_FALSE(form.visible());
    EXPECT_EQ(forms.activeForm(), nullptr);
    EXPECT_EQ(windows.calls,
              (std::vector<std::string>{"open frm_Test", "close frm_Test", "open frm_Test", "close frm_Test"}));
}

TEST_F(Controls, TheViewIsNotifiedOfEveryAssignment) {
    BlankPictures pictures;
    services().pictures = &pictures;
    Label label{form, "lbl", {}};
    Button button{form, "btm", {}};
    CheckBox box{form, "chk", {}};
    ComboBox list{form, "cbo", {}};
    TextInput text{form, "txt", {}};
    NumberInput number{form, "num", {.most = 9}};
    ImageControl image{form, "pic", {}};
    for (Control* control : form.controls()) control->observe(count);
    form.observe(count);
    // clang-format off
    const std::pair<const char*, std::function<void()>> assignments[] = {
        {"enabled", [&] { label.setEnabled(false); }}, {"visible", [&] { label.setVisible(false); }},
        {"back", [&] { label.setBackColour({1}); }}, {"fore", [&] { label.setForeColour({1}); }},
        {"caption", [&] { label.setCaption("x"); }}, {"font", [&] { label.setFontSize(20); }},
        {"mark", [&] { button.setMarked(true); }}, {"tick", [&] { box.setValue(1); }},
        {"item", [&] { list.addItem("x"); }}, {"items", [&] { list.addItems({"y"}); }},
        {"choice", [&] { list.setListIndex(1); }}, {"no items", [&] { list.clear(); }},
        {"text", [&] { text.setText("x"); }}, {"number", [&] { number.setText("1"); }},
        {"refused number", [&] { EXPECT_FALSE(number.typed("10")); }}, {"picture", [&] { image.load("x"); }},
        {"size", [&] { image.size(5, 5); }}, {"no picture", [&] { image.clear(); }},
        {"rectangle", [&] { image.setDstRect({1, 1, 2, 2}); }}, {"clip", [&] { image.setDstClipRect({1, 1, 2, 2}); }},
        {"window", [&] { form.resize({50, 50}); }}, {"repaint", [&] { image.setAutoRepaint(true); }}, {"title", [&] { form.setCaption("x"); }},
        {"form", [&] { form.setEnabled(false); }},
    };
    // clang-format on
    EXPECT_TRUE(number.typed("　９ "));
    EXPECT_EQ(number.text(), "9");
    EXPECT_THROW(box.setValue(3), RunTimeError);
    for (const auto& [name, assign] : assignments) {
        raised = 0;
        assign();
        EXPECT_EQ(raised, 1) << name;
    }
    raised = 0;
    image.setAutoRepaint(false);
    image.setDstRect({0, 0, 1, 1});
    EXPECT_EQ(raised, 0) << "until it is repainted again";
    int changes = 0;
    number.onChange = [&] { ++changes; };
    number.setText("3");
    number.setText("3.0");
    EXPECT_EQ(changes, 1) << "the same number changes nothing";
    image.setAutoScroll(true);
    image.setDstRect({0, 0, image.width() + 3, image.height() + 3});
    for (const auto& [by, left] : {std::pair{9, -3}, {-9, 0}}) {
        image.scrollBy(by, by);
        EXPECT_EQ(image.scrolledRect().x, left);
        EXPECT_EQ(image.scrolledRect().y, left);
    }
}

}  // namespace
}  // namespace orv
