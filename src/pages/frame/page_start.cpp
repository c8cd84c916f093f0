#include "pages/frame/page_start.h"

#include "binding/record_to_page.h"
#include "core/record/globals.h"
#include "pages/forms/form_view.h"
#include "pages/frame/page_lists.h"
#include "pages/frame/page_view.h"
#include "platform/utf8.h"

namespace orv {
namespace {

constexpr std::size_t kLongTitle = 18;
constexpr int kTitleFont = 15;
constexpr int kLongTitleFont = 12;
constexpr std::size_t kMemberFlag = 25;

bool listingMember() {
    const std::string& flags = tCustomerInfo.SERVICE_FLG;
    return flags.size() > kMemberFlag && flags[kMemberFlag] == '2';
}

}  // namespace

void showTitle(PageForm& form) {
    const std::string name = tCustomerInfo.COMPANY_NAME.empty() ? "" : " " + tCustomerInfo.COMPANY_NAME;
    form.setCaption(tCustomerInfo.USER_ID + name + " - " + std::string(form.pageName()));
    const std::string title = tCustomerInfo.COMPANY_NAME + "　" + tCustomerInfo.OFFICE_NAME;
    form.lbl_TitleCompany.setCaption(title);
    form.lbl_TitleCompany.setFontSize(toCharacters(title).size() > kLongTitle ? kLongTitleFont : kTitleFont);
    form.lbl_TitleRyutuKaiin.setCaption(listingMember() ? "Kovalis掲載会員専用" : "");
}

bool startPage(PageForm& form) {
    PS_SetFormCenter(form);
    if (!makeViewOf(form.number)) {
        return false;
    }
    showTitle(form);
    form.ready = makeListsOf(form.number) && showRecordOn(form.number);
    return form.ready;
}

}  // namespace orv
