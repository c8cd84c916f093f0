#pragma once

#include <gtest/gtest.h>

#include "adapters/text/cp932.h"
#include "adapters/text/era_calendar.h"
#include "adapters/text/string_check.h"
#include "core/record/globals.h"
#include "pages/controls/page_set.h"
#include "platform/forms/form_host.h"
#include "platform/services.h"
#include "support/fake_windows.h"
#include "support/fixed_clock.h"
#include "support/recorded_messages.h"
#include "validation/rule/rule.h"

namespace orv {

/// What the rules ask of the world, with the text services as they are, on 4 May 2026. The record passes every page
/// without a question until a test spoils it.
class RulesTest : public testing::Test {
protected:
    RulesTest() {
        theContext = {};
        services() = {};
        services().codePage = &codePage;
        services().clock = &clock;
        services().calendar = &calendar;
        services().message = &messages;
        services().stringCheck = &stringCheck;
        services().forms = &forms;
        services().windows = &windows;
        tCustomerInfo = goodCompany();
    }
    ~RulesTest() override {
        dropPages();
        services() = {};
        theContext = {};
    }

    static CompanyRecord goodCompany();

    /// Runs a page's check on the record as it stands; `out` holds what it tells.
    bool passes(bool (*check)(Refusal&)) {
        out = {};
        messages.shown.clear();
        return check(out);
    }
    /// The control that gets the focus, and its form; empty for none.
    std::string focus() const {
        return out.focus == nullptr ? ""
                                    : dynamic_cast<Form&>(out.focus->owner()).name() + "." + out.focus->objectName();
    }
    std::vector<std::string> questions() const {
        std::vector<std::string> texts;
        for (const auto& shown : messages.shown) {
            EXPECT_EQ(shown.id, "COS63212");
            EXPECT_EQ(shown.args.size(), 1U);
            texts.push_back(toText(shown.args.at(0)));
        }
        return texts;
    }
    void expectRunTimeFailure(const std::string& text, const std::string& code) const {
        EXPECT_EQ(gErrMsg, text);
        EXPECT_EQ(gErrCode, code);
        EXPECT_EQ(focus(), "");
        EXPECT_EQ(out.id, "");
        EXPECT_EQ(out.text, "");
    }

    Cp932 codePage;
    FixedClock clock;
    EraCalendar calendar;
    RecordedMessages messages;
    StringCheck stringCheck{codePage};
    ScriptedWindows windows;
    FormHost forms;
    Refusal out;
};

inline CompanyRecord RulesTest::goodCompany() {
    CompanyRecord record;
    record.USER_ID = "000004601";
    record.LICENSE_NO = "東京都知事";
    record.LICENSE_NO_DAI = "3";
    record.LICENSE_NO_GO = "123456";
    record.GET_LICENSE_NENGOU = "令和";
    record.GET_LICENSE_DATE_YEAR = "5";
    record.GET_LICENSE_DATE_MONTH = "4";
    record.GET_LICENSE_DATE_DAY = "1";
    record.VALID_LICENSE_NENGOU = "令和";
    record.VALID_LICENSE_DATE_YEAR = "10";
    record.VALID_LICENSE_DATE_MONTH = "3";
    record.VALID_LICENSE_DATE_DAY = "31";
    record.DANTAI_FLG = "0010000000000000";
    record.KOUTORI_FLG = "0010000000000000";
    record.RAILROAD_CODE = "130101";
    record.STATION_CODE = "012";
    return record;
}

}  // namespace orv
