// The handlers that nothing else injects a fault for: each ends, and is told by its own label.

#include <functional>

#include "pages/handlers/comp_inp0_handlers.h"
#include "pages/handlers/comp_inp1_handlers.h"
#include "pages/handlers/comp_inp3_handlers.h"
#include "support/fixture.h"

namespace orv {
namespace {

constexpr const char* kNoMemory = "メモリが足りません。";

[[noreturn]] void breaks() { throw RunTimeError(Failure::OutOfMemory); }

using Labels = SystemTest;

TEST_F(Labels, OfTheHandlers) {
    struct Handler {
        std::string label;
        std::function<void()> run;
    };
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
    const auto enterAt = [](Control& control) {
        dynamic_cast<Form&>(control.owner()).observeFocus([](Control&) { breaks(); });
        int key = kKeyEnter;
        control.onKeyDown.raise(key);
    };
    for (const Handler& handler : {
             Handler{"[ CompInp0 chk_EqualData_Click ]", [&] { chk_EqualData_Click(page0); }},
             Handler{"[ CompInp0 txt_Address_Code_Change ]", [&] { page0.txt_Address_Code.setText("99999"); }},
             Handler{"[ CompInp0 cbo_User_Id_KeyDown ]", [&] { enterAt(page0.cbo_User_Id); }},
             Handler{"[ CompInp0 chk_EqualData_KeyDown ]", [&] { enterAt(page0.chk_EqualData); }},
             Handler{"[ CompInp1 cbo_License_No_KeyDown ]", [&] { enterAt(page1.cbo_License_No); }},
             Handler{"[ CompInp2 cbo_pic_PhotoFile_KeyDown ]", [&] { enterAt(page2.cbo_pic_PhotoFile[1]); }},
             Handler{"[ CompInp3 chk_Business_Type_Flg_KeyDown ]", [&] { enterAt(page3.chk_Business_Type_Flg[0]); }},
             Handler{"[ CompInp1 chk_Koutori_Click ]", [&] { chk_Koutori_Click(page1, 2); }},
             Handler{"[ CompInp1 chk_Dantai_Click ]", [&] { chk_Dantai_Click(page1, 1); }},
             Handler{"[ CompInp1 cbo_Dantai_Name_Click ]", [&] { page1.cbo_Dantai_Name.setListIndex(0); }},
             Handler{"[ CompInp1 txt_Other_Dantai_Name_Change ]", [&] { page1.txt_Other_Dantai_Name.setText("x"); }},
             Handler{"[ CompInp3 chk_Management_Type_Flg_Click ]", [&] { chk_Management_Type_Flg_Click(page3, 0); }},
             Handler{"[ CompInp3 chk_Business_Type_Flg_Click ]", [&] { chk_Business_Type_Flg_Click(page3, 0); }},
         }) {
        handler.run();
        expectReported("7", handler.label + kNoMemory);
    }
}

}  // namespace
}  // namespace orv
