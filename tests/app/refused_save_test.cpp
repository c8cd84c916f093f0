#include "pages/controls/control_ref.h"
#include "support/window_test.h"
#include "validation/rules/access_rules.h"
#include "validation/rules/company_rules.h"
#include "validation/rules/licence_page_check.h"

namespace orv {
namespace {

using R = CompanyRecord;
using P0 = frm_CompInp0;
using P1 = frm_CompInp1;
using P2 = frm_CompInp2;

/// A value that the text test refuses.
constexpr const char* kUnwritable = "😀";

/// A value that breaks one rule and none before it, and what the operator then sees.
struct Fault {
    TextField field;
    std::string bad;
    ControlRef focus;
    /// Empty: what the string service says of the value.
    std::string text;
};

/// The rules of one kind of company, in their order.
struct Family {
    const char* name;
    const char* tail;
    bool (*check)(Refusal& out);
    /// Makes that company of the sample's.
    void (*prepare)();
    std::vector<Fault> faults;
    /// Of two faults that stand together the first is told. Not so where one field decides which rules there are.
    bool ordered = true;
    /// The control at fault cannot have the focus, which then stays where it is.
    bool closed = false;
};

void asItIs() {}

void withoutANumber() { tCustomerInfo.USER_ID = kNewCompany; }

void inOtherAssociations() {
    tCustomerInfo.DANTAI_FLG = "1000001000000000";
    tCustomerInfo.OTHER_DANTAI_NAME = "家主会";
}

void byBus() {
    R& record = tCustomerInfo;
    record.WALK_MINUTES = "";
    record.BUS_MINUTES = "10";
    record.BUS_ROUTE = "見本線";
    record.BUSSTOP = "見本前";
    record.TEIHO_MINUTES = "2";
}

void byCar() {
    R& record = tCustomerInfo;
    record.WALK_MINUTES = "";
    record.CAR_MINUTES = "5";
    record.CAR_DISTANCE = "1.5";
}

// clang-format off
const std::vector<Family>& families() {
    static const std::vector<Family> all{
        {"Company", "000004601,1,0", PF_CheckFrmCompInp0Data, asItIs, {
            {&R::USER_ID, "00000460", of<P0, &P0::cbo_User_Id>, "ユーザＩＤが不正です。"},
            {&R::USER_ID, "00004601'", of<P0, &P0::cbo_User_Id>, ""},
            {&R::COMPANY_NAME, kUnwritable, of<P0, &P0::txt_Company_Name>, ""},
            {&R::COMPANY_NAME, " 　", of<P0, &P0::txt_Company_Name>, "会社名が未入力です。"},
            {&R::COMPANY_KANA, kUnwritable, of<P0, &P0::txt_Company_Kana>, ""},
            {&R::COMPANY_KANA, "", of<P0, &P0::txt_Company_Kana>, "会社名カナが未入力です。"},
            {&R::OFFICE_NAME, kUnwritable, of<P0, &P0::txt_Office_Name>, ""},
            {&R::GROUP_NAME, kUnwritable, of<P0, &P0::txt_Group_Name>, ""},
            {&R::ADDRESS, "　", of<P0, &P0::btm_SearchOfficeAddress>, "所在地が不正です。"},
            {&R::ADDRESS_CODE, "1310402200", of<P0, &P0::btm_SearchOfficeAddress>, "所在地が不正です。"},
            {&R::POST_CODE, "1600022", of<P0, &P0::btm_SearchOfficeAddress>, "所在地が不正です。"},
            {&R::AREA_CODE, "1310", of<P0, &P0::btm_SearchOfficeAddress>, "所在地が不正です。"},
            {&R::DAIHYO_NAME, kUnwritable, of<P0, &P0::txt_Daihyo_Name>, ""},
            {&R::DAIHYO_NAME, "", of<P0, &P0::txt_Daihyo_Name>, "代表者名が未入力です。"},
            {&R::DAIHYO_NAME_KANA, kUnwritable, of<P0, &P0::txt_Daihyo_Name_Kana>, ""},
            {&R::DAIHYO_NAME_KANA, "", of<P0, &P0::txt_Daihyo_Name_Kana>, "代表者名カナが未入力です。"},
            {&R::TAKKEN_SYUNIN_NAME, kUnwritable, of<P0, &P0::txt_Takken_Syunin_Name>, ""},
            {&R::TAKKEN_SYUNIN_NAME, "", of<P0, &P0::txt_Takken_Syunin_Name>, "宅地建物取引主任者が未入力です。"},
            {&R::TANTO_NAME, kUnwritable, of<P0, &P0::txt_Tanto_Name>, ""},
            {&R::TANTO_NAME, "", of<P0, &P0::txt_Tanto_Name>, "入力担当者が未入力です。"},
            {&R::TEL_NO1, " ", of<P0, &P0::txt_Tel_No1>, "TELが未入力です。"},
            {&R::TEL_NO1, kUnwritable, of<P0, &P0::txt_Tel_No1>, ""},
            {&R::TEL_NO1, "03-0000-010", of<P0, &P0::txt_Tel_No1>, ""},
            {&R::TEL_NO2, kUnwritable, of<P0, &P0::txt_Tel_No2>, ""},
            {&R::TEL_NO2, "abc", of<P0, &P0::txt_Tel_No2>, ""},
            {&R::FAX_NO, "", of<P0, &P0::txt_Fax_No>, "FAX番号が未入力です。"},
            {&R::FAX_NO, kUnwritable, of<P0, &P0::txt_Fax_No>, ""},
            {&R::FAX_NO, "1234567890", of<P0, &P0::txt_Fax_No>, ""},
            {&R::MAIL_ADDRESS, "", of<P0, &P0::txt_Mail_Address>, "メールアドレスが未入力です。"},
            {&R::MAIL_ADDRESS, "a@b'c", of<P0, &P0::txt_Mail_Address>, ""},
            {&R::MAIL_ADDRESS, "a.bcd", of<P0, &P0::txt_Mail_Address>, "メールアドレスが不正です。"},
            {&R::PC_TEL_NO1, " ", of<P0, &P0::chk_EqualData>, "上記と同じ場合にＰＣ設置場所のデータは入力できません。"},
        }},
        {"TypedAddress", "000004602,1,1", PF_CheckFrmCompInp0Data, asItIs, {
            {&R::ADDRESS, kUnwritable, of<P0, &P0::txt_Address>, ""},
            {&R::ADDRESS, "", of<P0, &P0::txt_Post_Code>, "所在地が未入力です。"},
            {&R::POST_CODE, "160-002", of<P0, &P0::txt_Post_Code>, "所在地が未入力です。"},
            {&R::PC_ADDRESS, kUnwritable, of<P0, &P0::txt_Pc_Address>, ""},
            {&R::PC_ADDRESS, "", of<P0, &P0::txt_Pc_Post_Code>, "ＰＣ設置場所　所在地が不正です。"},
            {&R::PC_POST_CODE, "", of<P0, &P0::txt_Pc_Post_Code>, "ＰＣ設置場所　所在地が不正です。"},
        }},
        {"OwnSite", "000004602,1,0", PF_CheckFrmCompInp0Data, asItIs, {
            {&R::MAIL_ADDRESS, "", of<P0, &P0::txt_Mail_Address>, "メールアドレスが未入力です。"},
            {&R::PC_ADDRESS, "", of<P0, &P0::btm_Pc_SearchOfficeAddress>, "ＰＣ設置場所　所在地が不正です。"},
            {&R::PC_ADDRESS_CODE, "1410301000", of<P0, &P0::btm_Pc_SearchOfficeAddress>, "ＰＣ設置場所　所在地が不正です。"},
            {&R::PC_POST_CODE, "", of<P0, &P0::btm_Pc_SearchOfficeAddress>, "ＰＣ設置場所　所在地が不正です。"},
            {&R::PC_OFFICE_NAME, kUnwritable, of<P0, &P0::txt_Pc_Office_Name>, ""},
            {&R::PC_TANTO_NAME, kUnwritable, of<P0, &P0::txt_Pc_Tanto_Name>, ""},
            {&R::PC_TANTO_NAME, "　", of<P0, &P0::txt_Pc_Tanto_Name>, "ＰＣ設置場所  入力担当者が未入力です。"},
            {&R::PC_TEL_NO1, kUnwritable, of<P0, &P0::txt_Pc_Tel_No1>, ""},
            {&R::PC_TEL_NO1, "", of<P0, &P0::txt_Pc_Tel_No1>, "ＰＣ設置場所  TEL番号が未入力です。"},
            {&R::PC_TEL_NO2, kUnwritable, of<P0, &P0::txt_Pc_Tel_No2>, ""},
            {&R::PC_TEL_NO2, "1", of<P0, &P0::txt_Pc_Tel_No2>, ""},
            {&R::PC_FAX_NO, kUnwritable, of<P0, &P0::txt_Pc_Fax_No>, ""},
            {&R::PC_FAX_NO, "1", of<P0, &P0::txt_Pc_Fax_No>, ""},
            {&R::PC_MAIL_ADDRESS, kUnwritable, of<P0, &P0::txt_Pc_Mail_Address>, ""},
            {&R::PC_MAIL_ADDRESS, "", of<P0, &P0::txt_Pc_Mail_Address>, "ＰＣ設置場所　メールアドレスが不正です。"},
        }},
        {"WithoutANumber", "000004601,1,0", PF_CheckFrmCompInp0Data, withoutANumber, {
            {&R::USER_PASSWD, "1234", of<P0, &P0::txt_User_Passwd>, "パスワードが不正です。"},
        }},
        {"PhotosWithoutANumber", "000004601,1,0", PF_CheckFrmCompInp2Data, withoutANumber, {
            {&R::PHOTO_FILE1, "C:\\1.jpg", of<P2, &P2::cbo_pic_PhotoFile, 0>, "承認手続き前には画像登録はできません。"},
        }, true, true},
        {"Licence", "000004601,1,0", PF_CheckFrmCompInp1Data, asItIs, {
            {&R::LICENSE_NO_DAI, " ", of<P1, &P1::txt_License_no_Dai>, "免許番号　第"},
            {&R::LICENSE_NO_GO, "　", of<P1, &P1::txt_License_No_Go>, "免許番号　号"},
            {&R::GET_LICENSE_NENGOU, "", of<P1, &P1::cbo_Get_License_Nengou>, "免許登録日（年号）"},
            {&R::GET_LICENSE_DATE_YEAR, "", of<P1, &P1::txt_Get_License_Date, 0>, "免許登録日（年）"},
            {&R::GET_LICENSE_DATE_MONTH, " 　", of<P1, &P1::txt_Get_License_Date, 1>, "免許登録日（月）"},
            {&R::GET_LICENSE_DATE_DAY, "", of<P1, &P1::txt_Get_License_Date, 2>, "免許登録日（日）"},
            {&R::VALID_LICENSE_NENGOU, "", of<P1, &P1::cbo_Valid_License_Nengou>, "免許有効期限（年号）"},
            {&R::VALID_LICENSE_DATE_YEAR, "", of<P1, &P1::txt_Valid_License_Date, 0>, "免許有効期限（年）"},
            {&R::VALID_LICENSE_DATE_MONTH, "", of<P1, &P1::txt_Valid_License_Date, 1>, "免許有効期限（月）"},
            {&R::VALID_LICENSE_DATE_DAY, " ", of<P1, &P1::txt_Valid_License_Date, 2>, "免許有効期限（日）"},
            {&R::VALID_LICENSE_DATE_YEAR, "8", of<P1, &P1::cbo_Get_License_Nengou>, "免許有効期限が切れております。\r\n免許有効期限を正しく入力して下さい。"},
        }, false},
        {"NoLicence", "000004602,1,0", PF_CheckFrmCompInp1Data, asItIs, {
            {&R::LICENSE_NO_DAI, "1", of<P1, &P1::cbo_License_No>, "免許番号が「なし」「貸主」の場合は\r\n免許期限は入力できません。"},
        }},
        {"Associations", "000004601,1,0", PF_CheckFrmCompInp1Data, inOtherAssociations, {
            {&R::DANTAI_FLG, "0", of<P1, &P1::chk_Dantai, 0>, "加盟団体"},
            {&R::DANTAI_NAME, " 　", of<P1, &P1::cbo_Dantai_Name>, "加盟団体名"},
            {&R::KOUTORI_FLG, "0", of<P1, &P1::chk_Koutori, 2>, "公正取引協議会"},
            {&R::OTHER_DANTAI_NAME, kUnwritable, of<P1, &P1::txt_Other_Dantai_Name>, ""},
            {&R::OTHER_DANTAI_NAME, " 　", of<P1, &P1::txt_Other_Dantai_Name>, "その他加盟団体"},
        }},
        {"ByBus", "000004601,1,0", PF_CheckFrmCompInp2Data, byBus, {
            {&R::STATION_CODE, "999", of<P2, &P2::btn_SelectRail>, "沿線・駅どちらかが選択されておりません。"},
            {&R::WALK_MINUTES, "5", of<P2, &P2::txt_Walk_Minutes>, "沿線・駅・徒歩 以外のデータが入力されています。"},
            {&R::BUS_ROUTE, "", of<P2, &P2::txt_Bus_Route>, "バス路線名が入力されておりません。"},
            {&R::BUSSTOP, "", of<P2, &P2::txt_Busstop>, "バス停名が入力されておりません。"},
            {&R::TEIHO_MINUTES, "", of<P2, &P2::txt_Thiho_Minutes>, "停歩が入力されておりません。"},
            {&R::CAR_MINUTES, "5", of<P2, &P2::txt_Thiho_Minutes>, "沿線・駅・バス 以外のデータが入力されています。"},
            {&R::BUS_ROUTE, kUnwritable, of<P2, &P2::txt_Bus_Route>, ""},
            {&R::BUSSTOP, kUnwritable, of<P2, &P2::txt_Busstop>, ""},
            {&R::OFFICE_HOURS, kUnwritable, of<P2, &P2::txt_Office_Hours>, ""},
            {&R::DAY_OFF, kUnwritable, of<P2, &P2::txt_Day_Off>, ""},
            {&R::COMPANY_COMMENT, kUnwritable, of<P2, &P2::txt_Company_Comment>, ""},
            {&R::COMPANY_URL, kUnwritable, of<P2, &P2::txt_Company_URL>, ""},
            {&R::COMPANY_URL_COMMENT, kUnwritable, of<P2, &P2::txt_Company_URL_Comment>, ""},
            {&R::COMPANY_URL, "http://", of<P2, &P2::txt_Company_URL>, "リンク名称とURLは双方の入力が必要です。"},
            {&R::COMPANY_URL, "www.example.jp", of<P2, &P2::txt_Company_URL>, "ホームページURL"},
            {&R::PHOTO_FILE1, "", of<P2, &P2::cbo_pic_PhotoFile, 0>, "画像種類と画像ファイルは双方の登録が必要です。"},
            {&R::PHOTO_GRP2, "", of<P2, &P2::cbo_pic_PhotoFile, 1>, "画像種類と画像ファイルは双方の登録が必要です。"},
        }},
        {"ByCar", "000004601,1,0", PF_CheckFrmCompInp2Data, byCar, {
            {&R::BUSSTOP, "見本前", of<P2, &P2::txt_Thiho_Minutes>, "バス分数が入力されておりません。"},
            {&R::CAR_TARGET, kUnwritable, of<P2, &P2::txt_Car_Target>, "沿線・駅が存在する場合は車目標物は必要ありません。"},
            {&R::CAR_DISTANCE, "", of<P2, &P2::txt_Car_Distance>, "車距離が入力されておりません。"},
            {&R::CAR_MINUTES, "", of<P2, &P2::txt_Car_Minutes>, "車分数が入力されておりません。"},
        }, false},
    };
    return all;
}
// clang-format on

void PrintTo(const Family& family, std::ostream* out) { *out << family.name; }

class SaveWithFaults : public WindowTest {
protected:
    /// What is told of the fault; by the string service where the table does not say.
    std::string textOf(const Fault& fault) {
        bool passes = true;
        for (const auto check :
             {&StringCheck::CheckTextFirst, &StringCheck::CheckTextSecond, &StringCheck::CheckTelNumber}) {
            if (passes) {
                (strings.*check)(fault.bad, passes);
            }
        }
        EXPECT_FALSE(fault.text.empty() && passes) << fault.bad;
        return fault.text.empty() ? strings.ErrorInfo().text : fault.text;
    }
    /// Each question is answered by the wish to correct.
    void correctWhenAsked() { messages.answers.assign(1, 1); }
    /// From the last fault to the first, each one put on top of those behind it.
    void expectTheFirstTold(const Family& family) {
        load(std::string(family.tail).substr(0, 9));
        gAddressByMaster = std::string_view(family.tail).ends_with("0");
        family.prepare();
        for (auto fault = family.faults.rbegin(); fault != family.faults.rend(); ++fault) {
            SCOPED_TRACE(fault->text + "|" + fault->bad);
            tCustomerInfo.*fault->field = fault->bad;
            correctWhenAsked();
            Refusal out;
            EXPECT_FALSE(family.check(out));
            EXPECT_EQ(out.focus, &fault->focus());
            EXPECT_EQ(out.text, textOf(*fault));
            EXPECT_EQ(out.id, "CHECK001");
        }
    }
};

class RefusedSave : public SaveWithFaults, public testing::WithParamInterface<Family> {};

TEST_P(RefusedSave, TakesTheOperatorToTheFaultAndWritesNothing) {
    startOn(4, GetParam().tail);
    GetParam().prepare();
    const CompanyRecord whole = tCustomerInfo;
    const Texts stored = everything();
    for (const Fault& fault : GetParam().faults) {
        SCOPED_TRACE(fault.text + "|" + fault.bad);
        tCustomerInfo = whole;
        tCustomerInfo.*fault.field = fault.bad;
        correctWhenAsked();
        click(screen().btm_Save);
        ASSERT_FALSE(messages.shown.empty());
        EXPECT_EQ(messages.shown.back(), (RecordedMessages::Shown{"COS19800", {textOf(fault)}}));
        const Control& expected = fault.focus();
        EXPECT_EQ(static_cast<ControlOwner*>(&screen()), &expected.owner()) << "the page";
        EXPECT_EQ(focused(), GetParam().closed ? "cbo_User_Id" : expected.objectName());
        EXPECT_EQ(everything(), stored);
        EXPECT_EQ(gErrMsg, "");
        turnTo(4);
        settle();
    }
    EXPECT_EQ(server.prepared, 0);
}

INSTANTIATE_TEST_SUITE_P(Rules, RefusedSave, testing::ValuesIn(families()),
                         [](const auto& family) { return family.param.name; });

TEST_F(SaveWithFaults, TellsTheFirstOfSeveral) {
    for (const Family& family : families()) {
        SCOPED_TRACE(family.name);
        if (family.ordered) {
            expectTheFirstTold(family);
        }
    }
}

/// Several questions in one save: waved through up to the last, or taken back at one of them.
TEST_F(WindowTest, EachQuestionOfASaveCanBeAnsweredBothWays) {
    startOn(4);
    tCustomerInfo.DANTAI_FLG = "1111110000000000";
    tCustomerInfo.DANTAI_NAME = "(社)香川県宅地建物取引業協会";
    tCustomerInfo.LICENSE_NO = "大阪府知事";
    tCustomerInfo.KOUTORI_FLG.assign(16, '0');
    tCustomerInfo.COMPANY_URL = "www.example.jp";
    const CompanyRecord whole = tCustomerInfo;
    const Texts stored = everything();
    const std::vector<std::pair<std::string, std::string>> asked{
        {"四国地区", "chk_Koutori(6)"}, {"近畿地区", "chk_Koutori(5)"}, {"首都圏", "chk_Koutori(2)"},
        {"首都圏", "chk_Koutori(2)"},   {"首都圏", "chk_Koutori(2)"},   {"首都圏", "chk_Koutori(2)"},
        {"URLに", "txt_Company_URL"}};
    for (std::size_t stop = 0; stop <= asked.size(); ++stop) {
        SCOPED_TRACE(stop);
        tCustomerInfo = whole;
        messages.shown.clear();
        messages.answers.assign(stop, 0);
        const bool waved = stop == asked.size();
        if (!waved) {
            messages.answers.push_back(1);
        }
        click(screen().btm_Save);
        ASSERT_EQ(messages.shown.size(), stop + (waved ? 1 : 2));
        for (std::size_t i = 0; i < stop; ++i) {
            EXPECT_EQ(messages.shown[i].id, "COS63212");
            EXPECT_NE(toText(messages.shown[i].args.at(0)).find(asked[i].first), std::string::npos);
        }
        EXPECT_EQ(messages.shown.back().id, waved ? "COS05574" : "COS19800");
        if (!waved) {
            EXPECT_EQ(focused(), asked[stop].second);
            EXPECT_EQ(everything(), stored);
            turnTo(4);
            settle();
        }
    }
    EXPECT_EQ(info("KOUTORI_FLG || LICENSE_NO"), "0000000000000000大阪府知事");
}

}  // namespace
}  // namespace orv
