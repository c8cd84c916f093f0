#include "validation/rules/access_rules.h"

#include "validation/rules/rules_test.h"

namespace orv {
namespace {

constexpr const char* kPair = "リンク名称とURLは双方の入力が必要です。";
constexpr const char* kNoPrefix = "URLに「http://」がありません。";

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

}  // namespace
}  // namespace orv
