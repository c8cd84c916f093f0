#include "validation/rules/company_rules.h"

#include <functional>

#include "support/fixture.h"

namespace orv {
namespace {

using R = CompanyRecord;
using P = frm_CompInp0;

/// A value that the text test refuses, and what it says of it.
constexpr const char* kUnwritable = "😀";

struct Fault {
    std::string name;
    TextField field;
    std::string bad;
    Control* (*focus)();
    /// Empty: the string service's own words.
    std::string text;
};

template <auto Member>
Control* at() {
    return &(page<P>().*Member);
}

/// The rules of the block that everyone fills, in their order, each with a value that breaks it and none before it.
const std::vector<Fault>& companyFaults() {
    static const std::vector<Fault> faults{
        {"id length", &R::USER_ID, "00000460", at<&P::cbo_User_Id>, "ユーザＩＤが不正です。"},
        {"id text", &R::USER_ID, "00004601'", at<&P::cbo_User_Id>, ""},
        {"name text", &R::COMPANY_NAME, kUnwritable, at<&P::txt_Company_Name>, ""},
        {"name", &R::COMPANY_NAME, " 　", at<&P::txt_Company_Name>, "会社名が未入力です。"},
        {"kana text", &R::COMPANY_KANA, kUnwritable, at<&P::txt_Company_Kana>, ""},
        {"kana", &R::COMPANY_KANA, "", at<&P::txt_Company_Kana>, "会社名カナが未入力です。"},
        {"office text", &R::OFFICE_NAME, kUnwritable, at<&P::txt_Office_Name>, ""},
        {"group text", &R::GROUP_NAME, kUnwritable, at<&P::txt_Group_Name>, ""},
        {"address", &R::ADDRESS, "　", at<&P::btm_SearchOfficeAddress>, "所在地が不正です。"},
        {"head text", &R::DAIHYO_NAME, kUnwritable, at<&P::txt_Daihyo_Name>, ""},
        {"head", &R::DAIHYO_NAME, "", at<&P::txt_Daihyo_Name>, "代表者名が未入力です。"},
        {"head kana text", &R::DAIHYO_NAME_KANA, kUnwritable, at<&P::txt_Daihyo_Name_Kana>, ""},
        {"head kana", &R::DAIHYO_NAME_KANA, "", at<&P::txt_Daihyo_Name_Kana>, "代表者名カナが未入力です。"},
        {"agent text", &R::TAKKEN_SYUNIN_NAME, kUnwritable, at<&P::txt_Takken_Syunin_Name>, ""},
        {"agent", &R::TAKKEN_SYUNIN_NAME, "", at<&P::txt_Takken_Syunin_Name>, "宅地建物取引主任者が未入力です。"},
        {"person text", &R::TANTO_NAME, kUnwritable, at<&P::txt_Tanto_Name>, ""},
        {"person", &R::TANTO_NAME, "", at<&P::txt_Tanto_Name>, "入力担当者が未入力です。"},
        {"phone", &R::TEL_NO1, " ", at<&P::txt_Tel_No1>, "TELが未入力です。"},
        {"phone text", &R::TEL_NO1, kUnwritable, at<&P::txt_Tel_No1>, ""},
        {"phone form", &R::TEL_NO1, "03-0000-010", at<&P::txt_Tel_No1>, ""},
        {"free text", &R::TEL_NO2, kUnwritable, at<&P::txt_Tel_No2>, ""},
        {"free form", &R::TEL_NO2, "abc", at<&P::txt_Tel_No2>, ""},
        {"fax", &R::FAX_NO, "", at<&P::txt_Fax_No>, "FAX番号が未入力です。"},
        {"fax text", &R::FAX_NO, kUnwritable, at<&P::txt_Fax_No>, ""},
        {"fax form", &R::FAX_NO, "1234567890", at<&P::txt_Fax_No>, ""},
        {"mail", &R::MAIL_ADDRESS, "", at<&P::txt_Mail_Address>, "メールアドレスが未入力です。"},
        {"mail text", &R::MAIL_ADDRESS, "a@b'c", at<&P::txt_Mail_Address>, ""},
        {"mail form", &R::MAIL_ADDRESS, "a.bcd", at<&P::txt_Mail_Address>, "メールアドレスが不正です。"},
    };
    return faults;
}

/// Those of a site of its own.
const std::vector<Fault>& siteFaults() {
    static const std::vector<Fault> faults{
        {"address", &R::PC_ADDRESS, "", at<&P::btm_Pc_SearchOfficeAddress>, "ＰＣ設置場所　所在地が不正です。"},
        {"office text", &R::PC_OFFICE_NAME, kUnwritable, at<&P::txt_Pc_Office_Name>, ""},
        {"person text", &R::PC_TANTO_NAME, kUnwritable, at<&P::txt_Pc_Tanto_Name>, ""},
        {"person", &R::PC_TANTO_NAME, "　", at<&P::txt_Pc_Tanto_Name>, "ＰＣ設置場所  入力担当者が未入力です。"},
        {"phone text", &R::PC_TEL_NO1, kUnwritable, at<&P::txt_Pc_Tel_No1>, ""},
        {"phone", &R::PC_TEL_NO1, "", at<&P::txt_Pc_Tel_No1>, "ＰＣ設置場所  TEL番号が未入力です。"},
        {"free text", &R::PC_TEL_NO2, kUnwritable, at<&P::txt_Pc_Tel_No2>, ""},
        {"free form", &R::PC_TEL_NO2, "1", at<&P::txt_Pc_Tel_No2>, ""},
        {"fax text", &R::PC_FAX_NO, kUnwritable, at<&P::txt_Pc_Fax_No>, ""},
        {"fax form", &R::PC_FAX_NO, "1", at<&P::txt_Pc_Fax_No>, ""},
        {"mail text", &R::PC_MAIL_ADDRESS, kUnwritable, at<&P::txt_Pc_Mail_Address>, ""},
        {"mail form", &R::PC_MAIL_ADDRESS, "", at<&P::txt_Pc_Mail_Address>, "ＰＣ設置場所　メールアドレスが不正です。"},
    };
    return faults;
}

class CompanyRules : public SystemTest {
protected:
    CompanyRules() {
        load();
        gAddressByMaster = true;
    }
    void ownSite() {
        tCustomerInfo.SAME_CHECK = "0";
        tCustomerInfo.PC_POST_CODE = "220-0011";
        tCustomerInfo.PC_ADDRESS_CODE = "14103010001";
        tCustomerInfo.PC_ADDRESS = "横浜市";
        tCustomerInfo.PC_TANTO_NAME = "次郎";
        tCustomerInfo.PC_TEL_NO1 = "045-000-0203";
        tCustomerInfo.PC_MAIL_ADDRESS = "a@b";
    }
    bool passes() {
        refusal = {};
        return PF_CheckFrmCompInp0Data(refusal);
    }
    void expectRefused(const Fault& fault) {
        EXPECT_FALSE(passes()) << fault.name;
        EXPECT_EQ(refusal.focus, fault.focus()) << fault.name;
        EXPECT_EQ(refusal.id, "CHECK001");
        if (fault.text.empty()) {
            EXPECT_NE(refusal.text, "") << fault.name;
        } else {
            EXPECT_EQ(refusal.text, fault.text) << fault.name;
        }
    }
    /// Each fault alone, and the first of any two neighbours that can stand together.
    void expectOrder(const std::vector<Fault>& faults) {
        const CompanyRecord whole = tCustomerInfo;
        for (std::size_t i = 0; i < faults.size(); ++i) {
            tCustomerInfo = whole;
            tCustomerInfo.*faults[i].field = faults[i].bad;
            expectRefused(faults[i]);
            for (std::size_t later = i + 1; later < faults.size(); ++later) {
                if (faults[later].field != faults[i].field) {
                    tCustomerInfo.*faults[later].field = faults[later].bad;
                    expectRefused(faults[i]);
                    break;
                }
            }
        }
        tCustomerInfo = whole;
    }
    /// Whether a value of the field passes.
    bool takes(TextField field, const std::string& value) {
        const std::string before = std::exchange(tCustomerInfo.*field, value);
        const bool result = passes();
        tCustomerInfo.*field = before;
        return result;
    }

