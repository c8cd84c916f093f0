#include "validation/rules/page_checks.h"

#include <sstream>

#include "validation/rules/rules_test.h"

namespace orv {
namespace {

using R = CompanyRecord;

/// The fields for access to the office, and their letters in the table below.
constexpr TextField kWays[] = {&R::RAILROAD_CODE, &R::STATION_CODE, &R::WALK_MINUTES,  &R::BUS_MINUTES,
                               &R::BUS_ROUTE,     &R::BUSSTOP,      &R::TEIHO_MINUTES, &R::CAR_TARGET,
                               &R::CAR_MINUTES,   &R::CAR_DISTANCE};
constexpr std::string_view kLetters = "LSwbrsftmd";

using TransportRules = RulesTest;

TEST_F(TransportRules, AllowOneWayAndThatOneWhole) {
    struct Case {
        /// The filled fields, in groups with the same result.
        const char* filled;
        /// The control that gets the focus, and the message; both empty: passes.
        const char *focus, *text;
    };
    for (const Case& row : {
             Case{"LS LSw LSbrsf LSmd", "", ""},
             {"- wbrsftmd", "btn_SelectRail", "沿線・駅が選択されておりません。"},
             {"L S Lw Sbrsf", "btn_SelectRail", "沿線・駅どちらかが選択されておりません。"},
             {"LSwb LSwr LSws LSwf LSwt LSwm LSwd LSwbrsf LSwmd", "txt_Walk_Minutes",
              "沿線・駅・徒歩 以外のデータが入力されています。"},
             {"LSb LSbsf LSbmd", "txt_Bus_Route", "バス路線名が入力されておりません。"},
             {"LSbr LSbrf", "txt_Busstop", "バス停名が入力されておりません。"},
             {"LSbrs LSbrst", "txt_Thiho_Minutes", "停歩が入力されておりません。"},
             {"LSbrsft LSbrsfm LSbrsfd", "txt_Thiho_Minutes", "沿線・駅・バス 以外のデータが入力されています。"},
             {"LSr LSs LSf LSft", "txt_Thiho_Minutes", "バス分数が入力されておりません。"},
             {"LSt LStm LStmd", "txt_Car_Target", "沿線・駅が存在する場合は車目標物は必要ありません。"},
             {"LSm", "txt_Car_Distance", "車距離が入力されておりません。"},
             {"LSd", "txt_Car_Minutes", "車分数が入力されておりません。"},
         }) {
        std::istringstream groups(row.filled);
        for (std::string filled; groups >> filled;) {
            for (std::size_t i = 0; i < std::size(kWays); ++i) {
                tCustomerInfo.*kWays[i] = filled.find(kLetters[i]) == std::string::npos ? "" : " ";
            }
            EXPECT_EQ(passes(PF_CheckFrmCompInp2Data), *row.text == '\0') << filled;
            EXPECT_EQ(out.focus == nullptr ? "" : out.focus->objectName(), row.focus) << filled;
            EXPECT_EQ(out.text, row.text) << filled;
        }
    }
}

TEST_F(TransportRules, TheCodesForNoneAreEmptied) {
    struct Case {
        const char *line, *station, *lineAfter, *stationAfter, *text;
    };
    for (const Case& row : {
             Case{"409999", "999", "", "", "沿線・駅が選択されておりません。"},
             {"130101", "999", "130101", "", "沿線・駅どちらかが選択されておりません。"},
             {"409999", "012", "", "012", "沿線・駅どちらかが選択されておりません。"},
             {"999", "409999", "999", "409999", ""},
             {"409999 ", "0999", "409999 ", "0999", ""},
         }) {
        tCustomerInfo.RAILROAD_CODE = row.line;
        tCustomerInfo.STATION_CODE = row.station;
        EXPECT_EQ(passes(PF_CheckFrmCompInp2Data), *row.text == '\0');
        EXPECT_EQ(out.text, row.text);
        EXPECT_EQ(tCustomerInfo.RAILROAD_CODE, row.lineAfter);
        EXPECT_EQ(tCustomerInfo.STATION_CODE, row.stationAfter);
    }
}

constexpr const char* kPair = "リンク名称とURLは双方の入力が必要です。";
constexpr const char* kNoPrefix = "URLに「http://」がありません。";

using AccessRules = RulesTest;

TEST_F(AccessRules, AddressAndLinkNameGoTogether) {
    struct Case {
        const char *url, *name;
        std::int32_t answer;
        /// The message; empty if the check passes.
        const char* text;
        bool asked;
        const char* urlAfter;
    };
    for (const Case& row : {
             Case{"", "", 0, "", false, ""},
             {"http://", "", 0, "", false, ""},
             {"http://", "見本", 0, kPair, false, ""},
             {"http://a", "", 0, kPair, false, "http://a"},
             {"", " ", 0, kPair, false, ""},
             {"http://a", "見本", 0, "", false, "http://a"},
             {"見本http://", " ", 0, "", false, "見本http://"},
             {"https://a", "見本", 0, "", true, "https://a"},
             {"https://a", "見本", 1, "ホームページURL", true, "https://a"},
             {"HTTP://a", "見本", 1, "ホームページURL", true, "HTTP://a"},
             {" ", "見本", 2, "", true, " "},
         }) {
        SCOPED_TRACE(std::string(row.url) + "|" + row.name);
        tCustomerInfo.COMPANY_URL = row.url;
        tCustomerInfo.COMPANY_URL_COMMENT = row.name;
        const std::string text = row.text;
        EXPECT_EQ(passes(PF_CheckFrmCompInp2Data, {row.answer}), text.empty());
        EXPECT_EQ(questions(), row.asked ? std::vector<std::string>{kNoPrefix} : std::vector<std::string>{});
        EXPECT_EQ(tCustomerInfo.COMPANY_URL, row.urlAfter);
        if (!text.empty()) expectRefused(page<frm_CompInp2>().txt_Company_URL, text);
    }
}

}  // namespace
}  // namespace orv
