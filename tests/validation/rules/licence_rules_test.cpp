#include "validation/rules/licence_page_check.h"
#include "validation/rules/rules_test.h"

namespace orv {
namespace {

class LicenceRules : public RulesTest {
protected:
    bool check() { return passes(PF_CheckFrmCompInp1Data); }
    void expiresOn(const std::string& era, const std::string& year, const std::string& month, const std::string& day) {
        tCustomerInfo.VALID_LICENSE_NENGOU = era;
        tCustomerInfo.VALID_LICENSE_DATE_YEAR = year;
        tCustomerInfo.VALID_LICENSE_DATE_MONTH = month;
        tCustomerInfo.VALID_LICENSE_DATE_DAY = day;
    }
};

TEST_F(LicenceRules, LookAtTheExpiryDate) {
    enum Result { Good, Expired, Unreadable };
    struct Case {
        const char* era;
        const char* year;
        const char* month;
        const char* day;
        Result result;
    };
    for (const Case& row : {
             Case{"令和", "8", "5", "4", Good},       {"令和", "8", "5", "3", Expired},
             {"令和", "08", "05", "05", Good},        {"平成", "38", "5", "4", Good},
             {"平成", "38", "5", "3", Expired},       {"昭和", "64", "1", "7", Expired},
             {"西暦", "2026", "5", "4", Good},        {"西暦", "2026", "5", "3", Expired},
             {"西暦", "2030", "1", "1", Good},        {"西暦", "26", "5", "4", Good},
             {"西暦", "5", "5", "4", Expired},        {"西暦", "49", "1", "1", Good},
             {"西暦", "50", "1", "1", Expired},       {"西暦", "203", "12", "31", Expired},
             {"西暦", " 2026 ", " 5 ", " 4 ", Good},  {"西暦", "2027", "13", "1", Unreadable},
             {"西暦", "2027", "1", "32", Unreadable}, {"西暦", "2027", "2", "29", Unreadable},
             {"西暦", "20x7", "1", "1", Unreadable},  {"西暦", "２０２７", "1", "1", Unreadable},
             {"西暦", "-2027", "1", "1", Unreadable}, {"西暦", "99999999999999999999", "1", "1", Unreadable},
             {"西暦", "1e300", "1", "1", Unreadable}, {"令和", "1", "4", "30", Unreadable},
             {"慶応", "200", "1", "1", Unreadable},   {"西暦 ", "2027", "1", "1", Unreadable},
         }) {
        SCOPED_TRACE(std::string(row.era) + row.year + "/" + row.month + "/" + row.day);
        expiresOn(row.era, row.year, row.month, row.day);
        gErrMsg.clear();
        gErrCode.clear();
        EXPECT_EQ(check(), row.result == Good) << out.text;
        if (row.result == Expired) {
            EXPECT_EQ(out.id, "CHECK004");
            EXPECT_EQ(gErrMsg, "");
        }
        if (row.result == Unreadable) {
            expectRunTimeFailure("[ PF_CheckFrmCompInp1Data ] 型が一致しません。", "13");
        }
    }
}

}  // namespace
}  // namespace orv
