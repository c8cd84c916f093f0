#include <algorithm>
#include <ranges>

#include "support/fixture.h"

namespace orv {
namespace {

using R = CompanyRecord;

constexpr const char* kBad = "😀";

/// A value that breaks a rule, and the resulting text. Empty for the text of the string service.
struct Broken {
    std::string value;
    std::string text = {};
};

/// The values of a field, in the order of its rules, and the control that receives the focus.
struct Fault {
    TextField field;
    const char* focus;
    std::vector<Broken> values;
};

/// The rules of one kind of company, in their order.
struct Family {
    const char* name;
    int page;
    const char* tail;
    /// Changes the company of the sample to one of that kind.
    void (*prepare)();
    std::vector<Fault> faults;
    /// Of two faults the first is reported, unless one field decides which rules apply.
    bool ordered = true;
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

constexpr const char* kAddress = "所在地が不正です。";
constexpr const char* kTyped = "所在地が未入力です。";
constexpr const char* kSite = "ＰＣ設置場所　所在地が不正です。";
constexpr const char* kPhotos = "画像種類と画像ファイルは双方の登録が必要です。";
constexpr const char* kUnnumbered = "承認手続き前には画像登録はできません。";

// clang-format off
const std::vector<Family>& families() {
    static const std::vector<Family> all{
        {"Company", 0, "000004601,1,0", asItIs, {
            {&R::USER_ID, "cbo_User_Id", {{"00000460", "ユーザＩＤが不正です。"}, {"00004601'"}}},
            {&R::COMPANY_NAME, "txt_Company_Name", {{kBad}, {" 　", "会社名が未入力です。"}}},
            {&R::COMPANY_KANA, "txt_Company_Kana", {{kBad}, {"", "会社名カナが未入力です。"}}},
            {&R::OFFICE_NAME, "txt_Office_Name", {{kBad}}},
            {&R::GROUP_NAME, "txt_Group_Name", {{kBad}}},
            {&R::ADDRESS, "btm_SearchOfficeAddress", {{"　", kAddress}}},
            {&R::ADDRESS_CODE, "btm_SearchOfficeAddress", {{"1310402200", kAddress}}},
            {&R::POST_CODE, "btm_SearchOfficeAddress", {{"1600022", kAddress}}},
            {&R::AREA_CODE, "btm_SearchOfficeAddress", {{"1310", kAddress}}},
            {&R::DAIHYO_NAME, "txt_Daihyo_Name", {{kBad}, {"", "代表者名が未入力です。"}}},
            {&R::DAIHYO_NAME_KANA, "txt_Daihyo_Name_Kana", {{kBad}, {"", "代表者名カナが未入力です。"}}},
            {&R::TAKKEN_SYUNIN_NAME, "txt_Takken_Syunin_Name", {{kBad}, {"", "宅地建物取引主任者が未入力です。"}}},
            {&R::TANTO_NAME, "txt_Tanto_Name", {{kBad}, {"", "入力担当者が未入力です。"}}},
            {&R::TEL_NO1, "txt_Tel_No1", {{" ", "TELが未入力です。"}, {kBad}, {"03-0000-010"}}},
            {&R::TEL_NO2, "txt_Tel_No2", {{kBad}, {"abc"}}},
            {&R::FAX_NO, "txt_Fax_No", {{"", "FAX番号が未入力です。"}, {kBad}, {"1234567890"}}},
            {&R::MAIL_ADDRESS, "txt_Mail_Address", {{"", "メールアドレスが未入力です。"}, {"a@b'c"}, {"a.bcd", "メールアドレスが不正です。"}}},
            {&R::PC_TEL_NO1, "chk_EqualData", {{" ", "上記と同じ場合にＰＣ設置場所のデータは入力できません。"}}},
        }},
        {"TypedAddress", 0, "000004602,1,1", asItIs, {
            {&R::ADDRESS, "txt_Address", {{kBad}}}, {&R::ADDRESS, "txt_Post_Code", {{"", kTyped}}},
            {&R::POST_CODE, "txt_Post_Code", {{"160-002", kTyped}}},
            {&R::PC_ADDRESS, "txt_Pc_Address", {{kBad}}},
            {&R::PC_ADDRESS, "txt_Pc_Post_Code", {{"", kSite}}},
            {&R::PC_POST_CODE, "txt_Pc_Post_Code", {{"", kSite}}},
        }},
        {"OwnSite", 0, "000004602,1,0", asItIs, {
            {&R::PC_ADDRESS, "btm_Pc_SearchOfficeAddress", {{"", kSite}}},
            {&R::PC_ADDRESS_CODE, "btm_Pc_SearchOfficeAddress", {{"1410301000", kSite}}},
            {&R::PC_POST_CODE, "btm_Pc_SearchOfficeAddress", {{"", kSite}}},
            {&R::PC_OFFICE_NAME, "txt_Pc_Office_Name", {{kBad}}},
            {&R::PC_TANTO_NAME, "txt_Pc_Tanto_Name", {{kBad}, {"　", "ＰＣ設置場所  入力担当者が未入力です。"}}},
            {&R::PC_TEL_NO1, "txt_Pc_Tel_No1", {{kBad}, {"", "ＰＣ設置場所  TEL番号が未入力です。"}}},
            {&R::PC_TEL_NO2, "txt_Pc_Tel_No2", {{kBad}, {"1"}}},
            {&R::PC_FAX_NO, "txt_Pc_Fax_No", {{kBad}, {"1"}}},
            {&R::PC_MAIL_ADDRESS, "txt_Pc_Mail_Address", {{kBad}, {"", "ＰＣ設置場所　メールアドレスが不正です。"}}},
        }},
        {"WithoutANumber", 0, "000004601,1,0", withoutANumber, {
            {&R::USER_PASSWD, "txt_User_Passwd", {{"1234", "パスワードが不正です。"}}},
        }},
        {"PhotosWithoutANumber", 2, "000004601,1,0", withoutANumber, {
            // The list that should receive the focus is disabled.
            {&R::PHOTO_FILE1, "txt_Walk_Minutes", {{"C:\\1.jpg", kUnnumbered}}},
            {&R::PHOTO_FILE2, "txt_Walk_Minutes", {{"C:\\1.jpg", kUnnumbered}}},
        }, false},
        {"Licence", 1, "000004601,1,0", asItIs, {
            {&R::LICENSE_NO_DAI, "txt_License_no_Dai", {{" ", "免許番号　第"}}},
            {&R::LICENSE_NO_GO, "txt_License_No_Go", {{"　", "免許番号　号"}}},
            {&R::GET_LICENSE_NENGOU, "cbo_Get_License_Nengou", {{"", "免許登録日（年号）"}}},
            {&R::GET_LICENSE_DATE_YEAR, "txt_Get_License_Date(0)", {{"", "免許登録日（年）"}}},
            {&R::GET_LICENSE_DATE_MONTH, "txt_Get_License_Date(1)", {{" 　", "免許登録日（月）"}}},
            {&R::GET_LICENSE_DATE_DAY, "txt_Get_License_Date(2)", {{"", "免許登録日（日）"}}},
            {&R::VALID_LICENSE_NENGOU, "cbo_Valid_License_Nengou", {{"", "免許有効期限（年号）"}}},
            {&R::VALID_LICENSE_DATE_YEAR, "txt_Valid_License_Date(0)", {{"", "免許有効期限（年）"}}},
            {&R::VALID_LICENSE_DATE_MONTH, "txt_Valid_License_Date(1)", {{"", "免許有効期限（月）"}}},
            {&R::VALID_LICENSE_DATE_DAY, "txt_Valid_License_Date(2)", {{" ", "免許有効期限（日）"}}},
            {&R::VALID_LICENSE_DATE_YEAR, "cbo_Get_License_Nengou", {{"8", "免許有効期限が切れております。\r\n免許有効期限を正しく入力して下さい。"}}},
        }, false},
        {"NoLicence", 1, "000004602,1,0", asItIs, {
            {&R::LICENSE_NO_DAI, "cbo_License_No", {{"1", "免許番号が「なし」「貸主」の場合は\r\n免許期限は入力できません。"}}},
        }},
        {"Associations", 1, "000004601,1,0", inOtherAssociations, {
            {&R::DANTAI_FLG, "chk_Dantai(0)", {{"0", "加盟団体"}}},
            {&R::DANTAI_NAME, "cbo_Dantai_Name", {{" 　", "加盟団体名"}}},
            {&R::KOUTORI_FLG, "chk_Koutori(2)", {{"0", "公正取引協議会"}}},
            {&R::OTHER_DANTAI_NAME, "txt_Other_Dantai_Name", {{kBad}, {" 　", "その他加盟団体"}}},
        }},
        {"Access", 2, "000004601,1,0", byBus, {
            {&R::WALK_MINUTES, "txt_Walk_Minutes", {{"5", "沿線・駅・徒歩 以外のデータが入力されています。"}}},
            {&R::BUS_ROUTE, "txt_Bus_Route", {{kBad}}}, {&R::BUSSTOP, "txt_Busstop", {{kBad}}},
            {&R::OFFICE_HOURS, "txt_Office_Hours", {{kBad}}},
            {&R::DAY_OFF, "txt_Day_Off", {{kBad}}},
            {&R::COMPANY_COMMENT, "txt_Company_Comment", {{kBad}}},
            {&R::COMPANY_URL, "txt_Company_URL", {{kBad}}},
            {&R::COMPANY_URL_COMMENT, "txt_Company_URL_Comment", {{kBad}}},
            {&R::COMPANY_URL, "txt_Company_URL", {{"http://", "リンク名称とURLは双方の入力が必要です。"}, {"www.example.jp", "ホームページURL"}}},
            {&R::PHOTO_FILE1, "cbo_pic_PhotoFile(0)", {{"", kPhotos}}},
            {&R::PHOTO_GRP2, "cbo_pic_PhotoFile(1)", {{"", kPhotos}}},
        }},
    };
    return all;
}
// clang-format on

void PrintTo(const Family& family, std::ostream* out) { *out << family.name; }

class RefusedSave : public SystemTest, public testing::WithParamInterface<Family> {
protected:
    std::string readText(const Broken& broken) {
        if (!broken.text.empty()) return broken.text;
        for (const auto check :
             {&StringCheck::CheckTextFirst, &StringCheck::CheckTextSecond, &StringCheck::CheckTelNumber}) {
            bool passes = false;
            (strings.*check)(broken.value, passes);
            if (!passes) return strings.ErrorInfo().text;
        }
        return "nothing refuses " + broken.value;
    }
    /// Expects a save to focus the fault and to write nothing.
    void expectRefused(const Fault& fault, const Broken& broken) {
        messages.answers = {1};
        save();
        ASSERT_FALSE(messages.shown.empty());
        EXPECT_EQ(messages.shown.back(), (RecordedMessages::Shown{"COS19800", {readText(broken)}}));
        EXPECT_EQ(screen().number, GetParam().page);
        ASSERT_NE(screen().activeControl(), nullptr);
        EXPECT_EQ(screen().activeControl()->objectName(), fault.focus);
        EXPECT_TRUE(std::ranges::any_of(screen().controls(),
                                        [&](const Control* control) { return control->fault() == readText(broken); }));
        EXPECT_EQ(gErrMsg, "");
        turnTo(4);
    }
};

/// Tests each fault by itself. If the order counts, adds them from the last to the first, so that each new one is
/// reported.
TEST_P(RefusedSave, ReportsTheFirstFaultAndWritesNothing) {
    startOn(4, GetParam().tail);
    GetParam().prepare();
    const CompanyRecord whole = tCustomerInfo;
    const Texts stored = everything();
    for (const bool together : {false, true}) {
        CompanyRecord record = whole;
        for (const Fault& fault : GetParam().faults | std::views::reverse) {
            for (const Broken& broken : fault.values | std::views::reverse) {
                SCOPED_TRACE(std::string(fault.focus) + "|" + broken.value);
                record = together && GetParam().ordered ? record : whole;
                record.*fault.field = broken.value;
                tCustomerInfo = record;
                expectRefused(fault, broken);
            }
        }
    }
    EXPECT_EQ(everything(), stored);
    EXPECT_EQ(server.prepared, 0);
}

INSTANTIATE_TEST_SUITE_P(Rules, RefusedSave, testing::ValuesIn(families()),
                         [](const auto& family) { return family.param.name; });

/// Tests several questions in one save, all accepted up to the last, or one of them declined.
TEST_F(SystemTest, EachQuestionOfASaveCanBeAnsweredBothWays) {
    startOn(4);
    tCustomerInfo.DANTAI_FLG = "1111110000000000";
    tCustomerInfo.DANTAI_NAME = "(社)香川県宅地建物取引業協会";
    tCustomerInfo.LICENSE_NO = "大阪府知事";
    tCustomerInfo.KOUTORI_FLG.assign(16, '0');
    tCustomerInfo.COMPANY_URL = "www.example.jp";
    const CompanyRecord whole = tCustomerInfo;
    const std::vector<std::pair<std::string, std::string>> asked{
        {"四国地区", "chk_Koutori(6)"},
        {"近畿地区", "chk_Koutori(5)"},
        {"(社)不動産協会 が選択されておりますが、\r\n公正取引協議会で首都圏", "chk_Koutori(2)"},
        {"(社)日本住宅建設産業協会 が選択されておりますが、\r\n公正取引協議会で首都圏", "chk_Koutori(2)"},
        {"(社)不動産流通経営協会 が選択されておりますが、\r\n公正取引協議会で首都圏", "chk_Koutori(2)"},
        {"(社)都市開発協会 が選択されておりますが、\r\n公正取引協議会で首都圏", "chk_Koutori(2)"},
        {"URLに", "txt_Company_URL"}};
    for (std::size_t stop = 0; stop <= asked.size(); ++stop) {
        tCustomerInfo = whole;
        messages.shown.clear();
        messages.answers.assign(stop, 0);
        messages.answers.push_back(stop < asked.size() ? 1 : 0);
        save();
        ASSERT_EQ(messages.shown.size(), std::min(stop + 2, asked.size() + 1)) << stop;
        for (std::size_t i = 0; i < stop; ++i) {
            EXPECT_NE(toText(messages.shown[i].args.at(0)).find(asked[i].first), std::string::npos);
        }
        EXPECT_EQ(messages.shown.back().id, stop < asked.size() ? "COS19800" : "COS05574");
        EXPECT_EQ(screen().activeControl()->objectName(),
                  stop < asked.size() ? asked[stop].second : "btm_ChangePage(4)");
        turnTo(4);
    }
    EXPECT_EQ(info("KOUTORI_FLG || LICENSE_NO"), "0000000000000000大阪府知事");
}

}  // namespace
}  // namespace orv
