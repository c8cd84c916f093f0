#include "validation/rules/access_rules.h"
#include "validation/rules/rules_test.h"

namespace orv {
namespace {

using R = CompanyRecord;

constexpr TextField kFields[] = {&R::RAILROAD_CODE, &R::STATION_CODE, &R::WALK_MINUTES,  &R::BUS_MINUTES,
                                 &R::BUS_ROUTE,     &R::BUSSTOP,      &R::TEIHO_MINUTES, &R::CAR_TARGET,
                                 &R::CAR_MINUTES,   &R::CAR_DISTANCE};

/// The control that gets the focus and what is told; both empty: passes.
struct Outcome {
    std::string focus;
    std::string text;

    bool operator==(const Outcome&) const = default;
};

class TransportRules : public RulesTest {
protected:
    /// What the check tells of the record; it must work.
    Outcome check() {
        out = {};
        const bool passed = PF_CheckFrmCompInp2Data(out);
        EXPECT_EQ(passed, out.text.empty());
        return {out.focus == nullptr ? "" : out.focus->objectName(), out.text};
    }
    /// The rule once more, told as the ways to the office: one, and that one whole.
    static Outcome told(bool line, bool station, bool walk, bool busMinutes, bool route, bool stop, bool fromStop,
                        bool target, bool carMinutes, bool distance) {
        const bool car = target || carMinutes || distance;
        if (!line || !station) {
            return {"btn_SelectRail",
                    line || station ? "沿線・駅どちらかが選択されておりません。" : "沿線・駅が選択されておりません。"};
        }
        if (walk) {
            return busMinutes || route || stop || fromStop || car
                       ? Outcome{"txt_Walk_Minutes", "沿線・駅・徒歩 以外のデータが入力されています。"}
                       : Outcome{};
        }
        if (busMinutes) {
            return !route      ? Outcome{"txt_Bus_Route", "バス路線名が入力されておりません。"}
                   : !stop     ? Outcome{"txt_Busstop", "バス停名が入力されておりません。"}
                   : !fromStop ? Outcome{"txt_Thiho_Minutes", "停歩が入力されておりません。"}
                   : car ? Outcome{"txt_Thiho_Minutes", "沿線・駅・バス 以外のデータが入力されています。"}
                         : Outcome{};
        }
        if (route || stop || fromStop) {
            return {"txt_Thiho_Minutes", "バス分数が入力されておりません。"};
        }
        if (target) {
            return {"txt_Car_Target", "沿線・駅が存在する場合は車目標物は必要ありません。"};
        }
        return carMinutes == distance ? Outcome{}
               : carMinutes           ? Outcome{"txt_Car_Distance", "車距離が入力されておりません。"}
                                      : Outcome{"txt_Car_Minutes", "車分数が入力されておりません。"};
    }
};

TEST_F(TransportRules, DecideAllThatCanBeFilledAndEmpty) {
    for (unsigned filled = 0; filled < 1U << std::size(kFields); ++filled) {
        const auto has = [filled](unsigned field) { return (filled >> field & 1U) != 0; };
        for (unsigned i = 0; i < std::size(kFields); ++i) {
            tCustomerInfo.*kFields[i] = has(i) ? " " : "";
        }
        EXPECT_EQ(check(), told(has(0), has(1), has(2), has(3), has(4), has(5), has(6), has(7), has(8), has(9)))
            << filled;
    }
}

TEST_F(TransportRules, TheCodesForNoneAreEmptied) {
    struct Case {
        const char* line;
        const char* station;
        const char* lineAfter;
        const char* stationAfter;
        const char* text;
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
        EXPECT_EQ(check().text, row.text);
        EXPECT_EQ(tCustomerInfo.RAILROAD_CODE, row.lineAfter);
        EXPECT_EQ(tCustomerInfo.STATION_CODE, row.stationAfter);
    }
}

constexpr const char* kPair = "リンク名称とURLは双方の入力が必要です。";
constexpr const char* kNoPrefix = "URLに「http://」がありません。";

using AccessRules = RulesTest;

TEST_F(AccessRules, AddressAndLinkNameGoTogether) {
    struct Case {
        const char* url;
        const char* name;
        std::int32_t answer;
        /// What is told; empty: passes.
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
        if (!text.empty()) {
            expectRefused(page<frm_CompInp2>().txt_Company_URL, text);
        }
    }
}

}  // namespace
}  // namespace orv
