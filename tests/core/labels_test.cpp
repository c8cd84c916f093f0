// The labels that nothing else injects a fault for: the routine or the handler ends, and is told by its own label.

#include <functional>

#include "binding/page_to_record.h"
#include "pages/frame/page_lists.h"
#include "pages/handlers/comp_inp0_handlers.h"
#include "pages/handlers/comp_inp1_handlers.h"
#include "pages/handlers/comp_inp3_handlers.h"
#include "support/fixture.h"

namespace orv {
namespace {

constexpr const char* kNoMemory = "メモリが足りません。";

[[noreturn]] void breaks() { throw RunTimeError(Failure::OutOfMemory); }

class Labels : public SystemTest {
protected:
    void breakStore(Call call) {
        store.raised = Failure::OutOfMemory;
        store.fail(call);
    }
    void expectLabelled(const std::string& label, const std::function<bool()>& routine) {
        clearPair();
        EXPECT_FALSE(routine()) << label;
        EXPECT_EQ(gErrMsg, label + kNoMemory);
        EXPECT_EQ(gErrCode, "7") << label;
        store.mend();
    }
};

TEST_F(Labels, OfThePages) {
    startOn(0);
    for (int number = 0; number < kPageCount; ++number) {
        const std::string page = "CompInp" + std::to_string(number);
        breakStore(Call::Close);
        expectLabelled("[ P_MakeComboBox_" + std::string(number == 2 ? "CompInp1" : page) + " ]",
                       [&] { return makeListsOf(number); });
    }
    strings.normalizeBreaks = true;
    for (int number = 0; number < 3; ++number) {
        pageAt(number).ready = true;
        expectLabelled("[ PF_SetData_tCustomerInfo" + std::to_string(number) + " ] ",
                       [&] { return PF_SetData_tCustomerInfo("frm_CompInp" + std::to_string(number)); });
    }
}

TEST_F(Labels, OfTheHandlers) {
    struct Handler {
        std::string label;
        std::function<void()> run;
    };
    start();
    auto& page0 = page<frm_CompInp0>();
    auto& page1 = page<frm_CompInp1>();
    auto& page3 = page<frm_CompInp3>();
    for (Control* control :
         std::initializer_list<Control*>{&page0.btm_Pc_SearchOfficeAddress, &page0.txt_Area_Code, &page1.chk_Koutori[2],
                                         &page1.chk_Dantai[0], &page1.chk_Dantai[1], &page1.chk_Dantai[6],
                                         &page3.chk_Management_Type_Flg[0], &page3.chk_Business_Type_Flg[0]}) {
        control->observe(breaks);
    }
    page1.cbo_Dantai_Name.addItem("x");
    for (const Handler& handler : {
             Handler{"[ CompInp0 chk_EqualData_Click ]", [&] { chk_EqualData_Click(page0); }},
             Handler{"[ CompInp0 txt_Address_Code_Change ]", [&] { page0.txt_Address_Code.setText("99999"); }},
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
