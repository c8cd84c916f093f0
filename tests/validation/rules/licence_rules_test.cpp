#include "validation/rules/licence_page_check.h"
#include "validation/rules/rules_test.h"

namespace orv {
namespace {

using R = CompanyRecord;

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

const std::vector<FieldCase>& blankCases() {
    static const std::vector<FieldCase> cases{
        {&R::LICENSE_NO_DAI, " ", "1", "txt_License_no_Dai", "免許番号　第"},
        {&R::LICENSE_NO_GO, "　", "5", "txt_License_No_Go", "免許番号　号"},
        {&R::GET_LICENSE_NENGOU, "", "平成", "cbo_Get_License_Nengou", "免許登録日（年号）"},
        {&R::GET_LICENSE_DATE_YEAR, "", "30", "txt_Get_License_Date(0)", "免許登録日（年）"},
        {&R::GET_LICENSE_DATE_MONTH, " 　", "1", "txt_Get_License_Date(1)", "免許登録日（月）"},
        {&R::GET_LICENSE_DATE_DAY, "", "1", "txt_Get_License_Date(2)", "免許登録日（日）"},
        {&R::VALID_LICENSE_NENGOU, "", "西暦", "cbo_Valid_License_Nengou", "免許有効期限（年号）"},
        {&R::VALID_LICENSE_DATE_YEAR, "", "2027", "txt_Valid_License_Date(0)", "免許有効期限（年）"},
        {&R::VALID_LICENSE_DATE_MONTH, "", "1", "txt_Valid_License_Date(1)", "免許有効期限（月）"},
        {&R::VALID_LICENSE_DATE_DAY, " ", "1", "txt_Valid_License_Date(2)", "免許有効期限（日）"},
    };
    return cases;
}

TEST_F(LicenceRules, AskForEachFieldInTurn) {
    tCustomerInfo.LICENSE_NO.clear();
    for (const FieldCase& row : blankCases()) {
        tCustomerInfo.*row.field = row.spoilt;
    }
    for (const FieldCase& row : blankCases()) {
        EXPECT_FALSE(check());
        EXPECT_EQ(focus(), "frm_CompInp1." + row.focus);
        EXPECT_EQ(out.id, "CHECK001");
        EXPECT_EQ(out.text, row.text);
        tCustomerInfo.*row.field = row.mended;
    }
    EXPECT_TRUE(check()) << out.text;
    EXPECT_EQ(questions(), std::vector<std::string>{}) << "no question while the licence is refused";
}

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
            EXPECT_EQ(focus(), "frm_CompInp1.cbo_Get_License_Nengou");
            EXPECT_EQ(out.id, "CHECK004");
            EXPECT_EQ(out.text, "免許有効期限が切れております。\r\n免許有効期限を正しく入力して下さい。");
            EXPECT_EQ(gErrMsg, "");
        }
        if (row.result == Unreadable) {
            expectRunTimeFailure("[ PF_CheckFrmCompInp1Data ] 型が一致しません。", "13");
        }
    }
}

TEST_F(LicenceRules, TheRegistrationDateIsComparedWithNothing) {
    tCustomerInfo.GET_LICENSE_DATE_YEAR = "99";
    tCustomerInfo.GET_LICENSE_DATE_MONTH = "13";
    EXPECT_TRUE(check()) << out.text;
}

TEST_F(LicenceRules, ACompanyWithoutALicenceTellsNothingOfOne) {
    for (const char* kind : {"貸主", "無し", " 無し "}) {
        for (const FieldCase& row : blankCases()) {
            tCustomerInfo.*row.field = " ";
        }
        tCustomerInfo.LICENSE_NO = kind;
        EXPECT_TRUE(check()) << kind << out.text;
        for (const FieldCase& row : blankCases()) {
            tCustomerInfo.*row.field = "1";
            EXPECT_FALSE(check()) << kind << row.text;
            EXPECT_EQ(focus(), "frm_CompInp1.cbo_License_No");
            EXPECT_EQ(out.id, "CHECK001");
            EXPECT_EQ(out.text, "免許番号が「なし」「貸主」の場合は\r\n免許期限は入力できません。");
            tCustomerInfo.*row.field = " ";
        }
    }
    tCustomerInfo.LICENSE_NO = "なし";
    EXPECT_FALSE(check());
    EXPECT_EQ(out.text, "免許番号　第") << "any other word is a licence";
}

}  // namespace
}  // namespace orv
