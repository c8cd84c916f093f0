// Injects a failure into handlers that no other test covers. Each handler reports it under its own label.

#include "pages/handlers/page_handlers.h"
#include "support/fixture.h"

namespace orv {
namespace {

constexpr const char* kNoMemory = "メモリが足りません。";

[[noreturn]] void breaks() { throw RunTimeError(Failure::OutOfMemory); }

using Labels = SystemTest;

TEST_F(Labels, OfTheHandlers) {
    start();
    auto& page0 = page<frm_CompInp0>();
    auto& page1 = page<frm_CompInp1>();
    auto& page2 = page<frm_CompInp2>();
    auto& page3 = page<frm_CompInp3>();
    for (Control* control :
         std::initializer_list<Control*>{&page0.btm_Pc_SearchOfficeAddress, &page0.txt_Area_Code, &page1.chk_Koutori[2],
                                         &page1.chk_Dantai[0], &page1.chk_Dantai[1], &page1.chk_Dantai[6],
                                         &page3.chk_Management_Type_Flg[0], &page3.chk_Business_Type_Flg[0]}) {
        control->observe(breaks);
    }
    page1.cbo_Dantai_Name.addItem("x");
    const auto pressEnter = [](Control& control) {
        int key = kKeyEnter;
        control.onKeyDown.raise(key);
    };
    const auto enterAt = [&](Control& control) {
        dynamic_cast<Form&>(control.owner()).observeFocus([](Control&) { breaks(); });
        pressEnter(control);
    };
    page0.txt_Post_Code.setText("1234567");
    page0.txt_Pc_Post_Code.setText("1234567");
    for (Control* control : std::initializer_list<Control*>{&page0.txt_Post_Code, &page0.txt_Pc_Post_Code,
                                                            &page0.btm_ChangePW, &page2.lbl_Railroad_Name}) {
        control->observe(breaks);
    }
    page2.observe(breaks);
    page<frm_CompInp4>().lbl_TitleCompany.observe(breaks);
    for (const auto& [label, run] : std::vector<std::pair<std::string, std::function<void()>>>{
             {"[ CompInp0 chk_EqualData_Click ]", [&] { chk_EqualData_Click(page0); }},
             {"[ CompInp0 txt_Address_Code_Change ]", [&] { page0.txt_Address_Code.setText("99999"); }},
             {"[ CompInp0 cbo_User_Id_KeyDown ]", [&] { enterAt(page0.cbo_User_Id); }},
             {"[ CompInp0 chk_EqualData_KeyDown ]", [&] { enterAt(page0.chk_EqualData); }},
             {"[ CompInp1 cbo_License_No_KeyDown ]", [&] { enterAt(page1.cbo_License_No); }},
             {"[ CompInp2 cbo_pic_PhotoFile_KeyDown ]", [&] { enterAt(page2.cbo_pic_PhotoFile[1]); }},
             {"[ CompInp3 chk_Business_Type_Flg_KeyDown ]", [&] { enterAt(page3.chk_Business_Type_Flg[0]); }},
             {"[ CompInp1 chk_Koutori_Click ]", [&] { chk_Koutori_Click(page1, 2); }},
             {"[ CompInp1 chk_Dantai_Click ]", [&] { chk_Dantai_Click(page1, 1); }},
             {"[ CompInp1 cbo_Dantai_Name_Click ]", [&] { page1.cbo_Dantai_Name.setListIndex(0); }},
             {"[ CompInp1 txt_Other_Dantai_Name_Change ]", [&] { page1.txt_Other_Dantai_Name.setText("x"); }},
             {"[ CompInp0 txt_Post_Code_Validate ]", [&] { page0.txt_Post_Code.onValidate.raise(); }},
             {"[ CompInp0 txt_Pc_Post_Code_Validate ]", [&] { page0.txt_Pc_Post_Code.onValidate.raise(); }},
             {"[ CompInp0 btm_ChangePW_Click ]", [&] { btm_ChangePW_Click(page0); }},
             {"[ CompInp2 btn_SelectRail_KeyDown ]", [&] { pressEnter(page2.btn_SelectRail); }},
             {"[ CompInp2 btn_DelRail_Click ]", [&] { page2.btn_DelRail.onClick.raise(); }},
             {"[ CompInp3 chk_Management_Type_Flg_Click ]", [&] { chk_Management_Type_Flg_Click(page3, 0); }},
             {"[ CompInp3 chk_Business_Type_Flg_Click ]", [&] { chk_Business_Type_Flg_Click(page3, 0); }},
         }) {
        run();
        expectReported("7", label + kNoMemory);
    }
    page0.observe(breaks);
    pressEnter(page0.btm_SearchOfficeAddress);
    expectReported("7", std::string("[ CompInp0 btm_SearchOfficeAddress_KeyDown ]") + kNoMemory);
    pressEnter(page0.btm_Pc_SearchOfficeAddress);
    expectReported("7", std::string("[ CompInp0 btm_Pc_SearchOfficeAddress_KeyDown ]") + kNoMemory);
    page0.observe({});
    turnTo(4);
    expectReported("7", std::string("[ CompInp4 Form_Load ]") + kNoMemory);
    page2.txt_Company_URL.observe(breaks);
    page2.txt_Company_URL_Comment.setText("会社");
    expectShown("UTERR001", {"7", std::string("[ txt_Company_URL_Comment_Change ]") + kNoMemory});
    page2.txt_Company_URL.observe({});
    page2.txt_Company_URL.setText("");
    page2.txt_Company_URL.observe(breaks);
    page2.txt_Company_URL_Comment.onLostFocus.raise();
    expectShown("UTERR001", {"7", std::string("[ txt_Company_URL_Comment_LostFocus ]") + kNoMemory});
    EXPECT_NE(gErrMsg, "") << "these two leave the pair";
}

TEST_F(Labels, TheLineIsDeletedWithItsStation) {
    auto& form = dynamic_cast<frm_CompInp2&>(startOn(2));
    EXPECT_NE(form.txt_Railroad_Code.text(), "");
    form.btn_DelRail.press();
    EXPECT_EQ(form.lbl_Railroad_Name.caption() + form.lbl_Station_Name.caption() + form.txt_Railroad_Code.text() +
                  form.txt_Station_Code.text(),
              "");
}

}  // namespace
}  // namespace orv
