#include "validation/rules/transport_rules.h"

#include "validation/rules/rules_test.h"

namespace orv {
namespace {

using R = CompanyRecord;

constexpr TextField kFields[] = {&R::RAILROAD_CODE, &R::STATION_CODE, &R::WALK_MINUTES,  &R::BUS_MINUTES,
                                 &R::BUS_ROUTE,     &R::BUSSTOP,      &R::TEIHO_MINUTES, &R::CAR_TARGET,
                                 &R::CAR_MINUTES,   &R::CAR_DISTANCE};

struct Told {
    std::string focus;
    std::string text;
};

/// The rule as one tells it: which way is meant, and what it lacks or has too much.
Told whatIsWrong() {
    const R& r = tCustomerInfo;
    const auto has = [&](TextField field) { return !(r.*field).empty(); };
    const bool stopped = has(&R::BUS_ROUTE) || has(&R::BUSSTOP) || has(&R::TEIHO_MINUTES);
    const bool bus = has(&R::BUS_MINUTES) || stopped;
    const bool car = has(&R::CAR_TARGET) || has(&R::CAR_MINUTES) || has(&R::CAR_DISTANCE);
    if (!has(&R::RAILROAD_CODE) || !has(&R::STATION_CODE)) {
        const bool neither = !has(&R::RAILROAD_CODE) && !has(&R::STATION_CODE);
        return {"btn_SelectRail",
                neither ? "沿線・駅が選択されておりません。" : "沿線・駅どちらかが選択されておりません。"};
    }
    if (has(&R::WALK_MINUTES)) {
        return bus || car ? Told{"txt_Walk_Minutes", "沿線・駅・徒歩 以外のデータが入力されています。"} : Told{};
    }
    if (has(&R::BUS_MINUTES)) {
        return !has(&R::BUS_ROUTE)       ? Told{"txt_Bus_Route", "バス路線名が入力されておりません。"}
               : !has(&R::BUSSTOP)       ? Told{"txt_Busstop", "バス停名が入力されておりません。"}
               : !has(&R::TEIHO_MINUTES) ? Told{"txt_Thiho_Minutes", "停歩が入力されておりません。"}
               : car ? Told{"txt_Thiho_Minutes", "沿線・駅・バス 以外のデータが入力されています。"}
                     : Told{};
    }
    if (stopped) {
        return {"txt_Thiho_Minutes", "バス分数が入力されておりません。"};
    }
    if (has(&R::CAR_TARGET)) {
        return {"txt_Car_Target", "沿線・駅が存在する場合は車目標物は必要ありません。"};
    }
    if (has(&R::CAR_MINUTES) == has(&R::CAR_DISTANCE)) {
        return {};
    }
    return has(&R::CAR_MINUTES) ? Told{"txt_Car_Distance", "車距離が入力されておりません。"}
                                : Told{"txt_Car_Minutes", "車分数が入力されておりません。"};
}

class TransportRules : public RulesTest {
protected:
    /// What the check tells; it must work.
    Told check() {
        R& r = tCustomerInfo;
        auto& form = page<frm_CompInp2>();
        Control* at = nullptr;
        std::string text;
        EXPECT_TRUE(PF_CheckTransport(r.RAILROAD_CODE, form.btn_SelectRail, r.STATION_CODE, r.WALK_MINUTES,
                                      form.txt_Walk_Minutes, r.BUS_MINUTES, form.txt_Bus_Minutes, r.BUS_ROUTE,
                                      form.txt_Bus_Route, r.BUSSTOP, form.txt_Busstop, r.TEIHO_MINUTES,
                                      form.txt_Thiho_Minutes, at, text, r.CAR_TARGET, form.txt_Car_Target,
                                      r.CAR_MINUTES, form.txt_Car_Minutes, r.CAR_DISTANCE, form.txt_Car_Distance));
        return {at == nullptr ? "" : at->name(), text};
    }
};

TEST_F(TransportRules, DecideEachOfTheCases) {
    int passed = 0;
    for (unsigned filled = 0; filled < 1U << std::size(kFields); ++filled) {
        for (std::size_t i = 0; i < std::size(kFields); ++i) {
            tCustomerInfo.*kFields[i] = (filled >> i & 1U) != 0 ? " " : "";
        }
        const Told expected = whatIsWrong();
        const Told told = check();
        EXPECT_EQ(told.text, expected.text) << filled;
        EXPECT_EQ(told.focus, expected.focus) << filled;
        passed += told.text.empty() ? 1 : 0;
    }
    EXPECT_EQ(passed, 4) << "on foot, by bus, by car, at the station";
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

}  // namespace
}  // namespace orv
