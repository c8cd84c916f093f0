// Every routine that a failure is told by: a fault is injected, the result is false, the pair begins with the routine's
// own label and holds the number. Most take "no memory", 7.

#include <functional>

#include "binding/page_to_record.h"
#include "binding/record_to_page.h"
#include "core/flow/company_write.h"
#include "core/flow/photo_files.h"
#include "core/short_memory.h"
#include "images/file_size_text.h"
#include "logging/write_log.h"
#include "pages/common/master_lists.h"
#include "pages/frame/change_page.h"
#include "pages/frame/page_lists.h"
#include "pages/frame/page_view.h"
#include "pages/handlers/comp_inp0_handlers.h"
#include "pages/handlers/comp_inp1_handlers.h"
#include "pages/handlers/comp_inp3_handlers.h"
#include "store/data_lock.h"
#include "store/row_count.h"
#include "store/statements.h"
#include "support/fixture.h"

namespace orv {
namespace {

using Call = FailingStore::Call;

constexpr const char* kNoMemory = "メモリが足りません。";

[[noreturn]] void breaks() { throw RunTimeError(Failure::OutOfMemory); }

class BrokenClock : public Clock {
public:
    DateTime now() const override { breaks(); }
};

class BrokenPointer : public ScriptedWindows {
public:
    void pointer(bool) override { breaks(); }
};

class Labels : public SystemTest {
protected:
    struct Routine {
        std::string label;
        std::function<bool()> run;
    };

    static std::function<bool()> withoutMemory(std::size_t bytes, const std::function<bool()>& routine) {
        return [bytes, routine] {
            refuseMemory(bytes);
            return routine();
        };
    }
    void breakStore(Call call) {
        store.mend();
        store.raised = Failure::OutOfMemory;
        store.fail(call);
    }
    void expectLabelled(const std::vector<Routine>& routines) {
        for (const Routine& routine : routines) {
            clearPair();
            EXPECT_FALSE(routine.run()) << routine.label;
            EXPECT_EQ(gErrMsg, routine.label + kNoMemory);
            EXPECT_EQ(gErrCode, "7") << routine.label;
            store.mend();
        }
    }

