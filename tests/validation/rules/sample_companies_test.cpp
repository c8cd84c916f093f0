#include "adapters/sqlite/sqlite_db_service.h"
#include "adapters/store_terminal.h"
#include "support/store_files.h"
#include "validation/rules/access_rules.h"
#include "validation/rules/company_rules.h"
#include "validation/rules/licence_page_check.h"
#include "validation/rules/rules_test.h"
#include "validation/text/blanks.h"

namespace orv {
namespace {

/// The companies of the sample office, taken into the record by the names of their columns.
class SampleCompanies : public RulesTest {
protected:
    void load(const std::string& userId) {
        ASSERT_TRUE(terminal.select(companyJoin(userId)));
        ASSERT_FALSE(terminal.rs->Eof());
        tCustomerInfo = {};
        for (const FieldInfo& field : kFields) {
            if (field.source == Source::Stored && field.text != nullptr) {
                tCustomerInfo.*field.text = PF_NullToStr(terminal.rs->Fields(std::string(field.name)), "");
            }
        }
        tCustomerInfo.USER_ID = userId;
    }

    TempFolder folder;
    std::string path = makeSampleStore(folder.file("ORVESTATE.MDB"));
    SqliteDbService service{nativePaths()};
    Terminal terminal{service, path};
};

/// Whoever tries the sample saves a company first: none may be refused, for some years to come.
TEST_F(SampleCompanies, CanBeSavedAsTheyAre) {
    for (const int year : {2026, 2029}) {
        clock.moment.year = year;
        for (const char* userId : {"000004601", "000004602", "000004603", "000004604", "000004606"}) {
            SCOPED_TRACE(userId + std::string(" in ") + std::to_string(year));
            load(userId);
            EXPECT_TRUE(passes(PF_CheckFrmCompInp0Data)) << out.text;
            EXPECT_TRUE(passes(PF_CheckFrmCompInp1Data)) << out.text;
            EXPECT_EQ(questions().size(), userId == std::string("000004602") ? 1U : 0U) << "one is in no association";
            EXPECT_TRUE(passes(PF_CheckFrmCompInp2Data)) << out.text;
            EXPECT_TRUE(messages.shown.empty());
            EXPECT_EQ(gErrMsg, "");
        }
    }
}

}  // namespace
}  // namespace orv
