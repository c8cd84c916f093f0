#include "pages/handlers/comp_inp0_handlers.h"

#include <QCheckBox>

#include "support/window_test.h"

namespace orv {
namespace {

using Call = FailingStore::Call;
using Texts = std::vector<std::string>;

/// The tick and the gap behind it, in pixels.
constexpr int kTickMark = 17;

class Handlers : public WindowTest {
protected:
    static void expectTick(const CheckBox& box, bool on) {
        EXPECT_EQ(box.backColour(), on ? kTickOn : kTickOff) << box.objectName();
        EXPECT_EQ(box.foreColour(), on ? kTickOnText : kTickOffText) << box.objectName();
    }
    static void expectField(const TextInput& input, std::optional<Colour> colour) {
        EXPECT_EQ(input.enabled(), colour.has_value()) << input.name();
        EXPECT_EQ(input.backColour(), colour.value_or(kDisabledField)) << input.name();
    }
};

TEST_F(Handlers, TheSiteBlockOpensAndCloses) {
    for (const bool byMaster : {false, true}) {
        startOn(0, byMaster ? "000004601,1,0" : "000004601,1,1");
        auto& form = page<frm_CompInp0>();
        const std::vector<TextInput*> all{
            &form.txt_Pc_Post_Code,   &form.txt_Pc_Address,      &form.txt_Pc_Address_number, &form.txt_Pc_Address_Gou,
            &form.txt_Pc_Office_Name, &form.txt_Pc_Tanto_Name,   &form.txt_Pc_Tel_No1,        &form.txt_Pc_Tel_No2,
            &form.txt_Pc_Fax_No,      &form.txt_Pc_Mail_Address, &form.txt_Pc_Address_Code};
        expectTick(form.chk_EqualData, true);
        click(form.chk_EqualData);
        expectTick(form.chk_EqualData, false);
        const std::optional<Colour> searched = byMaster ? std::nullopt : std::optional(kRequiredField);
        expectField(form.txt_Pc_Post_Code, searched);
        expectField(form.txt_Pc_Address, searched);
        EXPECT_TRUE(form.btm_Pc_SearchOfficeAddress.enabled());
        for (TextInput* input : {&form.txt_Pc_Tanto_Name, &form.txt_Pc_Tel_No1, &form.txt_Pc_Mail_Address}) {
            expectField(*input, kRequiredField);
        }
        for (TextInput* input : {&form.txt_Pc_Address_number, &form.txt_Pc_Address_Gou, &form.txt_Pc_Office_Name,
                                 &form.txt_Pc_Tel_No2, &form.txt_Pc_Fax_No, &form.txt_Pc_Address_Code}) {
            expectField(*input, kOptionalField);
        }
        for (TextInput* input : all) {
            input->setText("x");
        }
        click(form.chk_EqualData);
        for (TextInput* input : all) {
            expectField(*input, std::nullopt);
            EXPECT_EQ(input->text(), "") << input->name();
        }
        EXPECT_FALSE(form.btm_Pc_SearchOfficeAddress.enabled());
        leave();
        messages.shown.clear();
    }
}

TEST_F(Handlers, TheAreaFollowsTheAddressCode) {
    startOn(0);
    for (const auto& [code, area] :
         {std::pair{"27127001001", "27127"}, {"27", "27"}, {"２７１２７００", "２７１２７"}}) {
        page<frm_CompInp0>().txt_Address_Code.setText(code);
        EXPECT_EQ(page<frm_CompInp0>().txt_Area_Code.text(), area);
    }
}

TEST_F(Handlers, ThePublishNumber) {
    auto& form = page<frm_CompInp0>();
    struct Case {
        std::string userId, shown;
    };
    for (const Case& c : {Case{"000004601", "12"}, Case{"000004602", ""}, Case{"000004606", "0"}, Case{kMarker, ""}}) {
        tCustomerInfo.USER_ID = c.userId;
        form.lbl_Pubish_Number.setCaption("");
        form.lbl_Pubish_Number.setVisible(true);
        EXPECT_TRUE(F_Check_Pubish_Number(form));
        EXPECT_EQ(store.statements.back(),
                  "SELECT CONTRACT_PUBLISHNUMBER FROM TBL_CUSTOMER_INFO WHERE USER_ID = '" + c.userId + "'");
        EXPECT_EQ(form.lbl_Pubish_Number.caption(), c.shown);
        EXPECT_EQ(form.lbl_Pubish_Number.visible(), !c.shown.empty());
        EXPECT_EQ(form.lbl_Pubish_Number_Title.visible(), !c.shown.empty());
    }
    for (const Call call : {Call::Open, Call::Select}) {
        store.fail(call);
        EXPECT_FALSE(F_Check_Pubish_Number(form));
        EXPECT_EQ(gErrMsg, "F_Check_Pubish_Number\r\nストアの故障");
        EXPECT_EQ(gErrCode, "DB:77");
        store.mend();
    }
}

TEST_F(Handlers, APublishNumberThatFailsLeavesThePageReady) {
    store.fail(Call::Select, "CONTRACT_PUBLISHNUMBER");
    start();
    EXPECT_EQ(shownIds(), Texts{"COSERR01"});
    EXPECT_TRUE(screen().ready);
    messages.shown.clear();
    page<frm_CompInp0>().txt_Company_Name.setText("x");
    save();
    expectShown("COS05574", {});
    EXPECT_EQ(info("COMPANY_NAME"), "x");
}

TEST_F(Handlers, TheLicenceBlock) {
    startOn(1);
    auto& form = page<frm_CompInp1>();
    const auto expectOpen = [&](bool open) {
        expectField(form.txt_License_no_Dai, open ? std::optional(kRequiredField) : std::nullopt);
        expectField(form.txt_License_No_Go, open ? std::optional(kRequiredField) : std::nullopt);
        for (const auto* list : {&form.cbo_Get_License_Nengou, &form.cbo_Valid_License_Nengou}) {
            EXPECT_EQ(list->enabled(), open);
            EXPECT_EQ(list->backColour(), open ? kRequiredField : kDisabledField);
        }
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(form.txt_Get_License_Date[i].enabled(), open);
            EXPECT_EQ(form.txt_Valid_License_Date[i].enabled(), open);
        }
    };
    pick(form.cbo_License_No, "大阪府知事");
    expectOpen(true);
    EXPECT_EQ(form.cbo_Get_License_Nengou.text() + form.txt_License_No_Go.text(), "令和123456") << "open, and kept";
    for (const char* none : {"無し", "貸主"}) {
        pick(form.cbo_License_No, none);
        expectOpen(false);
        EXPECT_EQ(form.txt_License_no_Dai.text() + form.txt_License_No_Go.text() + form.cbo_Get_License_Nengou.text() +
                      form.txt_Valid_License_Date[2].text(),
                  "");
        pick(form.cbo_License_No, "国土交通大臣");
        expectOpen(true);
        EXPECT_EQ(form.cbo_Get_License_Nengou.text() + form.cbo_Valid_License_Nengou.text(), "西暦西暦");
    }
}

TEST_F(Handlers, TheAssociationBoxes) {
    startOn(1);
    auto& form = page<frm_CompInp1>();
    click(form.chk_Dantai[0]);
    EXPECT_FALSE(form.cbo_Dantai_Name.enabled());
    EXPECT_EQ(form.cbo_Dantai_Name.text(), "");
    expectTick(form.chk_Dantai[0], false);
    click(form.chk_Dantai[0]);
    EXPECT_EQ(form.cbo_Dantai_Name.list(0), form.cbo_Dantai_Name.text()) << "it comes back on its first row";
    expectTick(form.chk_Dantai[0], true);
    form.chk_Dantai[0].setValue(2);
    EXPECT_TRUE(form.cbo_Dantai_Name.enabled());
    expectTick(form.chk_Dantai[0], false);
    pick(form.cbo_Dantai_Name, "(社)滋賀県宅地建物取引業協会");
    EXPECT_EQ(form.chk_Dantai[0].value(), 1) << "a choice ticks its box";
    click(form.chk_Koutori[8]);
    expectTick(form.chk_Koutori[8], true);
    click(form.chk_Koutori[8]);
    expectTick(form.chk_Koutori[8], false);
}

TEST_F(Handlers, TheOtherAssociation) {
    startOn(1);
    auto& form = page<frm_CompInp1>();
    form.chk_Dantai[6].setValue(1);
    form.chk_Dantai[6].setValue(0);
    expectField(form.txt_Other_Dantai_Name, std::nullopt);
    click(form.chk_Dantai[6]);
    expectField(form.txt_Other_Dantai_Name, kRequiredField);
    EXPECT_EQ(focused(), "chk_Dantai(6)") << "asked for while the field was still closed";
    click(form.chk_Dantai[6]);
    expectField(form.txt_Other_Dantai_Name, std::nullopt);
    click(form.chk_Dantai[6]);
    enter(form.txt_Other_Dantai_Name, "家主会");
    EXPECT_EQ(form.chk_Dantai[6].value(), 1);
    form.chk_Dantai[6].setValue(2);
    click(form.txt_Other_Dantai_Name);
    press(Qt::Key_Tab);
    EXPECT_EQ(form.chk_Dantai[6].value(), 1) << "also when the field is left";
    click(form.txt_Other_Dantai_Name);
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    EXPECT_EQ(form.chk_Dantai[6].value(), 0);
    expectField(form.txt_Other_Dantai_Name, std::nullopt);
}

TEST_F(Handlers, ThatEditionsAssociationCannotBeChanged) {
    for (const auto& [minor, enabled] : {std::pair{"3", false}, {"2", true}, {"33", true}}) {
        settings.set("VERSION", "MINOR", minor);
        startOn(1);
        EXPECT_EQ(page<frm_CompInp1>().chk_Dantai[3].enabled(), enabled) << minor;
        EXPECT_EQ(page<frm_CompInp1>().chk_Dantai[3].value(), enabled ? 0 : 1);
        leave();
        messages.shown.clear();
    }
}

TEST_F(Handlers, SevenDigitsBecomeAPostCodeWhenTheFieldIsLeft) {
    startOn(0, "000004601,1,1");
    auto& form = page<frm_CompInp0>();
    click(form.chk_EqualData);
    for (const TextInput* field : {&form.txt_Post_Code, &form.txt_Pc_Post_Code}) {
        for (const auto& [typed, after] : {std::pair{"1234567", "123-4567"},
                                           {"123-4567", "123-4567"},
                                           {"12345", "12345"},
                                           {"12345678", "12345678"},
                                           {"123456-", "123456-"},
                                           {"-123456", "-123456"},
                                           {"", ""}}) {
            enter(*field, typed);
            EXPECT_EQ(field->text(), after) << field->name();
            EXPECT_NE(focused(), field->name()) << "nothing is refused";
        }
    }
}

TEST_F(Handlers, TheLineAndTheStationAreTakenBack) {
    startOn(2);
    auto& form = page<frm_CompInp2>();
    click(form.btn_DelRail);
    EXPECT_EQ(form.lbl_Railroad_Name.caption() + form.lbl_Station_Name.caption() + form.txt_Railroad_Code.text() +
                  form.txt_Station_Code.text(),
              "");
    EXPECT_EQ(form.txt_Walk_Minutes.text(), "4");
}

TEST_F(Handlers, ALinkNameComesWithTheBeginningOfAnAddress) {
    startOn(2);
    auto& form = page<frm_CompInp2>();
    struct Case {
        std::string name, address, after;
    };
    for (const Case& c :
         {Case{"会社", "", "http://"}, Case{"会社", "  ", "http://"}, Case{"会社", "http://a", "http://a"},
          Case{"", "http://", ""}, Case{" ", " http:// ", ""}, Case{"", "http://a", "http://a"}, Case{"", "", ""}}) {
        form.txt_Company_URL_Comment.setText("before");
        form.txt_Company_URL.setText(c.address);
        enter(form.txt_Company_URL_Comment, c.name);
        EXPECT_EQ(form.txt_Company_URL.text(), c.after) << c.name << "|" << c.address;
        form.txt_Company_URL.setText(c.address);
        click(form.txt_Company_URL_Comment);
        press(Qt::Key_Tab);
        EXPECT_EQ(form.txt_Company_URL.text(), c.after) << c.name << "|" << c.address << " when it is left";
    }
}

TEST_F(Handlers, TheBoxesOfTheBusinessPage) {
    startOn(3);
    auto& form = page<frm_CompInp3>();
    expectTick(form.chk_Management_Type_Flg[0], true);
    expectTick(form.chk_Management_Type_Flg[1], false);
    click(form.chk_Management_Type_Flg[27]);
    expectTick(form.chk_Management_Type_Flg[27], true);
    click(form.chk_Business_Type_Flg[0]);
    expectTick(form.chk_Business_Type_Flg[0], false);
    for (const QAbstractButton* box : windowOf(form)->findChildren<QCheckBox*>()) {
        const int words = QFontMetrics(box->font()).horizontalAdvance(box->text());
        EXPECT_LE(words, box->width() - kTickMark) << box->text().toStdString() << " is cut";
    }
}

}  // namespace
}  // namespace orv