    BrokenClock brokenClock;
};

TEST_F(Labels, OfTheStore) {
    load();
    openStore();
    std::string text;
    const auto raising = [&](Call call, const std::function<bool()>& routine) {
        return [this, call, routine] {
            breakStore(call);
            return routine();
        };
    };
    expectLabelled({
        {"[ PF_DataUnlock ] ", raising(Call::Begin, [] { return PF_DataUnlock("U", kLockType, kLockNumber); })},
        {"[ PF_DataLock ] ",
         [&] {
             store.raised = Failure::OutOfMemory;
             store.fail(Call::Execute, "insert");
             return PF_DataLock("U", kLockType, kLockNumber);
         }},
        {"[ PF_DataLockCheck ] ",
         raising(Call::Select, [&] { return PF_DataLockCheck("U", kLockType, kLockNumber, text) >= 0; })},
        {"", raising(Call::Select, [] { return noRowOf("U", kCountInfo); })},
        {"[ PF_SetCompanyDataSave ] ", raising(Call::Begin, [] { return PF_SetCompanyDataSave(kCompany); })},
        {"[ PF_SetCompanyDataStructureChng ] ",
         [&] {
             store.raised = Failure::OutOfMemory;
             store.fail(Call::Select, "LEFT JOIN");
             return PF_SetCompanyDataStructureChng(kCompany);
         }},
    });
    closeStore();
    services().clock = &brokenClock;
    expectLabelled({
        {"[ P_MakeInsertSQL_Info ] ", [&] { return P_MakeInsertSQL_Info(text); }},
        {"[ P_MakeUpdateSQL_Info ] ", [&] { return P_MakeUpdateSQL_Info(text, kCompany); }},
    });
    EXPECT_EQ(text, "") << "what stood in it before is gone";
    services().clock = &clock;
    expectLabelled({
        {"[ P_MakeInsertSQL_Add ] ", withoutMemory(300, [&] { return P_MakeInsertSQL_Add(text); })},
        {"[ P_MakeUpdateSQL_Add ] ", withoutMemory(300, [&] { return P_MakeUpdateSQL_Add(text, kCompany); })},
        {"[ P_MakeInsertSQL_Date ] ", withoutMemory(60, [&] { return P_MakeInsertSQL_Date(text); })},
        {"[ P_MakeUpdateSQL_Date ] ", withoutMemory(60, [&] { return P_MakeUpdateSQL_Date(text, kCompany); })},
    });
}

TEST_F(Labels, OfTheBackgrounds) {
    for (int number = 0; number < kPageCount; ++number) {
        static_cast<void>(pageAt(number));  // made before there is no memory
        expectLabelled({{"[ P_MakeComp" + std::to_string(number) + "View ] ",
                         withoutMemory(2000, [&] { return makeViewOf(number); })}});
    }
}

TEST_F(Labels, OfTheFlow) {
    load();
    expectLabelled({
        {"[ PF_GetCompanyData ] ",
         [&] {
             messages.failure = Failure::OutOfMemory;
             const bool result = PF_GetCompanyData("000004606");
             messages.failure.reset();
             return result;
         }},
        {"[ PF_SaveCompanyDataOther ] ",
         [&] {
             load();
             writeFile(files.nativePath(tCustomerInfo.PHOTO_FILE2), "another photo");
             files.refuse("C:\\ORV\\IMG\\2\\000004601COS00000000_02.jpg.new", Failure::OutOfMemory);
             return PF_SaveCompanyDataOther();
         }},
    });
}

TEST_F(Labels, OfThePages) {
    startOn(0);
    for (int number = 0; number < kPageCount; ++number) {
        const std::string page = "CompInp" + std::to_string(number);
        PageForm& form = pageAt(number);
        expectLabelled({
            {"[ PF_SetData_Frm_" + page + " ] ",
             [&] {
                 form.lbl_UserId.observe(breaks);
                 const bool result = showRecordOn(number);
                 form.lbl_UserId.observe({});
                 return result;
             }},
            {"[ P_MakeComboBox_" + std::string(number == 2 ? "CompInp1" : page) + " ]",
             [&] {
                 breakStore(Call::Close);
                 return makeListsOf(number);
             }},
        });
    }
    strings.normalizeBreaks = true;
    for (int number = 0; number < 3; ++number) {
        pageAt(number).ready = true;
        expectLabelled({{"[ PF_SetData_tCustomerInfo" + std::to_string(number) + " ] ",
                         [&] { return PF_SetData_tCustomerInfo("frm_CompInp" + std::to_string(number)); }}});
    }
    strings.normalizeBreaks = false;
    pageAt(3).ready = pageAt(4).ready = true;
    page<frm_CompInp4>().lbl_Proxy_Info.setCaption(std::string(1000, 'x'));
    expectLabelled({
        {"[ PF_SetData_tCustomerInfo3 ] ", withoutMemory(60, [] { return PF_SetData_tCustomerInfo("frm_CompInp3"); })},
        {"[ PF_SetData_tCustomerInfo4 ] ",
         withoutMemory(1000, [] { return PF_SetData_tCustomerInfo("frm_CompInp4"); })},
        {"[ PF_Change_Frm_CompInp ] ",
         [&] {
             windows.refused = "open frm_CompInp3";
             return PF_Change_Frm_CompInp(3, screen());
         }},
        {"F_Check_Pubish_Number\r\n",
         [&] {
             breakStore(Call::Select);
             return F_Check_Pubish_Number(page<frm_CompInp0>());
         }},
    });
}

/// Handlers: what they report, and that they report at all.
TEST_F(Labels, OfTheHandlers) {
    struct Handler {
        std::string label;
        std::function<void()> run;
    };
    start();
    auto& page0 = page<frm_CompInp0>();
    auto& page1 = page<frm_CompInp1>();
    auto& page3 = page<frm_CompInp3>();
    page0.btm_Pc_SearchOfficeAddress.observe(breaks);
    page0.txt_Area_Code.observe(breaks);
    page1.chk_Koutori[2].observe(breaks);
    page1.chk_Dantai[0].observe(breaks);
    page1.chk_Dantai[6].observe(breaks);
    page3.chk_Management_Type_Flg[0].observe(breaks);
    page3.chk_Business_Type_Flg[0].observe(breaks);
    page1.chk_Dantai[1].observe(breaks);
    page1.cbo_Dantai_Name.addItem("x");
    for (const Handler& handler : {
             Handler{"[ CompInp0 chk_EqualData_Click ]", [&] { chk_EqualData_Click(page0); }},
             Handler{"[ CompInp0 txt_Address_Code_Change ]", [&] { page0.txt_Address_Code.setText("99999"); }},
             Handler{"[ CompInp1 chk_Koutori_Click ]", [&] { chk_Koutori_Click(page1, 2); }},
             Handler{"[ CompInp1 chk_Dantai_Click ]", [&] { chk_Dantai_Click(page1, 1); }},
             Handler{"[ CompInp1 cbo_Dantai_Name_Click ]", [&] { page1.cbo_Dantai_Name.setListIndex(0); }},
             Handler{"[ CompInp1 txt_Other_Dantai_Name_Change ]", [&] { page1.txt_Other_Dantai_Name.setText("x"); }},
             Handler{"[ CompInp1 txt_Other_Dantai_Name_Validate ]",
                     [&] {
                         page1.txt_Other_Dantai_Name.onChange = std::function<void()>();
                         page1.txt_Other_Dantai_Name.setText("");
                         txt_Other_Dantai_Name_Validate(page1);
                     }},
             Handler{"[ CompInp3 chk_Management_Type_Flg_Click ]", [&] { chk_Management_Type_Flg_Click(page3, 0); }},
             Handler{"[ CompInp3 chk_Business_Type_Flg_Click ]", [&] { chk_Business_Type_Flg_Click(page3, 0); }},
         }) {
        handler.run();
        expectReported("7", handler.label + kNoMemory);
    }
}

TEST_F(Labels, OfAPageButton) {
    startOn(3);
    BrokenPointer broken;
    services().windows = &broken;
    turnTo(0);
    services().windows = &windows;
    expectReported("7", std::string("[ CompInp3 btm_ChangePage_Click ]") + kNoMemory);
    EXPECT_EQ(screen().number, 3);
}

TEST_F(Labels, OfALoadThatFailsBeforeItsRoutines) {
    start();
    for (int number : {1, 2, 3, 4, 0}) {
        windows.refused = "centre frm_CompInp" + std::to_string(number);
        turnTo(number);
        expectReported("7", "[ CompInp" + std::to_string(number) + " Form_Load ]" + kNoMemory);
    }
}

TEST_F(Labels, OfThePhotosAddressKeepsThePair) {
    startOn(2);
    page<frm_CompInp2>().txt_Company_URL.setText("");
    page<frm_CompInp2>().txt_Company_URL.observe(breaks);
    page<frm_CompInp2>().txt_Company_URL_Comment.setText("x");
    expectShown("UTERR001", {"7", std::string("[ txt_Company_URL_Comment_Change ]") + kNoMemory});
    EXPECT_EQ(gErrCode, "7") << "these handlers leave the pair";
    page<frm_CompInp2>().txt_Company_URL.observe({});
}

/// With the message service broken, the label stands in the plain box and in the log.
TEST_F(Labels, OfHandlersWhoseMessageBreaks) {
    startOn(0);
    messages.failure = Failure::OutOfMemory;
    std::size_t boxes = 0;
    const auto expectBox = [&](const std::string& label) {
        ASSERT_EQ(windows.notices.size(), ++boxes) << label;
        EXPECT_EQ(windows.notices.back().title + windows.notices.back().text, "7" + label + kNoMemory);
        EXPECT_TRUE(log().ends_with(record("7", label + kNoMemory)));
        EXPECT_EQ(store.open, 0);
        EXPECT_TRUE(screen().enabled());
    };
    choose("000004602");
    expectBox("[ CompInp0 cbo_User_Id_Click ]");
    EXPECT_EQ(screen().cbo_User_Id.text(), kCompany) << "the list is put back";
    leave();
    expectBox("[ CompInp0 btm_Back_Menu_Click ]");
    closeBox();
    expectBox("[ Form_QueryUnload ]");
    EXPECT_EQ(forms.forms().size(), 1u);
    save();
    expectBox("[ CompInp0 btm_Save_Click ]");
    EXPECT_EQ(forms.pointer(), kPointerDefault);
}

}  // namespace
}  // namespace orv
