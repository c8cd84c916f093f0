#include "binding/page_bindings.h"
#include "core/record/globals.h"
#include "pages/forms/control_helpers.h"
#include "platform/services.h"
#include "platform/suite/string_check_service.h"
#include "validation/text/conversions.h"
#include "validation/text/text_helpers.h"

namespace orv {
namespace {

using R = CompanyRecord;
using P = frm_CompInp0;

template <auto Member>
constexpr ControlRef on = of<P, Member>;

constexpr auto kRows = std::to_array<BindingRow>({
    {&R::USER_PASSWD, on<&P::txt_User_Passwd>},
    {&R::GROUP_NAME, on<&P::txt_Group_Name>},
    {&R::COMPANY_NAME, on<&P::txt_Company_Name>},
    {&R::COMPANY_KANA, on<&P::txt_Company_Kana>},
    {&R::OFFICE_NAME, on<&P::txt_Office_Name>},
    {&R::POST_CODE, on<&P::txt_Post_Code>},
    {&R::ADDRESS, on<&P::txt_Address>},
    {&R::ADDRESS_NUMBER, on<&P::txt_Address_number>},
    {&R::ADDRESS_GOU, on<&P::txt_Address_Gou>},
    {&R::ADDRESS_OTHER, on<&P::txt_Address_Other>},
    {&R::ADDRESS_CODE, on<&P::txt_Address_Code>},
    {&R::AREA_CODE, on<&P::txt_Area_Code>},
    {&R::DAIHYO_NAME, on<&P::txt_Daihyo_Name>},
    {&R::DAIHYO_NAME_KANA, on<&P::txt_Daihyo_Name_Kana>},
    {&R::TAKKEN_SYUNIN_NAME, on<&P::txt_Takken_Syunin_Name>},
    {&R::TANTO_NAME, on<&P::txt_Tanto_Name>},
    {&R::TEL_NO1, on<&P::txt_Tel_No1>},
    {&R::TEL_NO2, on<&P::txt_Tel_No2>},
    {&R::FAX_NO, on<&P::txt_Fax_No>},
    {&R::MAIL_ADDRESS, on<&P::txt_Mail_Address>},
    {&R::PC_ADDRESS_NUMBER, on<&P::txt_Pc_Address_number>},
    {&R::PC_ADDRESS_GOU, on<&P::txt_Pc_Address_Gou>},
    {&R::PC_ADDRESS, on<&P::txt_Pc_Address>},
    {&R::PC_ADDRESS_CODE, on<&P::txt_Pc_Address_Code>},
    {&R::PC_POST_CODE, on<&P::txt_Pc_Post_Code>},
    {&R::PC_OFFICE_NAME, on<&P::txt_Pc_Office_Name>},
    {&R::PC_TEL_NO2, on<&P::txt_Pc_Tel_No2>},
    {&R::PC_TEL_NO1, on<&P::txt_Pc_Tel_No1>},
    {&R::PC_FAX_NO, on<&P::txt_Pc_Fax_No>},
    {&R::PC_TANTO_NAME, on<&P::txt_Pc_Tanto_Name>},
    {&R::PC_MAIL_ADDRESS, on<&P::txt_Pc_Mail_Address>},
});

/// True if the computer is at the office's address.
bool isSameAddress() { return toNumber(tCustomerInfo.SAME_CHECK) == 1; }

/// The password can be typed here only for a company without a number.
void showPasswordBlock() {
    P& form = page<P>();
    PF_EnableControl(form.txt_User_Passwd, isNew(), kRequiredField);
    form.btm_ChangePW.setVisible(!isNew());
}

void enableTypedAddresses(P& form) {
    PF_EnableControl(form.txt_Post_Code, true, kRequiredField);
    PF_EnableControl(form.txt_Address, true, kRequiredField);
    form.btm_SearchOfficeAddress.setVisible(false);
    const bool separate = !isSameAddress();
    PF_EnableControl(form.txt_Pc_Post_Code, separate, kRequiredField);
    PF_EnableControl(form.txt_Pc_Address, separate, kRequiredField);
    form.btm_Pc_SearchOfficeAddress.setVisible(false);
}

/// An address without its code did not come from the search. It is removed, so that the operator searches again.
void dropUncodedAddresses() {
    if (isBlank(tCustomerInfo.ADDRESS_CODE)) {
        tCustomerInfo.ADDRESS.clear();
    }
    if (isBlank(tCustomerInfo.PC_ADDRESS_CODE)) {
        tCustomerInfo.PC_ADDRESS.clear();
    }
}

void enableSearchedAddresses(P& form) {
    dropUncodedAddresses();
    for (TextInput* input : {&form.txt_Post_Code, &form.txt_Address, &form.txt_Pc_Post_Code, &form.txt_Pc_Address}) {
        PF_EnableControl(*input, false);
    }
    form.btm_SearchOfficeAddress.setVisible(true);
    form.btm_Pc_SearchOfficeAddress.setVisible(true);
    form.btm_Pc_SearchOfficeAddress.setEnabled(!isSameAddress());
}

void showAddressMode() {
    if (gAddressByMaster) {
        enableSearchedAddresses(page<P>());
    } else {
        enableTypedAddresses(page<P>());
    }
}

void showSameCheck() { PF_SetControlValue(page<P>().chk_EqualData, isSameAddress() ? "1" : "0"); }

/// If nothing is selected in the list, the record keeps its key. Every page shows the key, independent of its binding.
void readUserId() {
    const std::string chosen = page<P>().cbo_User_Id.text();
    if (!chosen.empty()) {
        services().stringCheck->Normalize(chosen, tCustomerInfo.USER_ID);
    }
}

void readSameCheck() { tCustomerInfo.SAME_CHECK = page<P>().chk_EqualData.value() == 1 ? "1" : "0"; }

constexpr auto kToPage = std::to_array<Step>({
    step<showPasswordBlock>(),
    row(&R::USER_PASSWD),
    row(&R::GROUP_NAME),
    row(&R::COMPANY_NAME),
    row(&R::COMPANY_KANA),
    row(&R::OFFICE_NAME),
    step<showAddressMode>(),
    row(&R::POST_CODE),
    row(&R::ADDRESS),
    row(&R::ADDRESS_NUMBER),
    row(&R::ADDRESS_GOU),
    row(&R::ADDRESS_CODE),
    row(&R::AREA_CODE),
    row(&R::ADDRESS_OTHER),
    row(&R::DAIHYO_NAME),
    row(&R::DAIHYO_NAME_KANA),
    row(&R::TAKKEN_SYUNIN_NAME),
    row(&R::TANTO_NAME),
    row(&R::TEL_NO1),
    row(&R::TEL_NO2),
    row(&R::FAX_NO),
    row(&R::MAIL_ADDRESS),
    step<showSameCheck>(&R::SAME_CHECK),
    row(&R::PC_ADDRESS_NUMBER),
    row(&R::PC_ADDRESS_GOU),
    row(&R::PC_ADDRESS),
    row(&R::PC_ADDRESS_CODE),
    row(&R::PC_POST_CODE),
    row(&R::PC_OFFICE_NAME),
    row(&R::PC_TEL_NO2),
    row(&R::PC_TEL_NO1),
    row(&R::PC_FAX_NO),
    row(&R::PC_TANTO_NAME),
    row(&R::PC_MAIL_ADDRESS),
});

constexpr auto kToRecord = std::to_array<Step>({
    step<readUserId>(),         row(&R::USER_PASSWD),
    row(&R::GROUP_NAME),        row(&R::COMPANY_NAME),
    row(&R::COMPANY_KANA),      row(&R::OFFICE_NAME),
    row(&R::POST_CODE),         row(&R::ADDRESS),
    row(&R::ADDRESS_NUMBER),    row(&R::ADDRESS_GOU),
    row(&R::ADDRESS_OTHER),     row(&R::ADDRESS_CODE),
    row(&R::AREA_CODE),         row(&R::DAIHYO_NAME),
    row(&R::DAIHYO_NAME_KANA),  row(&R::TAKKEN_SYUNIN_NAME),
    row(&R::TANTO_NAME),        row(&R::TEL_NO1),
    row(&R::TEL_NO2),           row(&R::FAX_NO),
    row(&R::MAIL_ADDRESS),      step<readSameCheck>(&R::SAME_CHECK),
    row(&R::PC_ADDRESS_NUMBER), row(&R::PC_ADDRESS_GOU),
    row(&R::PC_ADDRESS),        row(&R::PC_ADDRESS_CODE),
    row(&R::PC_POST_CODE),      row(&R::PC_OFFICE_NAME),
    row(&R::PC_TEL_NO2),        row(&R::PC_TEL_NO1),
    row(&R::PC_FAX_NO),         row(&R::PC_TANTO_NAME),
    row(&R::PC_MAIL_ADDRESS),
});

}  // namespace

constexpr PageBinding kBinding0{kRows, kToPage, kToRecord};

}  // namespace orv
