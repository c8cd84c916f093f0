#include "pages/frame/page_frame.h"

#include "support/fixture.h"

namespace orv {
namespace {

using PageStart = SystemTest;

TEST_F(PageStart, AStartThatFailsIsReportedAndHandsNothingOver) {
    struct Case {
        int page;
        Call call;
        /// Null if the file of field names is missing.
        const char* part;
        /// Precedes the failure's text if the store throws, which no store should.
        const char* label = nullptr;
    };
    for (const auto& [page, call, part, label] : {
             Case{0, Call::Open, ""},
             Case{0, Call::Select, "ORDER BY USER_ID"},
             Case{0, Call::Select, "ORDER BY USER_ID", "[ P_MakeComboBox_CompInp0 ]"},
             Case{1, Call::Select, "TYPE_CODE = '002'"},
             Case{1, Call::Select, "TYPE_CODE = '004'"},
             Case{1, Call::Select, "ORDER BY USER_ID", "[ P_MakeComboBox_CompInp1 ]"},
             Case{2, Call::Select, "TYPE_CODE = '005'"},
             Case{2, Call::Select, "ORDER BY USER_ID", "[ P_MakeComboBox_CompInp1 ]"},
             Case{3, Call::Select, "ORDER BY USER_ID"},
             Case{3, Call::Select, "ORDER BY USER_ID", "[ P_MakeComboBox_CompInp3 ]"},
             Case{4, Call::Open, ""},
             Case{4, Call::Select, "ORDER BY USER_ID", "[ P_MakeComboBox_CompInp4 ]"},
             Case{0, {}, nullptr},
             Case{1, {}, nullptr},
             Case{2, {}, nullptr},
             Case{3, {}, nullptr},
             Case{4, {}, nullptr},
         }) {
        const std::string code = label != nullptr ? "7" : part != nullptr ? "DB:77" : "53";
        const std::string text =
            label != nullptr ? label + std::string("メモリが足りません。")
            : part != nullptr
                ? "ストアの故障"
                : "[ PF_SetData_Frm_CompInp" + std::to_string(page) +
                      " ] 項目名ファイル「help.hlp」が見つからないか読めないため、会社情報を表示できません。"
                      "ファイルを元に戻してから、画面を開き直してください。";
        store.raised = label != nullptr ? std::optional(Failure::OutOfMemory) : std::nullopt;
        startOn(page == 0 ? 3 : 0);
        const CompanyRecord before = tCustomerInfo;
        const Texts stored = everything();
        part != nullptr ? store.fail(call, part) : settings.set("PATH", "HLP", "");
        turnTo(page);
        EXPECT_EQ(screen().failure.text, text);
        store.repair();
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
        gSaved = false;
    }
}

TEST_F(PageStart, ShowsTheTitleAndThePublishNumberOfTheCompany) {
    struct Case {
        std::string name, flags, number;
        int font;
        const char* member;
        bool numberShown;
    };
    const std::string upTo25(25, '0');
    for (const Case& row : {
             Case{"一二三四五六七八九十一二三四", upTo25 + "2", "12", 15, "Kovalis掲載会員専用", true},
             Case{"一二三四五六七八九十一二三四五", upTo25 + "1", "NULL", 12, "", false},
             Case{"短い", upTo25, "0", 15, "", true},
         }) {
        sql("update TBL_CUSTOMER_INFO set OFFICE_NAME = '本店舗', COMPANY_NAME = '" + row.name + "', SERVICE_FLG = '" +
            row.flags + "', CONTRACT_PUBLISHNUMBER = " + row.number + " where USER_ID = '000004601'");
        const auto& form = dynamic_cast<frm_CompInp0&>(startOn(0));
        EXPECT_EQ(form.lbl_TitleCompany.caption(), row.name + "　本店舗");
        EXPECT_EQ(form.lbl_TitleCompany.fontSize(), row.font);
        EXPECT_EQ(form.lbl_TitleRyutuKaiin.caption(), row.member);
        EXPECT_EQ(form.lbl_Pubish_Number.visible(), row.numberShown);
        EXPECT_EQ(form.lbl_Pubish_Number_Title.visible(), row.numberShown);
        EXPECT_EQ(form.lbl_Pubish_Number.caption(), row.numberShown ? row.number : "");
        leave();
    }
    EXPECT_TRUE(log().empty());
}

TEST_F(PageStart, APublishNumberThatCannotBeReadIsReported) {
    for (const auto& [call, part, nth, text] : std::to_array<std::tuple<Call, const char*, int, std::string>>({
             {Call::Open, "", 3, "ストアの故障"},
             {Call::Select, "PUBLISHNUMBER", 1, "ストアの故障"},
             {Call::Select, "PUBLISHNUMBER", 1, "メモリが足りません。"},
         })) {
        messages.shown.clear();
        store.fail(call, part, nth);
        store.raised = text == "ストアの故障" ? std::nullopt : std::optional(Failure::OutOfMemory);
        start();
        expectReported(store.raised ? "7" : "DB:77", "F_Check_Pubish_Number\r\n" + text);
        store.repair();
        leave();
    }
}

TEST_F(PageStart, TheAssociationOfAnEditionCannotBeUnticked) {
    for (const char* edition : {"2", "3"}) {
        settings.set("VERSION", "MINOR", edition);
        startOn(1);
        for (std::size_t i = 0; i < page<frm_CompInp1>().chk_Dantai.size(); ++i) {
            EXPECT_EQ(page<frm_CompInp1>().chk_Dantai[i].enabled(), i != 3 || edition[0] != '3') << edition << i;
        }
        leave();
    }
}

TEST_F(PageStart, APageThatDoesNotExistKeepsThePresentOne) {
    for (const std::int16_t target : std::initializer_list<std::int16_t>{5, -1}) {
        startOn(0);
        page<frm_CompInp0>().txt_Tanto_Name.setText("入力");
        EXPECT_FALSE(PF_Change_Frm_CompInp(target, screen()));
        EXPECT_EQ(gErrMsg + gErrCode, "[ PF_Change_Frm_CompInp ] において引数が不正です。CHGFRM:01");
        EXPECT_EQ(screen().number, 0);
        EXPECT_EQ(tCustomerInfo.TANTO_NAME, "入力") << "it is in the record all the same";
        EXPECT_EQ(forms.pointer(), kPointerDefault);
        leave();
    }
}

TEST_F(PageStart, OnlyTheKindsOfPhotosBeginWithABlank) {
    startOn(1);
    auto& licence = page<frm_CompInp1>();
    for (const ComboBox* list : {&licence.cbo_License_No, &licence.cbo_Get_License_Nengou,
                                 &licence.cbo_Valid_License_Nengou, &licence.cbo_Dantai_Name}) {
        EXPECT_NE(list->list(0), "") << list->name();
    }
    turnTo(2);
    for (std::size_t i = 0; i < 2; ++i) {
        const ComboBox& list = page<frm_CompInp2>().cbo_pic_PhotoFile[i];
        EXPECT_TRUE(list.list(0).empty() && !list.list(1).empty()) << i;
    }
}

/// Compares the headings in order and the boxes below them; "#" is a box in the colour of a group.
TEST_F(PageStart, DrawsTheBarsOfThePage) {
    constexpr const char* kDrawn[] = {
        "==-　事務所・店舗情報-　ＰＣ設置場所-　反響・問い合わせ#*の欄は入力が必要です",
        "==- 宅建免許証- 公正取引協議会加盟事業者##*の欄は入力が必要です",
        "==- 交通情報- その他会社情報- 画像１- 画像２", "==-　取扱種別-　業務内容#######",
        "==* *この情報はお客様設定送信時にゼンタへ転送いたします。（内容は変更できません。）"
        "-　ＯＳ-　システム-　ネットワーク-　その他"};
    for (int number = 0; number < kPageCount; ++number) {
        const PageForm& form = startOn(number);
        std::string drawn;
        for (const Shape& shape : form.canvas().shapes()) {
            if (const auto* box = std::get_if<DrawnBox>(&shape)) {
                drawn += box->colour == kBand ? "=" : box->colour == kBar ? "-" : box->colour == kGroupBox ? "#" : "*";
                EXPECT_TRUE(box->filled);
                EXPECT_LE(box->box.x + box->box.width, form.scaleWidth());
                EXPECT_LE(box->box.y + box->box.height, form.scaleHeight());
            } else if (const auto* text = std::get_if<DrawnText>(&shape)) {
                drawn += text->text;
                EXPECT_TRUE(text->bold);
            }
        }
        EXPECT_EQ(drawn, std::string(kDrawn[number]) + "設定/お客様情報");
        leave();
    }
}

/// On page 1 the boxes do not move the focus on Enter.
TEST_F(PageStart, EnterMovesOnFromListsAndBoxes) {
    for (int number = 0; number < kPageCount; ++number) {
        PageForm& form = startOn(number);
        std::vector<Control*> order = form.tabOrder();
        std::erase_if(order, [](const Control* control) { return !control->focusable(); });
        const auto place = [&order](const Control& control) { return std::ranges::find(order, &control); };
        EXPECT_EQ(order.front(), &form.cbo_User_Id);
        EXPECT_LT(place(form.btm_Save), place(form.btm_Back_Menu));
        EXPECT_LT(place(form.btm_Back_Menu), place(form.btm_ChangePage[number == 0 ? 1U : 0U]));
        for (std::size_t i = 0; i < order.size(); ++i) {
            const ControlKind kind = order[i]->kind();
            if (kind == ControlKind::ComboBox || kind == ControlKind::CheckBox) {
                const bool moves = kind == ControlKind::ComboBox || number != 1;
                order[i]->setFocus();
                form.keyDown(kKeyTab);
                EXPECT_EQ(form.activeControl(), order[i]);
                form.keyDown(kKeyEnter);
                EXPECT_EQ(form.activeControl(), order[(i + (moves ? 1 : 0)) % order.size()]) << order[i]->objectName();
            }
        }
        leave();
    }
}

}  // namespace
}  // namespace orv
