#include "validation/rules/access_rules.h"

#include "validation/rules/rules_test.h"

namespace orv {
namespace {

using R = CompanyRecord;

constexpr const char* kPair = "リンク名称とURLは双方の入力が必要です。";
constexpr const char* kNoPrefix = "URLに「http://」がありません。";
constexpr const char* kPhotoPair = "画像種類と画像ファイルは双方の登録が必要です。";
constexpr const char* kTooEarly = "承認手続き前には画像登録はできません。";

class AccessRules : public RulesTest {
protected:
    bool check(std::deque<std::int32_t> answers = {}) {
        messages.answers = std::move(answers);
        return passes(PF_CheckFrmCompInp2Data);
    }
    void expectRefused(const std::string& control, const std::string& text) const {
        EXPECT_EQ(focus(), "frm_CompInp2." + control);
        EXPECT_EQ(out.id, "CHECK001");
        EXPECT_EQ(out.text, text);
    }
};

/// Everything is wrong at first, and is mended in the order in which it is told.
TEST_F(AccessRules, RunInTheirOrder) {
    const std::string bad = "\U0001F600";
    std::string refused;
    bool admitted = true;
    stringCheck.CheckTextFirst(bad, admitted);
    refused = stringCheck.ErrorInfo().text;
    ASSERT_FALSE(admitted);

    const std::vector<FieldCase> cases{
        {&R::TEIHO_MINUTES, "", "2", "txt_Thiho_Minutes", "停歩が入力されておりません。"},
        {&R::BUS_ROUTE, bad, "見本線", "txt_Bus_Route", refused},
        {&R::BUSSTOP, bad, "見本前", "txt_Busstop", refused},
        {&R::OFFICE_HOURS, bad, "", "txt_Office_Hours", refused},
        {&R::DAY_OFF, bad, "水曜日", "txt_Day_Off", refused},
        {&R::COMPANY_COMMENT, bad, "", "txt_Company_Comment", refused},
        {&R::COMPANY_URL, bad, "", "txt_Company_URL", refused},
        {&R::COMPANY_URL_COMMENT, bad, "見本", "txt_Company_URL_Comment", refused},
        {&R::COMPANY_URL, "", "www.example.jp", "txt_Company_URL", kPair},
        {&R::COMPANY_URL, "www.example.jp", "http://www.example.jp", "txt_Company_URL", "ホームページURL"},
        {&R::PHOTO_FILE1, "", "C:\\1.jpg", "cbo_pic_PhotoFile(0)", kPhotoPair},
        {&R::PHOTO_GRP2, "", "外観", "cbo_pic_PhotoFile(1)", kPhotoPair},
    };
    for (auto row = cases.rbegin(); row != cases.rend(); ++row) {
        tCustomerInfo.*row->field = row->spoilt;
    }
    tCustomerInfo.BUS_MINUTES = "10";
    tCustomerInfo.PHOTO_GRP1 = "店内";
    tCustomerInfo.PHOTO_FILE2 = "C:\\2.jpg";
    for (const FieldCase& row : cases) {
        SCOPED_TRACE(row.focus + row.text);
        EXPECT_FALSE(check({1}));
        expectRefused(row.focus, row.text);
        tCustomerInfo.*row.field = row.mended;
    }
    EXPECT_TRUE(check()) << out.text;
}

TEST_F(AccessRules, TheLandmarkIsRefusedBeforeItsTextIsLookedAt) {
    tCustomerInfo.CAR_TARGET = "\U0001F600";
    EXPECT_FALSE(check());
    expectRefused("txt_Car_Target", "沿線・駅が存在する場合は車目標物は必要ありません。");
}

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
        EXPECT_EQ(check({row.answer}), text.empty());
        EXPECT_EQ(questions(), row.asked ? std::vector<std::string>{kNoPrefix} : std::vector<std::string>{});
        EXPECT_EQ(tCustomerInfo.COMPANY_URL, row.urlAfter);
        if (!text.empty()) {
            expectRefused("txt_Company_URL", text);
        }
    }
}

TEST_F(AccessRules, PhotosHaveAKindAndANumberedCompany) {
    struct Case {
        const char* userId;
        const char* kinds[2];
        const char* files[2];
        const char* focus;
        const char* text;
    };
    for (const Case& row : {
             Case{"000004601", {"", ""}, {"", ""}, "", ""},
             {"000004601", {"外観", "店内"}, {"1", "2"}, "", ""},
             {"000004601", {"外観", ""}, {"", ""}, "cbo_pic_PhotoFile(0)", kPhotoPair},
             {"000004601", {"", "店内"}, {"1", ""}, "cbo_pic_PhotoFile(0)", kPhotoPair},
             {"000004601", {"外観", "店内"}, {"1", ""}, "cbo_pic_PhotoFile(1)", kPhotoPair},
             {"000004601", {"", ""}, {"", " "}, "cbo_pic_PhotoFile(1)", kPhotoPair},
             {"---------", {"", ""}, {"", ""}, "", ""},
             {"---------", {"外観", "店内"}, {"", ""}, "", ""},
             {"---------", {"外観", ""}, {"1", ""}, "cbo_pic_PhotoFile(0)", kTooEarly},
             {"---------", {"", ""}, {"", "2"}, "cbo_pic_PhotoFile(0)", kTooEarly},
         }) {
        SCOPED_TRACE(std::string(row.userId) + row.kinds[0] + row.kinds[1] + row.files[0] + row.files[1]);
        tCustomerInfo.USER_ID = row.userId;
        tCustomerInfo.PHOTO_GRP1 = row.kinds[0];
        tCustomerInfo.PHOTO_GRP2 = row.kinds[1];
        tCustomerInfo.PHOTO_FILE1 = row.files[0];
        tCustomerInfo.PHOTO_FILE2 = row.files[1];
        const std::string text = row.text;
        EXPECT_EQ(check(), text.empty());
        if (!text.empty()) {
            expectRefused(row.focus, text);
        }
    }
}

TEST_F(AccessRules, ChangesOfTheRecordStandWhateverTheOutcome) {
    tCustomerInfo.COMPANY_URL = "http://";
    tCustomerInfo.PHOTO_GRP2 = "店内";
    EXPECT_FALSE(check());
    EXPECT_EQ(out.text, kPhotoPair);
    EXPECT_EQ(tCustomerInfo.COMPANY_URL, "");
}

TEST_F(AccessRules, AQuestionThatBreaksIsARunTimeFailure) {
    tCustomerInfo.COMPANY_URL = "www.example.jp";
    tCustomerInfo.COMPANY_URL_COMMENT = "見本";
    messages.failure = Failure::OutOfMemory;
    EXPECT_FALSE(check());
    expectRunTimeFailure("[ PF_CheckFrmCompInp2Data ] " + std::string(descriptionOf(Failure::OutOfMemory)), "7");
}

}  // namespace
}  // namespace orv
