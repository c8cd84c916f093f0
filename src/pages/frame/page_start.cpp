#include "pages/frame/page_frame.h"

#include <array>
#include <span>
#include <string_view>

#include "core/record/globals.h"
#include "logging/trap.h"
#include "pages/forms/form_helpers.h"
#include "pages/forms/master_lists.h"
#include "pages/forms/page_set.h"
#include "platform/utf8.h"
#include "store/store_session.h"

namespace orv {
namespace {

/// A list of a page in addition to the companies, with the type of its entries.
struct PageList {
    ComboBox& (*combo)();
    const char* type;
    bool addBlank;
};

template <class F, auto Member, int Index = -1>
constexpr auto comboRef = of<F, Member, Index, ComboBox>;

constexpr std::array kLists1{
    PageList{comboRef<frm_CompInp1, &frm_CompInp1::cbo_License_No>, "002", false},
    PageList{comboRef<frm_CompInp1, &frm_CompInp1::cbo_Get_License_Nengou>, "003", false},
    PageList{comboRef<frm_CompInp1, &frm_CompInp1::cbo_Valid_License_Nengou>, "003", false},
    PageList{comboRef<frm_CompInp1, &frm_CompInp1::cbo_Dantai_Name>, "004", false},
};

constexpr std::array kLists2{
    PageList{comboRef<frm_CompInp2, &frm_CompInp2::cbo_pic_PhotoFile, 0>, "005", true},
    PageList{comboRef<frm_CompInp2, &frm_CompInp2::cbo_pic_PhotoFile, 1>, "005", true},
};

bool P_MakeComboBox_CompInpN(std::string_view label, PageForm& form, std::span<const PageList> lists) {
    return trapped(label, [&] {
        StoreSession session;
        if (!session.openFresh() || !fillCompanies(form.cbo_User_Id)) {
            return false;
        }
        for (const PageList& list : lists) {
            if (!PF_MakeComboBox(list.combo(), list.type, list.addBlank, kListOthers)) {
                return false;
            }
        }
        return true;
    });
}

constexpr std::size_t kLongTitle = 18;
constexpr int kTitleFont = 15;
constexpr int kLongTitleFont = 12;
constexpr std::size_t kMemberFlag = 25;

bool listingMember() {
    const std::string& flags = tCustomerInfo.SERVICE_FLG;
    return flags.size() > kMemberFlag && flags[kMemberFlag] == '2';
}

}  // namespace

bool P_MakeComboBox_CompInp0() { return P_MakeComboBox_CompInpN("[ P_MakeComboBox_CompInp0 ]", pageAt(0), {}); }
bool P_MakeComboBox_CompInp1() { return P_MakeComboBox_CompInpN("[ P_MakeComboBox_CompInp1 ]", pageAt(1), kLists1); }
/// The label is that of page 1 and must stay so.
bool P_MakeComboBox_CompInp2() { return P_MakeComboBox_CompInpN("[ P_MakeComboBox_CompInp1 ]", pageAt(2), kLists2); }
bool P_MakeComboBox_CompInp3() { return P_MakeComboBox_CompInpN("[ P_MakeComboBox_CompInp3 ]", pageAt(3), {}); }
bool P_MakeComboBox_CompInp4() { return P_MakeComboBox_CompInpN("[ P_MakeComboBox_CompInp4 ]", pageAt(4), {}); }

void showTitle(PageForm& form) {
    const std::string name = tCustomerInfo.COMPANY_NAME.empty() ? "" : " " + tCustomerInfo.COMPANY_NAME;
    form.setCaption(tCustomerInfo.USER_ID + name + " - " + std::string(form.pageName()));
    const std::string title = tCustomerInfo.COMPANY_NAME + "　" + tCustomerInfo.OFFICE_NAME;
    form.lbl_TitleCompany.setCaption(title);
    form.lbl_TitleCompany.setFontSize(toCharacters(title).size() > kLongTitle ? kLongTitleFont : kTitleFont);
    form.lbl_TitleRyutuKaiin.setCaption(listingMember() ? "Kovalis掲載会員専用" : "");
}

bool startPage(PageForm& form) {
    const PageEntry& page = pageEntry(form.number);
    PS_SetFormCenter(form);
    if (!page.draw()) {
        return false;
    }
    showTitle(form);
    form.ready = page.fillLists() && page.show();
    return form.ready;
}

}  // namespace orv
