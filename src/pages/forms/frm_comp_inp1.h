#pragma once

#include "pages/forms/page_form.h"

namespace orv {

// The list of associations is next to the first box of its array, so its rank is between the first and the second.
inline constexpr int kTabDantaiName = kTabFields + 1;
inline constexpr int kTabAfterDantaiName = kTabFields + 2;

constexpr std::array<NumberDesign, 3> licenceDate(std::string_view monthFormat, std::string_view afterDay) {
    return {{{.unit = "年", .least = 1, .most = 9999, .format = "####;;;", .back = kRequiredField},
             {.unit = "月", .least = 1, .most = 12, .format = monthFormat, .back = kRequiredField},
             {.unit = afterDay, .least = 1, .most = 31, .format = "##;;;", .back = kRequiredField}}};
}

constexpr std::array<CheckDesign, 7> dantaiBoxes() {
    auto boxes = tickBoxes<7>({"", "(社)全日本不動産協会", "(社)不動産協会", "(社)日本住宅建設産業協会",
                               "(社)不動産流通経営協会", "(社)都市開発協会", "その他加盟団体"},
                              kTabAfterDantaiName);
    boxes[0].tabRank = kTabFields;
    boxes[0].spokenName = "加盟団体に加盟";
    return boxes;
}

constexpr std::array<CheckDesign, 9> koutoriBoxes() {
    return tickBoxes<9>({"(社)北海道", "東北", "(社)首都圏", "東海", "北陸", "(社)近畿地方", "中国", "四国", "九州"},
                        kTabAfterDantaiName);
}

/// The broker's licence, the associations and the fair-trade councils.
struct frm_CompInp1 : PageForm {
    static constexpr int kNumber = 1;

    frm_CompInp1() : PageForm(kNumber) {
        nameBlock(cbo_License_No.caption(), txt_License_no_Dai, txt_License_No_Go);
        nameBlock("有効期限開始", txt_Get_License_Date[0], txt_Get_License_Date[2]);
        nameBlock("有効期限終了", cbo_Valid_License_Nengou, txt_Valid_License_Date[2]);
        txt_Other_Dantai_Name.setBlock(chk_Dantai[6].checkDesign().caption);
    }

    // clang-format off
    ComboBox cbo_License_No{*this, "cbo_License_No", {.caption = "免許証番号："}};
    TextInput txt_License_no_Dai{*this, "txt_License_no_Dai", {.unit = "第", .mask = "9", .limit = characters(2), .ime = Ime::Disabled, .back = kRequiredField, .spokenName = "更新回数"}};
    TextInput txt_License_No_Go{*this, "txt_License_No_Go", {.unit = "号", .mask = "9", .limit = characters(6), .ime = Ime::Disabled, .back = kRequiredField}};
    ComboBox cbo_Get_License_Nengou{*this, "cbo_Get_License_Nengou", {.caption = "免許証有効期限："}};
    ControlArray<NumberInput, 3> txt_Get_License_Date{*this, "txt_Get_License_Date", licenceDate("##;;;", "日～")};
    ComboBox cbo_Valid_License_Nengou{*this, "cbo_Valid_License_Nengou", {.spokenName = "年号"}};
    ControlArray<NumberInput, 3> txt_Valid_License_Date{*this, "txt_Valid_License_Date", licenceDate("##", "日")};

    Label lbl_Dantai_Name_Title{*this, "lbl_Dantai_Name_Title", {.caption = "加盟団体："}};
    ControlArray<CheckBox, 7> chk_Dantai{*this, "chk_Dantai", dantaiBoxes()};
    ComboBox cbo_Dantai_Name{*this, "cbo_Dantai_Name", {.tabRank = kTabDantaiName, .spokenName = lbl_Dantai_Name_Title.labelDesign().caption}};
    TextInput txt_Other_Dantai_Name{*this, "txt_Other_Dantai_Name", {.limit = bytes(60), .ime = Ime::Hiragana, .back = kOptionalField, .tabRank = kTabAfterDantaiName, .spokenName = "名称"}};
    ControlArray<CheckBox, 9> chk_Koutori{*this, "chk_Koutori", koutoriBoxes()};
    // clang-format on
};

}  // namespace orv
