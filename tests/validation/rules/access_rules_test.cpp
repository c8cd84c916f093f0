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
