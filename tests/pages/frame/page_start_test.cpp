#include "pages/frame/page_start.h"

#include "pages/frame/change_page.h"
#include "support/fixture.h"

namespace orv {
namespace {

using Call = FailingStore::Call;
using Texts = std::vector<std::string>;

class PageStart : public SystemTest {};

TEST_F(PageStart, EveryPageOpensReadyAndAlone) {
    start();
    for (int number : {1, 2, 3, 4, 0}) {
        turnTo(number);
        EXPECT_EQ(screen().number, number);
        EXPECT_TRUE(screen().ready);
        EXPECT_EQ(forms.forms().size(), 1u);
        EXPECT_EQ(screen().cbo_User_Id.listCount(), 7);
        EXPECT_EQ(screen().cbo_User_Id.list(6), kMarker);
        EXPECT_EQ(forms.pointer(), kPointerDefault);
        EXPECT_EQ(store.open, 0);
    }
    EXPECT_EQ(shownIds(), Texts{});
    EXPECT_EQ(log(), "");
}

TEST_F(PageStart, TheTitleAndTheMembership) {
    struct Case {
        std::string company, office;
        int size;
    };
    startOn(0);
    EXPECT_EQ(screen().lbl_TitleRyutuKaiin.caption(), "Kovalis掲載会員専用");
    for (const Case& c :
         {Case{"１２３４５６７８９", "１２３４５６７８", 15}, Case{"１２３４５６７８９", "１２３４５６７８９", 12},
          Case{"", "", 15}, Case{"12345678901234567", "", 15}, Case{"123456789012345678", "", 12}}) {
        tCustomerInfo.COMPANY_NAME = c.company;
        tCustomerInfo.OFFICE_NAME = c.office;
        showTitle(screen());
        EXPECT_EQ(screen().lbl_TitleCompany.caption(), c.company + "　" + c.office);
        EXPECT_EQ(screen().lbl_TitleCompany.fontSize(), c.size) << c.company << c.office;
    }
    for (const char* flags :
         {"", "00000000000000000000000001", "0000000000000000000000002", "2222222222222222222222222022"}) {
        tCustomerInfo.SERVICE_FLG = flags;
        showTitle(screen());
        EXPECT_EQ(screen().lbl_TitleRyutuKaiin.caption(), "") << flags;
    }
}

TEST_F(PageStart, AStartThatFailsIsReportedAndHandsNothingOver) {
    struct Case {
        int page;
        Call call;
        std::string part, text;
    };
    for (const Case& c : {
             Case{0, Call::Open, "", "ストアの故障"},
             Case{0, Call::Select, "ORDER BY USER_ID", "ストアの故障"},
             Case{1, Call::Select, "TYPE_CODE = '002'", "ストアの故障"},
             Case{1, Call::Select, "TYPE_CODE = '003'", "ストアの故障"},
             Case{1, Call::Select, "TYPE_CODE = '004'", "ストアの故障"},
             Case{2, Call::Select, "TYPE_CODE = '005'", "ストアの故障"},
             Case{3, Call::Select, "ORDER BY USER_ID", "ストアの故障"},
             Case{4, Call::Open, "", "ストアの故障"},
         }) {
        startOn(c.page == 0 ? 3 : 0);
        const CompanyRecord before = tCustomerInfo;
        const Texts stored = everything();
        store.fail(c.call, c.part, 1);
        turnTo(c.page);
        store.mend();
        expectReported("DB:77", c.text);
        EXPECT_EQ(screen().number, c.page);
        EXPECT_FALSE(screen().ready);
        save();
        expectReported("DB:77", c.text);
        EXPECT_EQ(everything(), stored);
        turnTo(c.page == 3 ? 0 : 3);
        EXPECT_EQ(shownIds(), Texts{}) << "the other pages work";
        for (const FieldInfo& field : kFields) {
            if (field.text != nullptr) {
                EXPECT_EQ(tCustomerInfo.*field.text, before.*field.text) << c.part << field.name;
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

TEST_F(PageStart, AFillThatFailsIsReportedAndHandsNothingOver) {
    pictures.script.broken = {"load"};
    start();
    turnTo(2);
    expectReported("57", "[ PF_Thumbnail ] 画像ではありません。");
    turnTo(0);
    EXPECT_EQ(tCustomerInfo.COMPANY_URL, "http://www.aozora.example.jp/");
    EXPECT_EQ(tCustomerInfo.PHOTO_FILE2, "C:\\ORV\\TMP\\TmpImg_2");
    save();
    expectShown("COS05574", {});
    EXPECT_EQ(add("PHOTO_FILE2"), "000004601COS00000000_02.jpg");
}

TEST_F(PageStart, AnEmptyMasterStopsThePage) {
    for (const auto& [type, number] : {std::pair{"002", 1}, {"003", 1}, {"004", 1}, {"005", 2}}) {
        startOn(0);
        sql(std::string("update MST_OTHERS set DEL_FLAG = TRUE where TYPE_CODE = '") + type + "'");
        turnTo(number);
        expectReported("ECBO0001", "コンボボックスデータ取得に失敗しました。");
        EXPECT_FALSE(screen().ready) << type;
        leave();
        messages.shown.clear();
        sql("update MST_OTHERS set DEL_FLAG = FALSE");
    }
}

TEST_F(PageStart, WithoutHelpFileThePagesStayAsTheyWereDesigned) {
    files.remove("C:\\ORV\\HLP\\help.hlp");
    start();
    EXPECT_EQ(page<frm_CompInp0>().txt_Company_Name.text(), "");
    EXPECT_EQ(page<frm_CompInp0>().cbo_User_Id.text(), "");
    EXPECT_EQ(shownIds(), Texts{});
    const Texts stored = everything();
    save();
    EXPECT_EQ(shownIds(), Texts{"COS19800"}) << "the blank page is refused";
    EXPECT_EQ(everything(), stored);
    EXPECT_EQ(tCustomerInfo.USER_ID, kCompany);
}

class ChangePage : public SystemTest {};

TEST_F(ChangePage, TheOwnButtonOnlyCopies) {
    startOn(0);
    page<frm_CompInp0>().txt_Company_Name.setText("写し");
    const Texts calls = windows.calls;
    turnTo(0);
    EXPECT_EQ(tCustomerInfo.COMPANY_NAME, "写し");
    EXPECT_EQ(windows.calls, calls);
    EXPECT_EQ(shownIds(), Texts{});
}

TEST_F(ChangePage, InvalidContentMovesFreely) {
    startOn(0);
    page<frm_CompInp0>().txt_Company_Name.setText("");
    turnTo(1);
    turnTo(0);
    EXPECT_EQ(page<frm_CompInp0>().txt_Company_Name.text(), "");
    EXPECT_EQ(shownIds(), Texts{});
}

TEST_F(ChangePage, ANumberOfNoPageCopiesAndFails) {
    startOn(0);
    for (const std::int16_t target : {std::int16_t{-1}, std::int16_t{5}}) {
        page<frm_CompInp0>().txt_Company_Name.setText("写し" + std::to_string(target));
        EXPECT_FALSE(PF_Change_Frm_CompInp(target, screen()));
        EXPECT_EQ(gErrMsg, "[ PF_Change_Frm_CompInp ] において引数が不正です。");
        EXPECT_EQ(gErrCode, "CHGFRM:01");
        EXPECT_EQ(tCustomerInfo.COMPANY_NAME, "写し" + std::to_string(target));
        EXPECT_EQ(screen().number, 0);
        EXPECT_EQ(forms.pointer(), kPointerDefault);
    }
}

TEST_F(ChangePage, ACopyThatFailsKeepsThePage) {
    startOn(0);
    strings.normalizeBreaks = true;
    turnTo(1);
    expectReported("7", "[ PF_SetData_tCustomerInfo0 ] メモリが足りません。");
    EXPECT_EQ(screen().number, 0);
}

TEST_F(ChangePage, AWindowThatCannotBeOpenedKeepsThePage) {
    startOn(0);
    windows.refused = "open frm_CompInp1";
    turnTo(1);
    expectReported("7", "[ PF_Change_Frm_CompInp ] メモリが足りません。");
    EXPECT_EQ(screen().number, 0);
    turnTo(1);
    EXPECT_EQ(screen().number, 1);
}

TEST_F(ChangePage, WhenEvenTheMessageFailsAPlainBoxTells) {
    startOn(0);
    messages.failure = Failure::OutOfMemory;
    strings.normalizeBreaks = true;
    turnTo(1);
    ASSERT_EQ(windows.notices.size(), 1u);
    EXPECT_EQ(windows.notices[0].title, "7");
    EXPECT_EQ(windows.notices[0].text, "[ PF_SetData_tCustomerInfo0 ] メモリが足りません。");
    EXPECT_EQ(log(), record("7", "[ PF_SetData_tCustomerInfo0 ] メモリが足りません。"));
    EXPECT_EQ(gErrMsg, "");
}

}  // namespace
}  // namespace orv
