#include <array>

#include "platform/controls/captions.h"
#include "platform/controls/check_box.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/image_control.h"
#include "platform/controls/number_input.h"
#include "platform/controls/text_input.h"
#include "support/form_test.h"

namespace orv {
namespace {

constexpr int kTypeMismatch = 13;
constexpr int kInvalidValue = 380;
constexpr int kNotInList = 383;

class Controls : public FormTest {
protected:
    Form form{"frm_Test", "", {100, 100}};
    int raised = 0;
    std::function<void()> count = [this] { ++raised; };
};

TEST_F(Controls, TextRaisesChangeOnlyWhenItDiffers) {
    TextInput text{form, "txt", {}};
    text.onChange = count;
    text.setText("a");
    text.setText("a");
    EXPECT_EQ(raised, 1);
    text.setText("");
    EXPECT_EQ(raised, 2);
}

TEST_F(Controls, TextTypedIntoTheMiddleIsLimitedByTheWhole) {
    TextInput text{form, "txt", {.refuse = "K", .limit = bytes(8)}};
    text.setText("前後");
    EXPECT_EQ(text.typed("前", "ｱ中a中", "後"), "中a");
    EXPECT_EQ(text.text(), "前中a後");
}

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

TEST_F(Controls, ListRefusesWhatItDoesNotHoldAndKeepsItsChoice) {
    ComboBox list{form, "cbo", {}};
    list.addItem("賃貸");
    list.setListIndex(0);
    list.onClick = count;
    EXPECT_EQ(failureOf([&] { list.setText("売買"); }), kNotInList);
    EXPECT_EQ(failureOf([&] { list.setListIndex(1); }), kInvalidValue);
    EXPECT_EQ(failureOf([&] { list.setListIndex(-2); }), kInvalidValue);
    EXPECT_EQ(list.listIndex(), 0);
    EXPECT_EQ(list.list(1), "") << "one past the end is read by the page fill";
    EXPECT_EQ(raised, 0);
}

TEST_F(Controls, BoxTakesZeroToTwoAndClicksOnAChange) {
    CheckBox box{form, "chk", {.value = 1}};
    box.onClick = count;
    box.setText("1");
    EXPECT_EQ(raised, 0);
    box.setText(" 0 ");
    EXPECT_EQ(raised, 1);
    box.setValue(2);
    EXPECT_EQ(raised, 2);
    for (const std::string text : {"", "はい", "1a"}) {
        EXPECT_EQ(failureOf([&] { box.setText(text); }), kTypeMismatch) << text;
    }
    for (const std::string text : {"3", "-1", "99999999999"}) {
        EXPECT_EQ(failureOf([&] { box.setText(text); }), kInvalidValue) << text;
    }
    EXPECT_EQ(box.value(), 2);
    EXPECT_EQ(raised, 2);
}

TEST_F(Controls, NumberHoldsItsRangeOrNull) {
    struct NumberRow {
        std::string text;
        int failure;
        std::string shown;
    };
    const std::array<NumberRow, 10> rows{{{"0.1", 0, "0.1"},
                                          {"99.9", 0, "99.9"},
                                          {" 12.34 ", 0, "12.3"},
                                          {"", 0, ""},
                                          {"   ", 0, ""},
                                          {"99.94", kInvalidValue, "5"},
                                          {"0.09", kInvalidValue, "5"},
                                          {"-1", kInvalidValue, "5"},
                                          {"五", kTypeMismatch, "5"},
                                          {"1,000", kTypeMismatch, "5"}}};
    for (const NumberRow& row : rows) {
        NumberInput number{form, "txt", {.least = 0.1, .most = 99.9, .decimals = 1}};
        number.setText("5");
        EXPECT_EQ(failureOf([&] { number.setText(row.text); }), row.failure) << row.text;
        EXPECT_EQ(number.text(), row.shown) << row.text;
        EXPECT_EQ(number.value().isNull(), row.shown.empty()) << row.text;
    }
}

TEST_F(Controls, NumberTypedTakesFullWidthAndKeepsTheOldOneWhenRefused) {
    NumberInput number{form, "txt", {.least = 1, .most = 12}};
    number.onChange = count;
    EXPECT_TRUE(number.typed("１２"));
    EXPECT_EQ(number.text(), "12");
    EXPECT_TRUE(number.typed("12"));
    EXPECT_EQ(raised, 1);
    for (const std::string text : {"13", "0.5", "x", "-"}) {
        EXPECT_FALSE(number.typed(text)) << text;
    }
    EXPECT_EQ(number.text(), "12");
    EXPECT_TRUE(number.typed("　"));
    EXPECT_TRUE(number.value().isNull());
    EXPECT_EQ(raised, 2);
}

TEST_F(Controls, ButtonIsPressedOnlyWhenTheOperatorCouldPressIt) {
    Button button{form, "btm", {}};
    button.onClick = count;
    button.setEnabled(false);
    button.press();
    button.setEnabled(true);
    button.setVisible(false);
    button.press();
    button.setVisible(true);
    form.setEnabled(false);
    button.press();
    EXPECT_EQ(raised, 0);
    form.setEnabled(true);
    button.press();
    EXPECT_EQ(raised, 1);
}

TEST_F(Controls, PictureTakesDropsOnlyWhenTheOperatorMayDrop) {
    ImageControl image{form, "pic", {}};
    std::vector<std::string> files;
    image.onDrop = [&](const std::string& file) { files.push_back(file); };
    image.drop("no drops are taken");
    image.setAcceptsDrops(true);
    image.setEnabled(false);
    image.drop("disabled");
    image.setEnabled(true);
    form.setEnabled(false);
    image.drop("the form is disabled");
    form.setEnabled(true);
    image.drop("d");
    EXPECT_EQ(files, std::vector<std::string>{"d"});
}

TEST_F(Controls, ViewIsToldOfEveryChange) {
    TextInput text{form, "txt", {}};
    NumberInput number{form, "num", {.least = 1, .most = 12}};
    text.observe(count);
    number.observe(count);
    text.setText("a");
    text.setEnabled(false);
    text.setVisible(false);
    text.setBackColour({0xe0e0e0});
    text.setForeColour({0});
    EXPECT_EQ(raised, 5);
    EXPECT_FALSE(number.typed("x"));
    EXPECT_EQ(raised, 6) << "the view must show the old number again";
}

}  // namespace
}  // namespace orv
