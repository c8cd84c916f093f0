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
             {0, {}, nullptr},  // the file of field names is missing
             {1, {}, nullptr},
             {2, {}, nullptr},
             {3, {}, nullptr},
             {4, {}, nullptr},
         })) {
        const std::string code = part != nullptr ? "DB:77" : "53";
        const std::string text =
            part != nullptr
                ? "ストアの故障"
                : "[ PF_SetData_Frm_CompInp" + std::to_string(page) +
                      " ] 項目名ファイル「help.hlp」が見つからないか読めないため、会社情報を表示できません。"
                      "ファイルを元に戻してから、画面を開き直してください。";
        startOn(page == 0 ? 3 : 0);
        const CompanyRecord before = tCustomerInfo;
        const Texts stored = everything();
        part != nullptr ? store.fail(call, part) : settings.set("PATH", "HLP", "");
        turnTo(page);
        store.mend();
        settings.set("PATH", "HLP", "C:\\ORV\\HLP");
        expectReported(code, text);
        EXPECT_EQ(screen().number, page);
        EXPECT_FALSE(screen().ready);
        save();
        expectReported(code, text);
        EXPECT_EQ(everything(), stored);
        turnTo(page == 3 ? 0 : 3);
        EXPECT_EQ(shownIds(), Texts{}) << "the other pages work";
        for (const FieldInfo& field : kFields) {
            if (field.text != nullptr) {
                EXPECT_EQ(tCustomerInfo.*field.text, before.*field.text) << page << field.name;
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
