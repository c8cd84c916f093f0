#include "validation/rules/page_checks.h"

#include "validation/rules/rules_test.h"

namespace orv {
namespace {

using R = CompanyRecord;

/// Tests values that just pass. The window tests cover each rule by itself.
class CompanyRules : public RulesTest {
protected:
    CompanyRules() { gAddressByMaster = true; }
    bool takes(TextField field, const std::string& value) {
        const std::string before = std::exchange(tCustomerInfo.*field, value);
        const bool result = passes(PF_CheckFrmCompInp0Data);
        tCustomerInfo.*field = before;
        return result;
    }
};

TEST_F(CompanyRules, JustInsideAndJustOutside) {
    struct Case {
        TextField field;
        std::string value;
        bool taken;
    };
    for (const Case& c : {
             Case{&R::USER_ID, "0000046011", false},
             {&R::USER_ID, "社社社社1", true},
             {&R::USER_PASSWD, "1", true},
             {&R::COMPANY_NAME, "a", true},
             {&R::OFFICE_NAME, "", true},
             {&R::GROUP_NAME, "a'", false},
             {&R::ADDRESS_CODE, "131040220031", false},
             {&R::POST_CODE, "160-00222", false},
             {&R::POST_CODE, "１６００", true},
             {&R::AREA_CODE, "131041", false},
             {&R::ADDRESS, "😀", true},
             {&R::TEL_NO1, "0300000101", true},
             {&R::TEL_NO1, "090-0000-0000", true},
             {&R::TEL_NO2, "", true},
             {&R::TEL_NO2, "　", true},
             {&R::MAIL_ADDRESS, "abcd", false},
             {&R::MAIL_ADDRESS, "ab.cd", true},
             {&R::MAIL_ADDRESS, "@", true},
             {&R::MAIL_ADDRESS, "社長.", true},
             {&R::MAIL_ADDRESS, "a.b.c", false},
             {&R::MAIL_ADDRESS, ".@", true},
         }) {
        EXPECT_EQ(takes(c.field, c.value), c.taken) << c.value;
    }
    gAddressByMaster = false;
    EXPECT_TRUE(takes(&R::ADDRESS_CODE, ""));
    EXPECT_TRUE(takes(&R::AREA_CODE, "1"));
}

TEST_F(CompanyRules, OnlyANewCompanyTypesItsPassword) {
    tCustomerInfo.USER_ID = kMarker;
    for (const auto& [password, taken] : {std::pair{"1234", false},
                                          {"12345", true},
                                          {"1234567890", true},
                                          {"12345678901", false},
                                          {"社社1", true},
                                          {"", false}}) {
        EXPECT_EQ(takes(&R::USER_PASSWD, password), taken) << password;
    }
}

TEST_F(CompanyRules, TheSiteOfTheComputer) {
    constexpr std::array kSite{&R::PC_ADDRESS_CODE, &R::PC_ADDRESS,      &R::PC_ADDRESS_GOU, &R::PC_ADDRESS_NUMBER,
                               &R::PC_FAX_NO,       &R::PC_MAIL_ADDRESS, &R::PC_OFFICE_NAME, &R::PC_POST_CODE,
                               &R::PC_TANTO_NAME,   &R::PC_TEL_NO1,      &R::PC_TEL_NO2};
    for (const TextField field : kSite) {
        EXPECT_FALSE(takes(field, " ")) << "a site that is the office has nothing of its own";
    }
    load("000004602");
    EXPECT_TRUE(passes(PF_CheckFrmCompInp0Data));
    EXPECT_TRUE(takes(&R::PC_FAX_NO, ""));
    EXPECT_TRUE(takes(&R::PC_OFFICE_NAME, ""));
    for (const char* same : {"True", "-1", "2"}) {
        EXPECT_FALSE(takes(&R::SAME_CHECK, same)) << same << " is true, and the block is filled";
    }
    EXPECT_TRUE(takes(&R::SAME_CHECK, "False"));
    gAddressByMaster = false;
    EXPECT_TRUE(takes(&R::PC_ADDRESS_CODE, ""));
}

/// Rejects only the telephone number "1", without a code.
class WithoutCodes : public StringCheck {
public:
    using StringCheck::StringCheck;
    FailureRecord ErrorInfo() const override { return {}; }
    void CheckTelNumber(const std::string& text, bool& passes) override { passes = text != "1"; }
};

TEST_F(CompanyRules, TheirOwnTextsWhereTheTestOfNumbersHasNone) {
    WithoutCodes without{codePage};
    services().stringCheck = &without;
    load("000004602");
    for (const auto& [field, text] : std::initializer_list<std::pair<TextField, const char*>>{
             {&R::TEL_NO1, "TEL番号が未入力です。"},
             {&R::TEL_NO2, "フリーダイヤルが未入力です。"},
             {&R::FAX_NO, "FAX番号が未入力です。"},
             {&R::PC_TEL_NO1, "ＰＣ設置場所  TEL番号が未入力です。"},
             {&R::PC_TEL_NO2, "ＰＣ設置場所  フリーダイヤルが未入力です。"},
             {&R::PC_FAX_NO, "ＰＣ設置場所  ＦＡＸ番号が未入力です。"}}) {
        EXPECT_FALSE(takes(field, "1"));
        EXPECT_EQ(out.text, text);
    }
    EXPECT_TRUE(takes(&R::PC_TEL_NO1, " "));
    EXPECT_EQ(out.text, "ＰＣ設置場所　電話番号が未入力です。") << "noted, and then the number passes";
}

class PasswordRules : public RulesTest {
protected:
    PasswordRules() { openStore(); }
    ~PasswordRules() override { closeStore(); }
};

TEST_F(PasswordRules, TheStoreIsClosedUnlessTheRefusalIsShown) {
    auto& fields = page<frm_ChangePassword>().txt_Password;
    EXPECT_FALSE(PF_CheckPwd());
    EXPECT_EQ(shownIds(), Texts{"CHECK001"});
    EXPECT_EQ(store.open, 1);
    messages.failure = Failure::OutOfMemory;
    EXPECT_FALSE(PF_CheckPwd());
    EXPECT_EQ(gErrMsg + gErrCode, "[ PF_CheckPwd ] メモリが足りません。7");
    messages.failure.reset();
    messages.refusal = FailureRecord{"窓がない", "MSG:1"};
    EXPECT_FALSE(PF_CheckPwd());
    EXPECT_EQ(gErrMsg + gErrCode, "窓がないMSG:1");
    EXPECT_EQ(store.open, 0);
    openStore();
    fields[0].setText(tCustomerInfo.USER_PASSWD);
    fields[1].setText("himitsu123");
    fields[2].setText("himitsu123");
    EXPECT_TRUE(PF_CheckPwd());
    EXPECT_EQ(store.open, 0);
}

}  // namespace
}  // namespace orv
