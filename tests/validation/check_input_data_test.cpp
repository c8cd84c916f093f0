#include "validation/check_input_data.h"

#include "support/fixture.h"

namespace orv {
namespace {

class CheckInput : public SystemTest {};

TEST_F(CheckInput, TheFirstPageWithAFaultIsShownWhereverTheOperatorIs) {
    for (const int from : {4, 0, 2}) {
        startOn(from);
        const CompanyRecord whole = tCustomerInfo;
        for (const int at : {0, 1, 2}) {
            tCustomerInfo = whole;
            tCustomerInfo.TANTO_NAME = at == 0 ? "" : whole.TANTO_NAME;
            tCustomerInfo.LICENSE_NO_DAI = at <= 1 ? "" : whole.LICENSE_NO_DAI;
            tCustomerInfo.OFFICE_HOURS = "'";
            forms.setPointer(kPointerHourglass);
            EXPECT_FALSE(PF_CheckInputData(screen()));
            EXPECT_EQ(shownIds(), Texts{"COS19800"});
            EXPECT_EQ(screen().number, at);
            EXPECT_EQ(forms.pointer(), kPointerDefault);
            EXPECT_EQ(forms.forms().size(), 1u);
            messages.shown.clear();
        }
        leave();
    }
}

TEST_F(CheckInput, ARunTimeFailureOfAPageIsShownAsAnEmptyRefusal) {
    startOn(3);
    std::vector<bool> checking;
    messages.onShow = [&] { checking.push_back(gChecking); };
    tCustomerInfo.KOUTORI_FLG.assign(16, '0');
    EXPECT_TRUE(PF_CheckInputData(screen())) << "after a question";
    tCustomerInfo.SAME_CHECK = "x";
    EXPECT_FALSE(PF_CheckInputData(screen()));
    ASSERT_FALSE(messages.shown.empty());
    EXPECT_EQ(messages.shown.back(), (RecordedMessages::Shown{"COS19800", {""}}));
    EXPECT_EQ(screen().number, 0);
    EXPECT_TRUE(checking.front());
    EXPECT_FALSE(checking.back() || gChecking);
}

}  // namespace
}  // namespace orv
