#include <array>
#include <sstream>

#include "pages/controls/page_set.h"
#include "support/form_test.h"

namespace orv {
namespace {

class PageFields : public FormTest {
protected:
    ~PageFields() override { dropPages(); }
};

template <class F>
TextInput& text(std::string_view name, int index = -1) {
    return dynamic_cast<TextInput&>(*page<F>().find(name, index));
}

using Page = TextInput& (*)(std::string_view, int);

struct EntryRow {
    Page field;
    std::string_view name;
    std::string entered;
    std::string taken;
};

std::string times(std::size_t count, std::string_view piece) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i) {
        result += piece;
    }
    return result;
}

constexpr auto kPage0 = &text<frm_CompInp0>;
constexpr auto kPage1 = &text<frm_CompInp1>;
constexpr auto kPage2 = &text<frm_CompInp2>;

// Characters of every kind: what is left of them shows the field's mask.
constexpr std::string_view kAllKinds = "5bC-ｱ５ｂＣ－ア漢";

TEST_F(PageFields, TakeTheKindsOfCharactersThatTheyAreFor) {
    const std::array<EntryRow, 15> rows{{
        {kPage0, "txt_User_Passwd", "5bC-ｱ漢", "5bC-"},
        {kPage0, "txt_Company_Name", std::string(kAllKinds), "5bC-５ｂＣ－ア漢"},
        // Half-width katakana arrive in full width.
        {kPage0, "txt_Company_Kana", std::string(kAllKinds), "ア５ｂＣ－ア"},
        {kPage0, "txt_Daihyo_Name_Kana", std::string(kAllKinds), "ア５ｂＣ－ア"},
        {kPage0, "txt_Post_Code", std::string(kAllKinds), "5-"},
        {kPage0, "txt_Address", std::string(kAllKinds), std::string(kAllKinds)},
        {kPage0, "txt_Pc_Address", std::string(kAllKinds), "5bC-５ｂＣ－ア漢"},
        {kPage0, "txt_Address_number", std::string(kAllKinds), "5"},
        {kPage0, "txt_Tel_No1", "03-1234(5678)a", "03-1234(5678)"},
        {kPage0, "txt_Mail_Address", "a.B-9@ｱ例.jp ", "a.B-9@.jp"},
        {kPage1, "txt_License_No_Go", std::string(kAllKinds), "5"},
        {kPage1, "txt_Other_Dantai_Name", std::string(kAllKinds), std::string(kAllKinds)},
        {kPage2, "txt_Walk_Minutes", std::string(kAllKinds), "5"},
        {kPage2, "txt_Bus_Route", std::string(kAllKinds), std::string(kAllKinds)},
        {kPage2, "txt_Company_URL", "http://a-B.jp/~x?y=1 漢", "http://a-B.jp/~x?y=1"},
    }};
    for (const EntryRow& row : rows) {
        EXPECT_EQ(row.field(row.name, -1).typed("", row.entered, ""), row.taken) << row.name;
    }
}

/// Of how many of these characters each field takes the last.
struct LengthRow {
    Page page;
    std::string_view piece;
    const char* fields;
};

TEST_F(PageFields, TakeAsMuchAsTheyCanHold) {
    for (const LengthRow& row : std::vector<LengthRow>{
             {kPage0, "漢",
              "txt_Group_Name 20 txt_Company_Name 30 txt_Office_Name 30 txt_Address 60 txt_Address_Other 30 "
              "txt_Daihyo_Name 20 txt_Takken_Syunin_Name 20 txt_Tanto_Name 20 txt_Pc_Address 60 txt_Pc_Office_Name "
              "30 txt_Pc_Tanto_Name 30"},
             {kPage0, "ア", "txt_Company_Kana 60 txt_Daihyo_Name_Kana 40"},
             {kPage0, "1",
              "txt_User_Passwd 10 txt_Post_Code 8 txt_Address_number 4 txt_Address_Gou 4 txt_Tel_No1 13 txt_Tel_No2 "
              "13 txt_Fax_No 13 txt_Mail_Address 64 txt_Pc_Post_Code 8 txt_Pc_Address_number 4 txt_Pc_Address_Gou 4 "
              "txt_Pc_Tel_No1 13 txt_Pc_Tel_No2 13 txt_Pc_Fax_No 13 txt_Pc_Mail_Address 64"},
             {kPage1, "1", "txt_License_no_Dai 2 txt_License_No_Go 6"},
             {kPage1, "漢", "txt_Other_Dantai_Name 30"},
             {kPage2, "1",
              "txt_Walk_Minutes 2 txt_Bus_Minutes 2 txt_Thiho_Minutes 2 txt_Car_Minutes 2 txt_Company_URL 96"},
             {kPage2, "漢",
              "txt_Bus_Route 24 txt_Busstop 12 txt_Car_Target 12 txt_Company_URL_Comment 64 txt_Company_Comment 100 "
              "txt_Day_Off 50 txt_Office_Hours 50"},
         }) {
        std::istringstream words(row.fields);
        std::string name;
        for (std::size_t fits = 0; words >> name >> fits;) {
            const std::string full = times(fits, row.piece);
            EXPECT_EQ(row.page(name, -1).typed("", full + std::string(row.piece), ""), full) << name;
        }
    }
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

/// What is unusual about a field before its page is filled: disabled "!", a password "*", its rank among the fields
/// "#".
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
        for (const Control* control : pageAt(number).controls()) {
            found += unusual(*control);
        }
        EXPECT_EQ(found, pages[number]);
        EXPECT_FALSE(pageAt(number).ready);
    }
}

}  // namespace
}  // namespace orv
