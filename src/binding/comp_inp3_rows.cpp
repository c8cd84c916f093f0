#include "binding/flag_boxes.h"
#include "binding/page_bindings.h"
#include "core/record/globals.h"
#include "pages/forms/control_helpers.h"

namespace orv {
namespace {

using R = CompanyRecord;
using P = frm_CompInp3;

constexpr std::size_t kFlags = 64;

template <std::size_t N>
void show(ControlArray<CheckBox, N>& boxes, const std::string& flags) {
    for (std::size_t i = 0; i < N; ++i) {
        PF_SetControlValue(boxes[i], flagAt(flags, i) ? "1" : "0");
    }
}

void showManagementTypes() { show(page<P>().chk_Management_Type_Flg, tCustomerInfo.MANAGEMENT_TYPE_FLG); }
void showBusinessTypes() { show(page<P>().chk_Business_Type_Flg, tCustomerInfo.BUSINESS_TYPE_FLG); }

void readManagementTypes() { tCustomerInfo.MANAGEMENT_TYPE_FLG = readFlags(page<P>().chk_Management_Type_Flg, kFlags); }

void readBusinessTypes() { tCustomerInfo.BUSINESS_TYPE_FLG = readFlags(page<P>().chk_Business_Type_Flg, kFlags); }

constexpr auto kToPage = std::to_array<Step>(
    {step<showManagementTypes>(&R::MANAGEMENT_TYPE_FLG), step<showBusinessTypes>(&R::BUSINESS_TYPE_FLG)});
constexpr auto kToRecord = std::to_array<Step>(
    {step<readManagementTypes>(&R::MANAGEMENT_TYPE_FLG), step<readBusinessTypes>(&R::BUSINESS_TYPE_FLG)});

}  // namespace

constexpr PageBinding kBinding3{{}, kToPage, kToRecord};

}  // namespace orv
