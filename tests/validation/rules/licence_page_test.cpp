#include "validation/rules/page_checks.h"

#include "validation/rules/rules_test.h"

namespace orv {
namespace {

struct Prefecture {
    const char* name;
    /// The council asked for when the association's name holds it, and when the licence does; 0: none.
    std::size_t byAssociation, byLicence;
};

/// In the official order.
constexpr Prefecture kPrefectures[] = {
    {"北海道", 1, 1}, {"青森県", 2, 2},   {"岩手県", 2, 2}, {"宮城県", 2, 2},   {"秋田県", 2, 2}, {"山形県", 2, 2},
    {"福島県", 2, 2}, {"茨城県", 3, 0},   {"栃木県", 3, 0}, {"群馬県", 3, 0},   {"埼玉県", 3, 3}, {"千葉県", 3, 3},
    {"東京都", 3, 3}, {"神奈川県", 3, 3}, {"新潟県", 3, 0}, {"富山県", 5, 0},   {"石川県", 5, 0}, {"福井県", 5, 0},
    {"山梨県", 3, 0}, {"長野県", 3, 0},   {"岐阜県", 4, 0}, {"静岡県", 4, 4},   {"愛知県", 4, 4}, {"三重県", 4, 4},
    {"滋賀県", 6, 6}, {"京都府", 6, 6},   {"大阪府", 6, 6}, {"兵庫県", 6, 6},   {"奈良県", 6, 6}, {"和歌山県", 6, 6},
    {"鳥取県", 7, 7}, {"島根県", 7, 7},   {"岡山県", 7, 0}, {"広島県", 7, 7},   {"山口県", 7, 7}, {"徳島県", 8, 8},
    {"香川県", 8, 8}, {"愛媛県", 8, 8},   {"高知県", 8, 8}, {"福岡県", 9, 9},   {"佐賀県", 9, 9}, {"長崎県", 9, 9},
    {"熊本県", 9, 9}, {"大分県", 9, 9},   {"宮崎県", 9, 9}, {"鹿児島県", 9, 9}, {"沖縄県", 9, 0},
};
static_assert(std::size(kPrefectures) == 47);

constexpr const char* kRegions[] = {"北海道",   "東北地区", "首都圏",   "東海", "北陸",
                                    "近畿地区", "中国地区", "四国地区", "九州"};

std::string question(const std::string& association, std::size_t council) {
    return association + "が選択されておりますが、\r\n公正取引協議会で" + kRegions[council - 1] +
           "が選択されておりません。";
}

/// 中国 and 四国, the seventh and the eighth, focus each other's box.
std::size_t findElement(std::size_t council) { return council == 7 ? 7 : council == 8 ? 6 : council - 1; }

class AssociationRules : public RulesTest {
protected:
    bool check(std::deque<std::int32_t> answers = {}) { return passes(PF_CheckFrmCompInp1Data, std::move(answers)); }
    /// Tests one association with a prefecture in its name or in the licence, and every council except one ticked.
    void expectCouncil(std::size_t council, const std::string& association) {
        tCustomerInfo.KOUTORI_FLG.assign(9, '1');
        if (council == 0) {
            tCustomerInfo.KOUTORI_FLG.assign(9, '0');
            EXPECT_TRUE(check({1}));
            EXPECT_TRUE(messages.shown.empty());
            return;
        }
        EXPECT_TRUE(check({1})) << "every council is ticked";
        tCustomerInfo.KOUTORI_FLG[council - 1] = '0';
        EXPECT_FALSE(check({1}));
        EXPECT_EQ(questions(), std::vector{question(association, council)});
        expectRefused(page<frm_CompInp1>().chk_Koutori[findElement(council)], "公正取引協議会");
        EXPECT_TRUE(check({0}));
        EXPECT_EQ(questions(), std::vector{question(association, council)});
        EXPECT_EQ(out.text, question(association, council)) << "the text remains";
    }
};

TEST_F(AssociationRules, KnowTheCouncilOfEachPrefectureByTheAssociationsName) {
    tCustomerInfo.DANTAI_FLG = "1000000";
    for (const Prefecture& prefecture : kPrefectures) {
        SCOPED_TRACE(prefecture.name);
        tCustomerInfo.DANTAI_NAME = std::string("(社)") + prefecture.name + "宅地建物取引業協会";
        expectCouncil(prefecture.byAssociation, tCustomerInfo.DANTAI_NAME);
    }
    tCustomerInfo.DANTAI_NAME = "架空協会";
    expectCouncil(0, "");
}

TEST_F(AssociationRules, KnowFewerCouncilsByTheLicence) {
    tCustomerInfo.DANTAI_FLG = "0100000";
    for (const Prefecture& prefecture : kPrefectures) {
        SCOPED_TRACE(prefecture.name);
        tCustomerInfo.LICENSE_NO = std::string(prefecture.name) + "知事";
        expectCouncil(prefecture.byLicence, "(社)全日本不動産協会 ");
    }
    tCustomerInfo.LICENSE_NO = "国土交通大臣";
    expectCouncil(0, "");
}

using LicenceRules = RulesTest;

TEST_F(LicenceRules, LookAtTheExpiryDate) {
    enum Result { Good, Expired, Unreadable };
    struct Case {
        const char *era, *year, *month, *day;
        Result result;
    };
    for (const Case& row :
         {Case{"令和", "8", "5", "4", Good}, Case{"令和", "8", "5", "3", Expired},
          Case{"平成", "38", "5", "3", Expired}, Case{"西暦", "26", "5", "4", Good},
          Case{"西暦", " 2026 ", " 5 ", " 4 ", Good}, Case{"西暦", "2027", "2", "29", Unreadable},
          Case{"西暦", "20x7", "1", "1", Unreadable}, Case{"西暦", "99999999999999999999", "1", "1", Unreadable},
          Case{"令和", "1", "4", "30", Unreadable}}) {
        SCOPED_TRACE(std::string(row.era) + row.year + "/" + row.month + "/" + row.day);
        tCustomerInfo.VALID_LICENSE_NENGOU = row.era;
        tCustomerInfo.VALID_LICENSE_DATE_YEAR = row.year;
        tCustomerInfo.VALID_LICENSE_DATE_MONTH = row.month;
        tCustomerInfo.VALID_LICENSE_DATE_DAY = row.day;
        clearPair();
        EXPECT_EQ(passes(PF_CheckFrmCompInp1Data), row.result == Good) << out.text;
        if (row.result == Expired) {
            EXPECT_EQ(out.id, "CHECK004");
            EXPECT_EQ(gErrMsg, "");
        }
        if (row.result == Unreadable) {
            EXPECT_EQ(gErrMsg + gErrCode, "[ PF_CheckFrmCompInp1Data ] 型が一致しません。13");
            EXPECT_TRUE(out.focus == nullptr && out.id.empty() && out.text.empty());
        }
    }
}

}  // namespace
}  // namespace orv