    Refusal refusal;
};

TEST_F(CompanyRules, EachInItsOrderAtItsOwnControl) {
    ASSERT_TRUE(passes()) << refusal.text;
    expectOrder(companyFaults());
    ownSite();
    ASSERT_TRUE(passes()) << refusal.text;
    expectOrder(siteFaults());
    for (const Fault& fault : companyFaults()) {
        EXPECT_EQ(&fault.focus()->owner(), static_cast<ControlOwner*>(&page<P>()));
    }
    for (const Fault& fault : siteFaults()) {
        tCustomerInfo.*fault.field = fault.bad;
        const std::string mail = std::exchange(tCustomerInfo.MAIL_ADDRESS, "");
        expectRefused({"before the site", nullptr, "", at<&P::txt_Mail_Address>, "メールアドレスが未入力です。"});
        tCustomerInfo.MAIL_ADDRESS = mail;
    }
}

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
             {&R::ADDRESS_CODE, "1310402200", false},
             {&R::ADDRESS_CODE, "131040220031", false},
             {&R::POST_CODE, "160-002", false},
             {&R::POST_CODE, "160-00222", false},
             {&R::POST_CODE, "１６００", true},
             {&R::AREA_CODE, "1310", false},
             {&R::AREA_CODE, "131041", false},
             {&R::ADDRESS, kUnwritable, true},
             {&R::TEL_NO1, "0300000101", true},
             {&R::TEL_NO1, "090-0000-0000", true},
             {&R::TEL_NO2, "", true},
             {&R::TEL_NO2, "　", true},
             {&R::MAIL_ADDRESS, "abcd", false},
             {&R::MAIL_ADDRESS, "ab.cd", true},
             {&R::MAIL_ADDRESS, "a.bcd", false},
             {&R::MAIL_ADDRESS, "@", true},
             {&R::MAIL_ADDRESS, "a@b", true},
             {&R::MAIL_ADDRESS, "社長.", true},
             {&R::MAIL_ADDRESS, "a.b.c", false},
             {&R::MAIL_ADDRESS, ".@", true},
         }) {
        EXPECT_EQ(takes(c.field, c.value), c.taken) << c.value;
    }
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
    tCustomerInfo.USER_PASSWD = "1234";
    expectRefused({"password", nullptr, "", at<&P::txt_User_Passwd>, "パスワードが不正です。"});
}

