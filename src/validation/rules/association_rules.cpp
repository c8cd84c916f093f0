#include "validation/rules/page_checks.h"

#include <algorithm>
#include <span>

#include "core/record/globals.h"
#include "validation/rules/council_rows.h"
#include "validation/rules/rule_tests.h"

namespace orv {
namespace {

using R = CompanyRecord;
using P = frm_CompInp1;

template <auto Member, int Index = -1>
constexpr ControlRef on = of<P, Member, Index>;

constexpr std::string_view kIsChosen = "が選択されておりますが、";
constexpr std::string_view kNationwide = "(社)全日本不動産協会 ";
/// Positions in DANTAI_FLG. These associations require the council of the capital, wherever the company is.
constexpr std::size_t kFirstOfTheCapital = 3;
constexpr std::array<std::string_view, 4> kOfTheCapital{"(社)不動産協会 ", "(社)日本住宅建設産業協会 ",
                                                        "(社)不動産流通経営協会 ", "(社)都市開発協会 "};

/// Positions count from 1. A position after the end is not ticked.
bool isTicked(const std::string& flags, std::size_t position) {
    return position <= flags.size() && flags[position - 1] == '1';
}

template <std::size_t Position>
bool associated() {
    return isTicked(tCustomerInfo.DANTAI_FLG, Position);
}

Verdict askedForCouncil(std::string_view association, const Council& council, Refusal& out) {
    if (isTicked(tCustomerInfo.KOUTORI_FLG, council.position)) {
        return Verdict::Passes;
    }
    const Verdict answer = asked(std::string(association) + std::string(kIsChosen) + "\r\n公正取引協議会で" +
                                     std::string(council.region) + "が選択されておりません。",
                                 out);
    if (answer == Verdict::Fails) {
        out.focus = &page<P>().chk_Koutori[council.focus];
    }
    return answer;
}

bool names(const std::string& text, const CouncilRow& row) {
    return std::ranges::any_of(
        row.words, [&](std::string_view word) { return !word.empty() && text.find(word) != std::string::npos; });
}

Verdict askedByPrefecture(std::span<const CouncilRow> rows, const std::string& text, std::string_view association,
                          Refusal& out) {
    const auto row = std::ranges::find_if(rows, [&](const CouncilRow& candidate) { return names(text, candidate); });
    return row == rows.end() ? Verdict::Passes : askedForCouncil(association, row->council, out);
}

Verdict noAssociation(const std::string& flags, Refusal& out) {
    if (flags.find('1') != std::string::npos) {
        return Verdict::Passes;
    }
    return asked("加盟団体が選択されてません。加盟団体なしでよろしいでしょうか？", out);
}

Verdict councilOfAssociation(const std::string& name, Refusal& out) {
    return askedByPrefecture(kByAssociation, name, name, out);
}

Verdict councilOfLicence(const std::string& licence, Refusal& out) {
    return askedByPrefecture(kByLicence, licence, kNationwide, out);
}

template <std::size_t Position>
Verdict councilOfCapital(const std::string&, Refusal& out) {
    return askedForCouncil(kOfTheCapital[Position - kFirstOfTheCapital], kCapital, out);
}

constexpr std::string_view kCouncil = "公正取引協議会";

// clang-format off
constexpr auto kRules = std::to_array<Rule>({
    {nullptr, &R::DANTAI_FLG, noAssociation, on<&P::chk_Dantai, 0>, "加盟団体"},
    {associated<1>, &R::DANTAI_NAME, blank, on<&P::cbo_Dantai_Name>, "加盟団体名"},
    {associated<1>, &R::DANTAI_NAME, councilOfAssociation, nullptr, kCouncil},
    {associated<2>, &R::LICENSE_NO, councilOfLicence, nullptr, kCouncil},
    {associated<3>, &R::DANTAI_FLG, councilOfCapital<3>, nullptr, kCouncil},
    {associated<4>, &R::DANTAI_FLG, councilOfCapital<4>, nullptr, kCouncil},
    {associated<5>, &R::DANTAI_FLG, councilOfCapital<5>, nullptr, kCouncil},
    {associated<6>, &R::DANTAI_FLG, councilOfCapital<6>, nullptr, kCouncil},
    {nullptr, &R::OTHER_DANTAI_NAME, notAdmitted, on<&P::txt_Other_Dantai_Name>},
    {associated<7>, &R::OTHER_DANTAI_NAME, blank, on<&P::txt_Other_Dantai_Name>, "その他加盟団体"},
});
// clang-format on

}  // namespace

bool associationsPass(Refusal& out) { return passes(kRules, out); }

}  // namespace orv
