#include "validation/rules/transport_rules.h"

#include "validation/rules/rules_test.h"

namespace orv {
namespace {

using R = CompanyRecord;

constexpr TextField kFields[] = {&R::RAILROAD_CODE, &R::STATION_CODE, &R::WALK_MINUTES,  &R::BUS_MINUTES,
                                 &R::BUS_ROUTE,     &R::BUSSTOP,      &R::TEIHO_MINUTES, &R::CAR_TARGET,
                                 &R::CAR_MINUTES,   &R::CAR_DISTANCE};

class TransportRules : public RulesTest {
protected:
    /// The text that the check tells; it must work.
    std::string check() {
        R& r = tCustomerInfo;
        auto& form = page<frm_CompInp2>();
        Control* at = nullptr;
        std::string text;
        EXPECT_TRUE(PF_CheckTransport(r.RAILROAD_CODE, form.btn_SelectRail, r.STATION_CODE, r.WALK_MINUTES,
                                      form.txt_Walk_Minutes, r.BUS_MINUTES, form.txt_Bus_Minutes, r.BUS_ROUTE,
                                      form.txt_Bus_Route, r.BUSSTOP, form.txt_Busstop, r.TEIHO_MINUTES,
                                      form.txt_Thiho_Minutes, at, text, r.CAR_TARGET, form.txt_Car_Target,
                                      r.CAR_MINUTES, form.txt_Car_Minutes, r.CAR_DISTANCE, form.txt_Car_Distance));
        EXPECT_EQ(at == nullptr, text.empty());
        return text;
    }
};

TEST_F(TransportRules, OfAllThatCanBeFilledFourWaysPass) {
    std::vector<unsigned> passed;
    for (unsigned filled = 0; filled < 1U << std::size(kFields); ++filled) {
        for (std::size_t i = 0; i < std::size(kFields); ++i) {
            tCustomerInfo.*kFields[i] = (filled >> i & 1U) != 0 ? " " : "";
        }
        if (check().empty()) {
            passed.push_back(filled);
        }
    }
    EXPECT_EQ(passed, (std::vector<unsigned>{0b11, 0b111, 0b1111011, 0b1100000011}))
        << "at the station, on foot, by bus, by car";
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
        EXPECT_EQ(check(), row.text);
        EXPECT_EQ(tCustomerInfo.RAILROAD_CODE, row.lineAfter);
        EXPECT_EQ(tCustomerInfo.STATION_CODE, row.stationAfter);
    }
}

}  // namespace
}  // namespace orv
