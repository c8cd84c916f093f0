#include "platform/controls/combo_box.h"
#include "platform/controls/text_input.h"
#include "support/form_test.h"

namespace orv {
namespace {

constexpr int kInvalidValue = 380;
constexpr int kNotInList = 383;

class Controls : public FormTest {
protected:
    Form form{"frm_Test", "", {100, 100}};
    int raised = 0;
    std::function<void()> count = [this] { ++raised; };
};

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

}  // namespace
}  // namespace orv
