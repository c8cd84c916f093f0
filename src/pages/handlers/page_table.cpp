#include "pages/handlers/page_table.h"

#include "binding/page_bindings.h"
#include "binding/page_to_record.h"
#include "binding/record_to_page.h"
#include "pages/forms/page_set.h"
#include "pages/frame/page_frame.h"
#include "pages/handlers/page_handlers.h"
#include "pages/layout/page_layouts.h"
#include "validation/rules/page_checks.h"

namespace orv {
namespace {

template <class F>
PageForm& formAsPage() {
    return page<F>();
}

template <class F, void (*connect)(F&)>
void wire() {
    connect(page<F>());
}

/// True if the entry has every column that a page needs. Only the rules can be missing.
constexpr bool isComplete(const PageEntry& entry) {
    return !entry.name.empty() && entry.form != nullptr && entry.wire != nullptr && entry.fillLists != nullptr &&
           entry.draw != nullptr && entry.binding != nullptr && entry.show != nullptr && entry.read != nullptr &&
           entry.layout != nullptr;
}

constexpr bool isCompleteAndInOrder(const std::array<PageEntry, kPageCount>& table) {
    for (int number = 0; number < kPageCount; ++number) {
        const PageEntry& entry = table[static_cast<std::size_t>(number)];
        if (entry.number != number || !isComplete(entry)) {
            return false;
        }
    }
    return true;
}

}  // namespace

constexpr std::array<PageEntry, kPageCount> kPages{{
    {.number = frm_CompInp0::kNumber,
     .name = "会社情報",
     .form = formAsPage<frm_CompInp0>,
     .wire = wire<frm_CompInp0, wireCompInp0>,
     .fillLists = P_MakeComboBox_CompInp0,
     .draw = P_MakeComp0View,
     .binding = &kBinding0,
     .show = PF_SetData_Frm_CompInp0,
     .read = PF_SetData_tCustomerInfo0,
     .check = PF_CheckFrmCompInp0Data,
     .layout = compInp0Layout},
    {.number = frm_CompInp1::kNumber,
     .name = "免許・所属団体",
     .form = formAsPage<frm_CompInp1>,
     .wire = wire<frm_CompInp1, wireCompInp1>,
     .fillLists = P_MakeComboBox_CompInp1,
     .draw = P_MakeComp1View,
     .binding = &kBinding1,
     .show = PF_SetData_Frm_CompInp1,
     .read = PF_SetData_tCustomerInfo1,
     .check = PF_CheckFrmCompInp1Data,
     .layout = compInp1Layout},
    {.number = frm_CompInp2::kNumber,
     .name = "交通・会社ＰＲ",
     .form = formAsPage<frm_CompInp2>,
     .wire = wire<frm_CompInp2, wireCompInp2>,
     .fillLists = P_MakeComboBox_CompInp2,
     .draw = P_MakeComp2View,
     .binding = &kBinding2,
     .show = PF_SetData_Frm_CompInp2,
     .read = PF_SetData_tCustomerInfo2,
     .check = PF_CheckFrmCompInp2Data,
     .layout = compInp2Layout},
    {.number = frm_CompInp3::kNumber,
     .name = "業務内容",
     .form = formAsPage<frm_CompInp3>,
     .wire = wire<frm_CompInp3, wireCompInp3>,
     .fillLists = P_MakeComboBox_CompInp3,
     .draw = P_MakeComp3View,
     .binding = &kBinding3,
     .show = PF_SetData_Frm_CompInp3,
     .read = PF_SetData_tCustomerInfo3,
     .check = nullptr,
     .layout = compInp3Layout},
    {.number = frm_CompInp4::kNumber,
     .name = "動作環境",
     .form = formAsPage<frm_CompInp4>,
     .wire = wire<frm_CompInp4, wireCompInp4>,
     .fillLists = P_MakeComboBox_CompInp4,
     .draw = P_MakeComp4View,
     .binding = &kBinding4,
     .show = PF_SetData_Frm_CompInp4,
     .read = PF_SetData_tCustomerInfo4,
     .check = nullptr,
     .layout = compInp4Layout},
}};

static_assert(isCompleteAndInOrder(kPages), "every page has its entry, in the order of the numbers, without a gap");

}  // namespace orv
