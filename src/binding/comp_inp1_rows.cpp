#include "binding/flag_boxes.h"
#include "binding/page_bindings.h"
#include "core/record/globals.h"
#include "pages/forms/control_helpers.h"

namespace orv {
namespace {

using R = CompanyRecord;
using P = frm_CompInp1;

constexpr std::size_t kFlags = 16;
constexpr std::size_t kListedAssociation = 0;

template <auto Member, int Index = -1>
constexpr ControlRef on = of<P, Member, Index>;

constexpr auto kRows = std::to_array<BindingRow>({
    {&R::LICENSE_NO, on<&P::cbo_License_No>},
    {&R::LICENSE_NO_DAI, on<&P::txt_License_no_Dai>},
    {&R::LICENSE_NO_GO, on<&P::txt_License_No_Go>},
    {&R::GET_LICENSE_NENGOU, on<&P::cbo_Get_License_Nengou>},
    {&R::GET_LICENSE_DATE_YEAR, on<&P::txt_Get_License_Date, 0>, ReadAs::NullToStr},
    {&R::GET_LICENSE_DATE_MONTH, on<&P::txt_Get_License_Date, 1>, ReadAs::NullToStr},
    {&R::GET_LICENSE_DATE_DAY, on<&P::txt_Get_License_Date, 2>, ReadAs::NullToStr},
    {&R::VALID_LICENSE_NENGOU, on<&P::cbo_Valid_License_Nengou>},
    {&R::VALID_LICENSE_DATE_YEAR, on<&P::txt_Valid_License_Date, 0>, ReadAs::NullToStr},
    {&R::VALID_LICENSE_DATE_MONTH, on<&P::txt_Valid_License_Date, 1>, ReadAs::NullToStr},
    {&R::VALID_LICENSE_DATE_DAY, on<&P::txt_Valid_License_Date, 2>, ReadAs::NullToStr},
    {&R::DANTAI_NAME, on<&P::cbo_Dantai_Name>},
    {&R::OTHER_DANTAI_NAME, on<&P::txt_Other_Dantai_Name>},
});

/// Sets ListIndex directly, because PF_SetControlValue does nothing without the file of field names.
void choose(ComboBox& combo, const std::string& value) {
    if (value.empty()) {
        combo.setListIndex(-1);
    } else {
        PF_SetControlValue(combo, value);
    }
}

void showLicence() { choose(page<P>().cbo_License_No, tCustomerInfo.LICENSE_NO); }
void showStartEra() { choose(page<P>().cbo_Get_License_Nengou, tCustomerInfo.GET_LICENSE_NENGOU); }
void showEndEra() { choose(page<P>().cbo_Valid_License_Nengou, tCustomerInfo.VALID_LICENSE_NENGOU); }

/// Old records contain "なし" for no association.
void showListedAssociation() {
    const std::string& name = tCustomerInfo.DANTAI_NAME;
    choose(page<P>().cbo_Dantai_Name, name == "なし" ? std::string() : name);
}

void showAssociations() {
    P& form = page<P>();
    for (std::size_t i = 0; i < form.chk_Dantai.size(); ++i) {
        const bool on = flagAt(tCustomerInfo.DANTAI_FLG, i);
        if (i == kListedAssociation) {
            PF_EnableCombo(form.cbo_Dantai_Name, on, kRequiredField);
        }
        form.chk_Dantai[i].setValue(on ? 1 : 0);
    }
}

void showCouncils() {
    P& form = page<P>();
    for (std::size_t i = 0; i < form.chk_Koutori.size(); ++i) {
        PF_SetControlValue(form.chk_Koutori[i], flagAt(tCustomerInfo.KOUTORI_FLG, i) ? "1" : "0");
    }
}

void readAssociations() { tCustomerInfo.DANTAI_FLG = readFlags(page<P>().chk_Dantai, kFlags); }

void readCouncils() { tCustomerInfo.KOUTORI_FLG = readFlags(page<P>().chk_Koutori, kFlags); }

constexpr auto kToPage = std::to_array<Step>({
    step<showLicence>(&R::LICENSE_NO),
    row(&R::LICENSE_NO_DAI),
    row(&R::LICENSE_NO_GO),
    step<showStartEra>(&R::GET_LICENSE_NENGOU),
    row(&R::GET_LICENSE_DATE_YEAR),
    row(&R::GET_LICENSE_DATE_MONTH),
    row(&R::GET_LICENSE_DATE_DAY),
    step<showEndEra>(&R::VALID_LICENSE_NENGOU),
    row(&R::VALID_LICENSE_DATE_YEAR),
    row(&R::VALID_LICENSE_DATE_MONTH),
    row(&R::VALID_LICENSE_DATE_DAY),
    step<showAssociations>(&R::DANTAI_FLG),
    row(&R::OTHER_DANTAI_NAME),
    step<showListedAssociation>(&R::DANTAI_NAME),
    step<showCouncils>(&R::KOUTORI_FLG),
});

constexpr auto kToRecord = std::to_array<Step>({
    row(&R::LICENSE_NO),
    row(&R::LICENSE_NO_DAI),
    row(&R::LICENSE_NO_GO),
    row(&R::GET_LICENSE_NENGOU),
    row(&R::GET_LICENSE_DATE_YEAR),
    row(&R::GET_LICENSE_DATE_MONTH),
    row(&R::GET_LICENSE_DATE_DAY),
    row(&R::VALID_LICENSE_NENGOU),
    row(&R::VALID_LICENSE_DATE_YEAR),
    row(&R::VALID_LICENSE_DATE_MONTH),
    row(&R::VALID_LICENSE_DATE_DAY),
    step<readAssociations>(&R::DANTAI_FLG),
    row(&R::DANTAI_NAME),
    row(&R::OTHER_DANTAI_NAME),
    step<readCouncils>(&R::KOUTORI_FLG),
});

}  // namespace

constexpr PageBinding kBinding1{kRows, kToPage, kToRecord};

}  // namespace orv
