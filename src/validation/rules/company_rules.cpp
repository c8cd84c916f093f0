#include "validation/rules/page_checks.h"

#include "core/record/globals.h"
#include "validation/rules/rule_tests.h"
#include "validation/text/conversions.h"
#include "validation/text/text_helpers.h"

namespace orv {
namespace {

using R = CompanyRecord;
using P = frm_CompInp0;

template <auto Member>
constexpr ControlRef on = of<P, Member>;

constexpr std::int32_t kPostCode = 8;
constexpr std::int32_t kAddressCode = 11;

bool addressTyped() { return !gAddressByMaster; }
bool addressSearched() { return gAddressByMaster; }
bool siteIsOffice() { return toBoolean(tCustomerInfo.SAME_CHECK); }
bool ownSite() { return !siteIsOffice(); }
bool ownSiteTyped() { return ownSite() && addressTyped(); }
bool ownSiteSearched() { return ownSite() && addressSearched(); }

Verdict failsIf(bool broken) { return broken ? Verdict::Fails : Verdict::Passes; }

Verdict incompleteTyped(const std::string& address, Refusal&) {
    return failsIf(isBlank(address) || PF_LenB(tCustomerInfo.POST_CODE) != kPostCode);
}

/// The search fills all four fields together.
Verdict incompleteSearched(const std::string& address, Refusal&) {
    return failsIf(PF_LenB(tCustomerInfo.ADDRESS_CODE) != kAddressCode ||
                   PF_LenB(tCustomerInfo.POST_CODE) != kPostCode || PF_LenB(tCustomerInfo.AREA_CODE) != kAreaLength ||
                   isBlank(address));
}

Verdict siteIncompleteTyped(const std::string& address, Refusal&) {
    return failsIf(isBlank(address) || PF_LenB(tCustomerInfo.PC_POST_CODE) != kPostCode);
}

Verdict siteIncompleteSearched(const std::string& address, Refusal&) {
    return failsIf(PF_LenB(tCustomerInfo.PC_ADDRESS_CODE) != kAddressCode ||
                   PF_LenB(tCustomerInfo.PC_POST_CODE) != kPostCode || isBlank(address));
}

/// If the computer is at the office, the site's fields must be empty, without even a blank.
Verdict siteFilled(const std::string&, Refusal&) {
    constexpr std::array kSiteFields{&R::PC_ADDRESS_CODE,   &R::PC_ADDRESS,   &R::PC_ADDRESS_GOU,
                                     &R::PC_ADDRESS_NUMBER, &R::PC_FAX_NO,    &R::PC_MAIL_ADDRESS,
                                     &R::PC_OFFICE_NAME,    &R::PC_POST_CODE, &R::PC_TANTO_NAME,
                                     &R::PC_TEL_NO1,        &R::PC_TEL_NO2};
    std::string joined;
    for (const TextField field : kSiteFields) {
        joined += tCustomerInfo.*field;
    }
    return failsIf(!joined.empty());
}

// clang-format off
constexpr auto kRules = std::to_array<Rule>({
    {nullptr, &R::USER_ID, bytesOutside<9>, on<&P::cbo_User_Id>, "ユーザＩＤが不正です。"},
    {nullptr, &R::USER_ID, notAdmitted, on<&P::cbo_User_Id>},
    {isNew, &R::USER_PASSWD, bytesOutside<kShortestPassword, kLongestPassword>, on<&P::txt_User_Passwd>, "パスワードが不正です。"},
    {nullptr, &R::COMPANY_NAME, notAdmitted, on<&P::txt_Company_Name>},
    {nullptr, &R::COMPANY_NAME, blank, on<&P::txt_Company_Name>, "会社名が未入力です。"},
    {nullptr, &R::COMPANY_KANA, notAdmitted, on<&P::txt_Company_Kana>},
    {nullptr, &R::COMPANY_KANA, blank, on<&P::txt_Company_Kana>, "会社名カナが未入力です。"},
    {nullptr, &R::OFFICE_NAME, notAdmitted, on<&P::txt_Office_Name>},
    {nullptr, &R::GROUP_NAME, notAdmitted, on<&P::txt_Group_Name>},
    {addressTyped, &R::ADDRESS, notAdmitted, on<&P::txt_Address>},
    {addressTyped, &R::ADDRESS, incompleteTyped, on<&P::txt_Post_Code>, "所在地が未入力です。"},
    {addressSearched, &R::ADDRESS, incompleteSearched, on<&P::btm_SearchOfficeAddress>, "所在地が不正です。"},
    {nullptr, &R::DAIHYO_NAME, notAdmitted, on<&P::txt_Daihyo_Name>},
    {nullptr, &R::DAIHYO_NAME, blank, on<&P::txt_Daihyo_Name>, "代表者名が未入力です。"},
    {nullptr, &R::DAIHYO_NAME_KANA, notAdmitted, on<&P::txt_Daihyo_Name_Kana>},
    {nullptr, &R::DAIHYO_NAME_KANA, blank, on<&P::txt_Daihyo_Name_Kana>, "代表者名カナが未入力です。"},
    {nullptr, &R::TAKKEN_SYUNIN_NAME, notAdmitted, on<&P::txt_Takken_Syunin_Name>},
    {nullptr, &R::TAKKEN_SYUNIN_NAME, blank, on<&P::txt_Takken_Syunin_Name>, "宅地建物取引主任者が未入力です。"},
    {nullptr, &R::TANTO_NAME, notAdmitted, on<&P::txt_Tanto_Name>},
    {nullptr, &R::TANTO_NAME, blank, on<&P::txt_Tanto_Name>, "入力担当者が未入力です。"},
    {nullptr, &R::TEL_NO1, blank, on<&P::txt_Tel_No1>, "TELが未入力です。"},
    {nullptr, &R::TEL_NO1, notAdmitted, on<&P::txt_Tel_No1>},
    {nullptr, &R::TEL_NO1, noTelNumber, on<&P::txt_Tel_No1>, "TEL番号が未入力です。"},
    {nullptr, &R::TEL_NO2, notAdmitted, on<&P::txt_Tel_No2>},
    {nullptr, &R::TEL_NO2, filledNoTelNumber, on<&P::txt_Tel_No2>, "フリーダイヤルが未入力です。"},
    {nullptr, &R::FAX_NO, blank, on<&P::txt_Fax_No>, "FAX番号が未入力です。"},
    {nullptr, &R::FAX_NO, notAdmitted, on<&P::txt_Fax_No>},
    {nullptr, &R::FAX_NO, noTelNumber, on<&P::txt_Fax_No>, "FAX番号が未入力です。"},
    {nullptr, &R::MAIL_ADDRESS, blank, on<&P::txt_Mail_Address>, "メールアドレスが未入力です。"},
    {nullptr, &R::MAIL_ADDRESS, notAdmitted, on<&P::txt_Mail_Address>},
    {nullptr, &R::MAIL_ADDRESS, noMailAddress, on<&P::txt_Mail_Address>, "メールアドレスが不正です。"},

    {siteIsOffice, &R::SAME_CHECK, siteFilled, on<&P::chk_EqualData>, "上記と同じ場合にＰＣ設置場所のデータは入力できません。"},

    {ownSiteTyped, &R::PC_ADDRESS, notAdmitted, on<&P::txt_Pc_Address>},
    {ownSiteTyped, &R::PC_ADDRESS, siteIncompleteTyped, on<&P::txt_Pc_Post_Code>, "ＰＣ設置場所　所在地が不正です。"},
    {ownSiteSearched, &R::PC_ADDRESS, siteIncompleteSearched, on<&P::btm_Pc_SearchOfficeAddress>, "ＰＣ設置場所　所在地が不正です。"},
    {ownSite, &R::PC_OFFICE_NAME, notAdmitted, on<&P::txt_Pc_Office_Name>},
    {ownSite, &R::PC_TANTO_NAME, notAdmitted, on<&P::txt_Pc_Tanto_Name>},
    {ownSite, &R::PC_TANTO_NAME, blank, on<&P::txt_Pc_Tanto_Name>, "ＰＣ設置場所  入力担当者が未入力です。"},
    {ownSite, &R::PC_TEL_NO1, notAdmitted, on<&P::txt_Pc_Tel_No1>},
    {ownSite, &R::PC_TEL_NO1, blankNoted, on<&P::txt_Pc_Tel_No1>, "ＰＣ設置場所　電話番号が未入力です。"},
    {ownSite, &R::PC_TEL_NO1, noTelNumber, on<&P::txt_Pc_Tel_No1>, "ＰＣ設置場所  TEL番号が未入力です。"},
    {ownSite, &R::PC_TEL_NO2, notAdmitted, on<&P::txt_Pc_Tel_No2>},
    {ownSite, &R::PC_TEL_NO2, filledNoTelNumber, on<&P::txt_Pc_Tel_No2>, "ＰＣ設置場所  フリーダイヤルが未入力です。"},
    {ownSite, &R::PC_FAX_NO, notAdmitted, on<&P::txt_Pc_Fax_No>},
    {ownSite, &R::PC_FAX_NO, filledNoTelNumber, on<&P::txt_Pc_Fax_No>, "ＰＣ設置場所  ＦＡＸ番号が未入力です。"},
    {ownSite, &R::PC_MAIL_ADDRESS, notAdmitted, on<&P::txt_Pc_Mail_Address>},
    {ownSite, &R::PC_MAIL_ADDRESS, noMailAddress, on<&P::txt_Pc_Mail_Address>, "ＰＣ設置場所　メールアドレスが不正です。"},
});
// clang-format on

}  // namespace

bool PF_CheckFrmCompInp0Data(Refusal& out) {
    return checked("[ PF_CheckFrmCompInp0Data ] ", out, [&] { return passes(kRules, out); });
}

}  // namespace orv
