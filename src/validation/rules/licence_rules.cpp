#include "validation/rules/page_checks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "core/record/globals.h"
#include "platform/ascii.h"
#include "platform/machine/clock.h"
#include "platform/machine/japanese_calendar.h"
#include "platform/services.h"
#include "platform/value.h"
#include "validation/rules/rule_tests.h"
#include "validation/text/conversions.h"
#include "validation/text/text_helpers.h"

namespace orv {
namespace {

using R = CompanyRecord;
using P = frm_CompInp1;

template <auto Member, int Index = -1>
constexpr ControlRef on = of<P, Member, Index>;

constexpr std::string_view kComparable = "yyyymmdd";
constexpr double kMostOfADate = 9999;

bool unlicensed() { return isWithoutLicence(trimmed(tCustomerInfo.LICENSE_NO)); }
bool licensed() { return !unlicensed(); }

/// Pads to two digits. A text that is not a number of a date is unchanged, so that the date cannot be read.
std::string twoDigits(const std::string& text) {
    const std::optional<double> number = readNumber(text);
    if (!number || std::abs(*number) > kMostOfADate) {
        return text;
    }
    const std::string digits = std::to_string(std::lround(*number));
    return digits.size() < 2 ? "0" + digits : digits;
}

std::string expiryText() {
    const R& record = tCustomerInfo;
    const std::string era = record.VALID_LICENSE_NENGOU == kWesternCalendar ? "" : record.VALID_LICENSE_NENGOU;
    return era + twoDigits(record.VALID_LICENSE_DATE_YEAR) + "年" + twoDigits(record.VALID_LICENSE_DATE_MONTH) + "月" +
           twoDigits(record.VALID_LICENSE_DATE_DAY) + "日";
}

/// Returns the day as one number. Failure 13 if the text is not a date.
std::int32_t dayNumber(const std::string& dateText) {
    const std::optional<DateTime> date = services().calendar->parseDate(dateText);
    return toLong(date ? formatMoment(*date, kComparable) : dateText);
}

Verdict expired(const std::string&, Refusal&) {
    const std::int32_t today = toLong(formatMoment(services().clock->now(), kComparable));
    return dayNumber(expiryText()) < today ? Verdict::Fails : Verdict::Passes;
}

Verdict licenceFilled(const std::string&, Refusal&) {
    constexpr std::array kLicenceFields{
        &R::LICENSE_NO_DAI,           &R::LICENSE_NO_GO,         &R::GET_LICENSE_NENGOU,   &R::GET_LICENSE_DATE_YEAR,
        &R::GET_LICENSE_DATE_MONTH,   &R::GET_LICENSE_DATE_DAY,  &R::VALID_LICENSE_NENGOU, &R::VALID_LICENSE_DATE_YEAR,
        &R::VALID_LICENSE_DATE_MONTH, &R::VALID_LICENSE_DATE_DAY};
    const bool empty =
        std::ranges::all_of(kLicenceFields, [](TextField field) { return isBlank(tCustomerInfo.*field); });
    return empty ? Verdict::Passes : Verdict::Fails;
}

// An expired licence focuses the list that enables the two dates, not the expiry date. The last text writes "なし"
// although the list contains "無し".
// clang-format off
constexpr auto kRules = std::to_array<Rule>({
    {licensed, &R::LICENSE_NO_DAI, blank, on<&P::txt_License_no_Dai>, "免許番号　第"},
    {licensed, &R::LICENSE_NO_GO, blank, on<&P::txt_License_No_Go>, "免許番号　号"},
    {licensed, &R::GET_LICENSE_NENGOU, blank, on<&P::cbo_Get_License_Nengou>, "免許登録日（年号）"},
    {licensed, &R::GET_LICENSE_DATE_YEAR, blank, on<&P::txt_Get_License_Date, 0>, "免許登録日（年）"},
    {licensed, &R::GET_LICENSE_DATE_MONTH, blank, on<&P::txt_Get_License_Date, 1>, "免許登録日（月）"},
    {licensed, &R::GET_LICENSE_DATE_DAY, blank, on<&P::txt_Get_License_Date, 2>, "免許登録日（日）"},
    {licensed, &R::VALID_LICENSE_NENGOU, blank, on<&P::cbo_Valid_License_Nengou>, "免許有効期限（年号）"},
    {licensed, &R::VALID_LICENSE_DATE_YEAR, blank, on<&P::txt_Valid_License_Date, 0>, "免許有効期限（年）"},
    {licensed, &R::VALID_LICENSE_DATE_MONTH, blank, on<&P::txt_Valid_License_Date, 1>, "免許有効期限（月）"},
    {licensed, &R::VALID_LICENSE_DATE_DAY, blank, on<&P::txt_Valid_License_Date, 2>, "免許有効期限（日）"},
    {licensed, &R::VALID_LICENSE_NENGOU, expired, on<&P::cbo_Get_License_Nengou>, "免許有効期限が切れております。\r\n免許有効期限を正しく入力して下さい。", "CHECK004"},
    {unlicensed, &R::LICENSE_NO, licenceFilled, on<&P::cbo_License_No>, "免許番号が「なし」「貸主」の場合は\r\n免許期限は入力できません。"},
});
// clang-format on

}  // namespace

bool PF_CheckFrmCompInp1Data(Refusal& out) {
    return checked("[ PF_CheckFrmCompInp1Data ] ", out, [&] { return passes(kRules, out) && associationsPass(out); });
}

}  // namespace orv