TEST_F(CompanyRules, TypedAddresses) {
    gAddressByMaster = false;
    EXPECT_TRUE(takes(&R::ADDRESS_CODE, ""));
    EXPECT_TRUE(takes(&R::AREA_CODE, "1"));
    tCustomerInfo.ADDRESS = kUnwritable;
    expectRefused({"text", nullptr, "", at<&P::txt_Address>, ""});
    tCustomerInfo.ADDRESS = "";
    expectRefused({"blank", nullptr, "", at<&P::txt_Post_Code>, "所在地が未入力です。"});
    tCustomerInfo.ADDRESS = "東京都";
    tCustomerInfo.POST_CODE = "1600022";
    expectRefused({"post code", nullptr, "", at<&P::txt_Post_Code>, "所在地が未入力です。"});
    tCustomerInfo.POST_CODE = "160-0022";
    ownSite();
    EXPECT_TRUE(takes(&R::PC_ADDRESS_CODE, ""));
    tCustomerInfo.PC_ADDRESS = kUnwritable;
    expectRefused({"site text", nullptr, "", at<&P::txt_Pc_Address>, ""});
    tCustomerInfo.PC_ADDRESS = "東京都";
    tCustomerInfo.PC_POST_CODE = "";
    expectRefused({"site", nullptr, "", at<&P::txt_Pc_Post_Code>, "ＰＣ設置場所　所在地が不正です。"});
}

TEST_F(CompanyRules, TheSiteOfTheComputer) {
    for (const TextField field : {&R::PC_ADDRESS_CODE, &R::PC_ADDRESS, &R::PC_ADDRESS_GOU, &R::PC_ADDRESS_NUMBER,
                                  &R::PC_FAX_NO, &R::PC_MAIL_ADDRESS, &R::PC_OFFICE_NAME, &R::PC_POST_CODE,
                                  &R::PC_TANTO_NAME, &R::PC_TEL_NO1, &R::PC_TEL_NO2}) {
        tCustomerInfo.*field = " ";
        expectRefused(
            {"same", nullptr, "", at<&P::chk_EqualData>, "上記と同じ場合にＰＣ設置場所のデータは入力できません。"});
        (tCustomerInfo.*field).clear();
    }
    ownSite();
    EXPECT_TRUE(takes(&R::PC_FAX_NO, ""));
    EXPECT_TRUE(takes(&R::PC_OFFICE_NAME, ""));
    EXPECT_FALSE(takes(&R::PC_ADDRESS_CODE, "1410301000"));
    EXPECT_FALSE(takes(&R::PC_POST_CODE, ""));
    for (const char* same : {"True", "-1", "2"}) {
        EXPECT_FALSE(takes(&R::SAME_CHECK, same)) << same << " is true, and the block is filled";
    }
    EXPECT_TRUE(takes(&R::SAME_CHECK, "False"));
}

TEST_F(CompanyRules, WhatIsNoFlagOrBreaksTheServiceIsNoRefusal) {
    for (const char* same : {"", "x"}) {
        EXPECT_FALSE(takes(&R::SAME_CHECK, same));
        EXPECT_EQ(refusal.focus, nullptr);
        EXPECT_EQ(refusal.id + refusal.text, "");
        EXPECT_EQ(gErrMsg, "[ PF_CheckFrmCompInp0Data ] 型が一致しません。");
        EXPECT_EQ(gErrCode, "13");
    }
    strings.checksBreak = true;
    EXPECT_FALSE(passes());
    EXPECT_EQ(refusal.focus, &page<P>().cbo_User_Id) << "the text test fails, with nothing to say";
    EXPECT_EQ(refusal.text, "");
    EXPECT_EQ(gErrMsg + gErrCode, "メモリが足りません。7");
}

}  // namespace
}  // namespace orv
