#include <regex>

#include "pages/forms/page_set.h"
#include "sample_folder.h"
#include "support/form_test.h"
#include "support/temp_folder.h"
#include "support/unwired_pages.h"

namespace orv {
namespace {

class PageFields : public FormTest {
protected:
    PageFields() { useUnwiredPages(); }
    ~PageFields() override { dropPages(); }
};

// Contains characters of every kind; the accepted ones show the field's mask. Full-width ones count if half width is
// accepted.
constexpr const char* kAllKinds = "5bC-ｱ５ｂＣ－ア漢";

TEST_F(PageFields, TakeTheKindsOfCharactersThatTheyAreFor) {
    struct Case {
        int page;
        const char *name, *taken;
        const char* entered = kAllKinds;
    };
    for (const Case& row :
         {Case{0, "txt_User_Passwd", "5bC-", "5bC-ｱ漢"}, Case{0, "txt_Company_Name", "5bC-５ｂＣ－ア漢"},
          // Half-width katakana arrive in full width.
          Case{0, "txt_Company_Kana", "ア５ｂＣ－ア"}, Case{0, "txt_Daihyo_Name_Kana", "ア５ｂＣ－ア"},
          Case{0, "txt_Post_Code", "5-5-"}, Case{0, "txt_Address", kAllKinds},
          Case{0, "txt_Pc_Address", "5bC-５ｂＣ－ア漢"}, Case{0, "txt_Address_number", "55"},
          Case{0, "txt_Tel_No1", "03-1234(5678)", "03-1234(5678)a"},
          Case{0, "txt_Mail_Address", "a.B-9@.jp", "a.B-9@ｱ例.jp "}, Case{1, "txt_License_No_Go", "55"},
          Case{1, "txt_Other_Dantai_Name", kAllKinds}, Case{2, "txt_Walk_Minutes", "55"},
          Case{2, "txt_Bus_Route", kAllKinds},
          Case{2, "txt_Company_URL", "http://a-B.jp/~x?y=1", "http://a-B.jp/~x?y=1 漢"}}) {
        auto& field = dynamic_cast<TextInput&>(*pageAt(row.page).find(row.name));
        EXPECT_EQ(field.typed("", row.entered, ""), row.taken) << row.name;
    }
}

/// The number after a column in the schema is the limit of its field, in bytes.
TEST_F(PageFields, TakeAsMuchAsTheirColumnsHold) {
    const std::string schema = readFile(kSampleFolder + "/sql/schema.sql");
    int compared = 0;
    for (int number = 0; number < kPageCount; ++number) {
        for (Control* control : pageAt(number).controls()) {
            auto* field = dynamic_cast<TextInput*>(control);
            if (field == nullptr || !field->visible()) continue;
            const std::string name = field->name() == "txt_Thiho_Minutes" ? "Teiho_Minutes" : field->name().substr(4);
            std::smatch column;
            ASSERT_TRUE(
                std::regex_search(schema, column, std::regex(" " + name + " +TEXT,? +-- ([0-9]+)", std::regex::icase)));
            std::size_t most = 0;
            for (std::string text : {"1", "漢", "ア"}) {
                for (int doubled = 0; doubled < 8; ++doubled) text += text;
                most = std::max(most, Cp932().encode(field->typed("", text, "")).size());
            }
            EXPECT_EQ(std::to_string(most), column[1]) << name;
            ++compared;
        }
    }
    EXPECT_GE(compared, 43);
}

TEST_F(PageFields, DatesAndDistanceKeepToTheirRanges) {
    frm_CompInp1& licence = page<frm_CompInp1>();
    const std::array<std::array<std::string, 4>, 3> ends{
        {{"0", "1", "9999", "10000"}, {"0", "1", "12", "13"}, {"0", "1", "31", "32"}}};
    for (std::size_t i = 0; i < ends.size(); ++i) {
        for (NumberInput* input : {&licence.txt_Get_License_Date[i], &licence.txt_Valid_License_Date[i]}) {
            for (std::size_t end = 0; end < 4; ++end) {
                EXPECT_EQ(input->typed(ends[i][end]), end == 1 || end == 2) << input->objectName() << ends[i][end];
            }
        }
    }
    NumberInput& distance = page<frm_CompInp2>().txt_Car_Distance;
    EXPECT_TRUE(distance.typed("0"));
    EXPECT_TRUE(distance.typed("99.9"));
    EXPECT_EQ(distance.text(), "99.9");
    EXPECT_FALSE(distance.typed("100"));
}

/// Returns the unusual properties of a field before its page is filled: disabled "!", a password "*", its rank among
/// the fields "#".
std::string unusual(const Control& control) {
    const auto* input = dynamic_cast<const TextInput*>(&control);
    const bool secret = input != nullptr && input->textDesign().password;
    const bool ranked = control.tabRank() > 0 && control.tabRank() < kTabSave;
    const std::string signs = std::string(control.enabled() ? "" : "!") + (secret ? "*" : "") +
                              (ranked ? "#" + std::to_string(control.tabRank()) : "");
    return signs.empty() ? "" : control.objectName() + signs + " ";
}

TEST_F(PageFields, StartAsTheyAreDesigned) {
    const std::string pages[] = {
        "txt_User_Passwd!* txt_Post_Code! txt_Address! txt_Pc_Post_Code! txt_Pc_Address! txt_Pc_Address_number! "
        "txt_Pc_Address_Gou! txt_Pc_Office_Name! txt_Pc_Tanto_Name! txt_Pc_Tel_No1! txt_Pc_Tel_No2! txt_Pc_Fax_No! "
        "txt_Pc_Mail_Address! ",
        "chk_Dantai(1)#2 chk_Dantai(2)#2 chk_Dantai(3)#2 chk_Dantai(4)#2 chk_Dantai(5)#2 chk_Dantai(6)#2 "
        "cbo_Dantai_Name#1 txt_Other_Dantai_Name#2 chk_Koutori(0)#2 chk_Koutori(1)#2 chk_Koutori(2)#2 "
        "chk_Koutori(3)#2 chk_Koutori(4)#2 chk_Koutori(5)#2 chk_Koutori(6)#2 chk_Koutori(7)#2 chk_Koutori(8)#2 ",
        "cbo_pic_PhotoFile(0)#1 cbo_pic_PhotoFile(1)#2 btm_PhotoSelect(0)#1 btm_PhotoSelect(1)#2 btm_PhotoDel(0)#1 "
        "btm_PhotoDel(1)#2 ",
        "",
        "",
    };
    for (int number = 0; number < kPageCount; ++number) {
        std::string found;
        for (const Control* control : pageAt(number).controls()) found += unusual(*control);
        EXPECT_EQ(found, pages[number]);
        EXPECT_FALSE(pageAt(number).ready);
    }
}

}  // namespace
}  // namespace orv
