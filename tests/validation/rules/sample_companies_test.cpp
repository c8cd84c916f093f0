#include "support/fixture.h"
#include "validation/rules/access_rules.h"
#include "validation/rules/company_rules.h"
#include "validation/rules/licence_page_check.h"

namespace orv {
namespace {

/// Whoever tries the sample saves a company first: none may be refused, for some years to come.
TEST_F(SystemTest, TheSamplesCompaniesCanBeSavedAsTheyAre) {
    gAddressByMaster = true;
    for (const int year : {2026, 2029}) {
        clock.moment.year = year;
        for (const char* userId : {"000004601", "000004602", "000004603", "000004604"}) {
            SCOPED_TRACE(userId + std::string(" in ") + std::to_string(year));
            load(userId);
            Refusal out;
            EXPECT_TRUE(PF_CheckFrmCompInp0Data(out)) << out.text;
            EXPECT_TRUE(PF_CheckFrmCompInp1Data(out)) << out.text;
            out.text.clear();
            EXPECT_TRUE(PF_CheckFrmCompInp2Data(out)) << out.text;
            EXPECT_EQ(messages.shown.size(), userId == std::string("000004602") ? 1U : 0U) << "it is in no association";
            EXPECT_EQ(gErrMsg, "");
            messages.shown.clear();
        }
    }
}

}  // namespace
}  // namespace orv
