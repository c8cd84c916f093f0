#include "support/window_test.h"

namespace orv {
namespace {

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
        const std::optional<Colour> searched = byMaster ? std::nullopt : std::optional(kRequiredField);
        const std::vector<std::pair<TextInput*, std::optional<Colour>>> site{
            {&form.txt_Pc_Post_Code, searched},          {&form.txt_Pc_Address, searched},
            {&form.txt_Pc_Tanto_Name, kRequiredField},   {&form.txt_Pc_Tel_No1, kRequiredField},
            {&form.txt_Pc_Mail_Address, kRequiredField}, {&form.txt_Pc_Address_number, kOptionalField},
            {&form.txt_Pc_Address_Gou, kOptionalField},  {&form.txt_Pc_Office_Name, kOptionalField},
            {&form.txt_Pc_Tel_No2, kOptionalField},      {&form.txt_Pc_Fax_No, kOptionalField},
            {&form.txt_Pc_Address_Code, kOptionalField}};
        expectTick(form.chk_EqualData, true);
        click(form.chk_EqualData);
        expectTick(form.chk_EqualData, false);
        EXPECT_TRUE(form.btm_Pc_SearchOfficeAddress.enabled());
        for (const auto& [input, colour] : site) {
            expectField(*input, colour);
            input->setText("x");
        }
        click(form.chk_EqualData);
        for (const auto& [input, colour] : site) {
            expectField(*input, std::nullopt);
            EXPECT_EQ(input->text(), "") << input->name();
        }
        EXPECT_FALSE(form.btm_Pc_SearchOfficeAddress.enabled());
        leave();
    }
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
    click(form.txt_Other_Dantai_Name);
    type("会");
    press(Qt::Key_Backspace);
    EXPECT_EQ(focused(), "chk_Dantai(6)") << "not a council";
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

TEST_F(Handlers, ALinkNameComesWithTheBeginningOfAnAddress) {
    startOn(2);
    auto& form = page<frm_CompInp2>();
    for (const auto& [name, address, after] :
         std::to_array<std::array<const char*, 3>>({{"会社", "", "http://"},
                                                    {"会社", "  ", "http://"},
                                                    {"会社", "http://a", "http://a"},
                                                    {"", "http://", ""},
                                                    {" ", " http:// ", ""},
                                                    {"", "http://a", "http://a"},
                                                    {"", "", ""}})) {
        form.txt_Company_URL_Comment.setText("before");
        form.txt_Company_URL.setText(address);
        enter(form.txt_Company_URL_Comment, name);
        EXPECT_EQ(form.txt_Company_URL.text(), after) << name << "|" << address;
        form.txt_Company_URL.setText(address);
        click(form.txt_Company_URL_Comment);
        press(Qt::Key_Tab);
        EXPECT_EQ(form.txt_Company_URL.text(), after) << name << "|" << address << " when it is left";
    }
}

}  // namespace
}  // namespace orv
