#include "validation/rules/page_checks.h"

#include "core/record/globals.h"
#include "validation/rules/rule_tests.h"

namespace orv {
namespace {

using R = CompanyRecord;
using P = frm_CompInp2;

template <auto Member, int Index = -1>
constexpr ControlRef on = of<P, Member, Index>;

bool isNumbered() { return !isNew(); }

bool transportPasses(Refusal& out) {
    R& record = tCustomerInfo;
    P& form = page<P>();
    if (!PF_CheckTransport(record.RAILROAD_CODE, form.btn_SelectRail, record.STATION_CODE, record.WALK_MINUTES,
                           form.txt_Walk_Minutes, record.BUS_MINUTES, form.txt_Bus_Minutes, record.BUS_ROUTE,
                           form.txt_Bus_Route, record.BUSSTOP, form.txt_Busstop, record.TEIHO_MINUTES,
                           form.txt_Thiho_Minutes, out.focus, out.text, record.CAR_TARGET, form.txt_Car_Target,
                           record.CAR_MINUTES, form.txt_Car_Minutes, record.CAR_DISTANCE, form.txt_Car_Distance)) {
        return false;
    }
    if (out.text.empty()) {
        return true;
    }
    out.id = "CHECK001";
    return false;
}

void dropBarePrefix() {
    if (tCustomerInfo.COMPANY_URL == kUrlPrefix) {
        tCustomerInfo.COMPANY_URL.clear();
    }
}

/// Fails if exactly one of two related fields is empty. A blank is not empty.
template <TextField Other>
Verdict onlyOneFilled(const std::string& value, Refusal&) {
    return value.empty() != (tCustomerInfo.*Other).empty() ? Verdict::Fails : Verdict::Passes;
}

Verdict filled(const std::string& value, Refusal&) { return value.empty() ? Verdict::Passes : Verdict::Fails; }

Verdict withoutPrefix(const std::string& address, Refusal& out) {
    if (address.empty() || address.find(kUrlPrefix) != std::string::npos) {
        return Verdict::Passes;
    }
    return asked("URLに「http://」がありません。", out);
}

// clang-format off
constexpr auto kTexts = std::to_array<Rule>({
    {nullptr, &R::BUS_ROUTE, notAdmitted, on<&P::txt_Bus_Route>},
    {nullptr, &R::BUSSTOP, notAdmitted, on<&P::txt_Busstop>},
    {nullptr, &R::CAR_TARGET, notAdmitted, on<&P::txt_Car_Target>},
    {nullptr, &R::OFFICE_HOURS, notAdmitted, on<&P::txt_Office_Hours>},
    {nullptr, &R::DAY_OFF, notAdmitted, on<&P::txt_Day_Off>},
    {nullptr, &R::COMPANY_COMMENT, notAdmitted, on<&P::txt_Company_Comment>},
    {nullptr, &R::COMPANY_URL, notAdmitted, on<&P::txt_Company_URL>},
    {nullptr, &R::COMPANY_URL_COMMENT, notAdmitted, on<&P::txt_Company_URL_Comment>},
});

constexpr const char* kIncomplete = "画像種類と画像ファイルは双方の登録が必要です。";
constexpr const char* kUnnumbered = "承認手続き前には画像登録はできません。";

/// A company without a number cannot have images, so their kinds are not checked.
constexpr auto kPairs = std::to_array<Rule>({
    {nullptr, &R::COMPANY_URL, onlyOneFilled<&R::COMPANY_URL_COMMENT>, on<&P::txt_Company_URL>, "リンク名称とURLは双方の入力が必要です。"},
    {nullptr, &R::COMPANY_URL, withoutPrefix, on<&P::txt_Company_URL>, "ホームページURL"},
    {isNumbered, kPhotoSlots[0].group, onlyOneFilled<kPhotoSlots[0].file>, on<&P::cbo_pic_PhotoFile, 0>, kIncomplete},
    {isNumbered, kPhotoSlots[1].group, onlyOneFilled<kPhotoSlots[1].file>, on<&P::cbo_pic_PhotoFile, 1>, kIncomplete},
    {isNew, kPhotoSlots[0].file, filled, on<&P::cbo_pic_PhotoFile, 0>, kUnnumbered},
    {isNew, kPhotoSlots[1].file, filled, on<&P::cbo_pic_PhotoFile, 0>, kUnnumbered},
});
// clang-format on

bool accessPasses(Refusal& out) {
    if (!transportPasses(out) || !passes(kTexts, out)) {
        return false;
    }
    dropBarePrefix();
    return passes(kPairs, out);
}

}  // namespace

bool PF_CheckFrmCompInp2Data(Refusal& out) {
    return checked("[ PF_CheckFrmCompInp2Data ] ", out, [&] { return accessPasses(out); });
}

}  // namespace orv
