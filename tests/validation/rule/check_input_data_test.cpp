#include "validation/check_input_data.h"

#include "support/fixture.h"

namespace orv {
namespace {

using Texts = std::vector<std::string>;

class CheckInput : public SystemTest {};

TEST_F(CheckInput, AFaultOfPage0HidesAllOthersWhereverTheOperatorIs) {
    for (int from : {4, 0, 2}) {
        startOn(from);
        if (from == 0) {
            page<frm_CompInp0>().txt_Tanto_Name.setText("");
        }
        tCustomerInfo.TANTO_NAME.clear();
        tCustomerInfo.LICENSE_NO_DAI.clear();
        forms.setPointer(kPointerHourglass);
        EXPECT_FALSE(PF_CheckInputData(screen()));
        expectShown("COS19800", {"入力担当者が未入力です。"});
        EXPECT_EQ(screen().number, 0);
        EXPECT_EQ(screen().activeControl(), &page<frm_CompInp0>().txt_Tanto_Name);
        EXPECT_EQ(forms.pointer(), kPointerDefault);
        EXPECT_EQ(forms.forms().size(), 1u);
        leave();
        messages.shown.clear();
    }
}

TEST_F(CheckInput, PagesAreCheckedInTheirOrder) {
    startOn(3);
    tCustomerInfo.LICENSE_NO_DAI.clear();
    tCustomerInfo.OFFICE_HOURS = "'";
    EXPECT_FALSE(PF_CheckInputData(screen()));
    EXPECT_EQ(shownIds(), Texts{"COS19800"});
    EXPECT_EQ(screen().number, 1);
    tCustomerInfo.LICENSE_NO_DAI = "3";
    messages.shown.clear();
    turnTo(3);
    tCustomerInfo.LICENSE_NO_DAI = "3";
    EXPECT_FALSE(PF_CheckInputData(screen()));
    EXPECT_EQ(shownIds(), Texts{"COS19800"});
    EXPECT_EQ(screen().number, 2);
}

TEST_F(CheckInput, ARunTimeFailureOfAPageIsShownAsAnEmptyRefusal) {
    startOn(3);
    tCustomerInfo.SAME_CHECK = "x";
    EXPECT_FALSE(PF_CheckInputData(screen()));
    ASSERT_FALSE(messages.shown.empty());
    EXPECT_EQ(messages.shown.back(), (RecordedMessages::Shown{"COS19800", {""}}));
    EXPECT_EQ(screen().number, 0);
}

}  // namespace
}  // namespace orv
