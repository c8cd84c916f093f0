#include "pages/frame/page_start.h"

#include "support/fixture.h"

namespace orv {
namespace {

using PageStart = SystemTest;

TEST_F(PageStart, AStartThatFailsIsReportedAndHandsNothingOver) {
    for (const auto& [page, call, part] : std::to_array<std::tuple<int, Call, const char*>>({
             {0, Call::Open, ""},
             {0, Call::Select, "ORDER BY USER_ID"},
             {1, Call::Select, "TYPE_CODE = '002'"},
             {1, Call::Select, "TYPE_CODE = '004'"},
             {2, Call::Select, "TYPE_CODE = '005'"},
             {3, Call::Select, "ORDER BY USER_ID"},
             {4, Call::Open, ""},
         })) {
        startOn(page == 0 ? 3 : 0);
        const CompanyRecord before = tCustomerInfo;
        const Texts stored = everything();
        store.fail(call, part, 1);
        turnTo(page);
        store.mend();
        expectReported("DB:77", "ストアの故障");
        EXPECT_EQ(screen().number, page);
        EXPECT_FALSE(screen().ready);
        save();
        expectReported("DB:77", "ストアの故障");
        EXPECT_EQ(everything(), stored);
        turnTo(page == 3 ? 0 : 3);
        EXPECT_EQ(shownIds(), Texts{}) << "the other pages work";
        for (const FieldInfo& field : kFields) {
            if (field.text != nullptr) {
                EXPECT_EQ(tCustomerInfo.*field.text, before.*field.text) << part << field.name;
            }
        }
        save();
        EXPECT_EQ(shownIds(), Texts{"COS05574"});
        EXPECT_EQ(info("LICENSE_NO || GET_LICENSE_NENGOU || DANTAI_NAME"),
                  "東京都知事令和(社)東京都宅地建物取引業協会");
        EXPECT_EQ(add("PHOTO_GRP1 || COMPANY_URL"), "外観http://www.aozora.example.jp/");
        leave();
        messages.shown.clear();
        gSaved = false;
    }
}

}  // namespace
}  // namespace orv
