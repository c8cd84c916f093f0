#pragma once

#include "pages/forms/page_form.h"

namespace orv {

inline constexpr int kPhotoWidth = 121;
inline constexpr int kPhotoHeight = 100;
inline constexpr std::array<std::string_view, 2> kPhotoHeadings{" 画像１", " 画像２"};
inline constexpr std::string_view kOtherHeading = " その他会社情報";

// Tab visits all controls of a slot before the next slot.
inline constexpr int kTabPhoto1 = kTabFields + 1;
inline constexpr int kTabPhoto2 = kTabFields + 2;

/// Access to the agency, its presentation, and its two photos.
struct frm_CompInp2 : PageForm {
    static constexpr int kNumber = 2;

    frm_CompInp2() : PageForm(kNumber) {
        txt_Company_Comment.setBlock(kOtherHeading);
        for (std::size_t slot = 0; slot < kPhotoHeadings.size(); ++slot) {
            cbo_pic_PhotoFile[slot].setBlock(kPhotoHeadings[slot]);
            btm_PhotoSelect[slot].setBlock(kPhotoHeadings[slot]);
            btm_PhotoDel[slot].setBlock(kPhotoHeadings[slot]);
        }
    }

    // clang-format off
    Label lbl_Railroad_Name_Title{*this, "lbl_Railroad_Name_Title", {.caption = "沿線名称："}};
    Label lbl_Railroad_Name{*this, "lbl_Railroad_Name", valuePanel(lbl_Railroad_Name_Title)};
    TextInput txt_Railroad_Code{*this, "txt_Railroad_Code", {.back = kOptionalField, .visible = false}};
    Label lbl_Station_Name_Title{*this, "lbl_Station_Name_Title", {.caption = "駅名称："}};
    Label lbl_Station_Name{*this, "lbl_Station_Name", valuePanel(lbl_Station_Name_Title)};
    TextInput txt_Station_Code{*this, "txt_Station_Code", {.back = kOptionalField, .visible = false}};
    Button btn_SelectRail{*this, "btn_SelectRail", {.caption = "沿線選択"}};
    Button btn_DelRail{*this, "btn_DelRail", {.caption = "消去"}};
    TextInput txt_Walk_Minutes{*this, "txt_Walk_Minutes", {.caption = "徒歩：", .unit = "分", .mask = "9", .limit = characters(2), .ime = Ime::Disabled, .back = kOptionalField}};
    TextInput txt_Bus_Route{*this, "txt_Bus_Route", {.caption = "バス路線：", .limit = bytes(48), .ime = Ime::On, .back = kOptionalField}};
    TextInput txt_Bus_Minutes{*this, "txt_Bus_Minutes", {.caption = "バス：", .unit = "分", .mask = "9", .limit = characters(2), .ime = Ime::Disabled, .back = kOptionalField}};
    TextInput txt_Busstop{*this, "txt_Busstop", {.caption = "バス停名：", .limit = bytes(24), .ime = Ime::On, .back = kOptionalField}};
    TextInput txt_Thiho_Minutes{*this, "txt_Thiho_Minutes", {.caption = "停歩：", .unit = "分", .mask = "9", .limit = characters(2), .ime = Ime::Disabled, .back = kOptionalField}};
    TextInput txt_Car_Target{*this, "txt_Car_Target", {.caption = "車利用：", .limit = bytes(24), .ime = Ime::On, .back = kOptionalField}};
    TextInput txt_Car_Minutes{*this, "txt_Car_Minutes", {.unit = "分", .mask = "9", .limit = characters(2), .ime = Ime::Disabled, .back = kOptionalField, .spokenName = "車での所要時間"}};
    NumberInput txt_Car_Distance{*this, "txt_Car_Distance", {.unit = "Km", .least = 0, .most = 99.9, .decimals = 1, .format = "#0.#;;;0", .display = "##.#;;", .back = kOptionalField, .spokenName = "車での距離"}};
    TextInput txt_Tiku_Code{*this, "txt_Tiku_Code", {.back = kOptionalField, .visible = false}};

    TextInput txt_Company_URL{*this, "txt_Company_URL", {.caption = "ﾎｰﾑﾍﾟｰｼﾞURL：", .mask = "aA9#@", .limit = characters(96), .ime = Ime::Disabled, .back = kOptionalField}};
    TextInput txt_Company_URL_Comment{*this, "txt_Company_URL_Comment", {.caption = "リンク名称：", .limit = bytes(128), .ime = Ime::Hiragana, .back = kOptionalField}};
    TextInput txt_Company_Comment{*this, "txt_Company_Comment", {.caption = "会社情報：", .limit = bytes(200), .ime = Ime::Hiragana, .back = kOptionalField}};
    TextInput txt_Day_Off{*this, "txt_Day_Off", {.caption = "定休日：", .limit = bytes(100), .ime = Ime::Hiragana, .back = kOptionalField}};
    TextInput txt_Office_Hours{*this, "txt_Office_Hours", {.caption = "営業時間：", .limit = bytes(100), .ime = Ime::Hiragana, .back = kOptionalField}};

    ControlArray<ImageControl, 2> pic_PhotoFile{*this, "pic_PhotoFile", std::array<ImageDesign, 2>{{{.width = kPhotoWidth, .height = kPhotoHeight, .spokenName = kPhotoHeadings[0]}, {.width = kPhotoWidth, .height = kPhotoHeight, .spokenName = kPhotoHeadings[1]}}}};
    ControlArray<ComboBox, 2> cbo_pic_PhotoFile{*this, "cbo_pic_PhotoFile", std::array<ComboDesign, 2>{{{.back = kOptionalField, .tabRank = kTabPhoto1, .spokenName = "種類"}, {.back = kOptionalField, .tabRank = kTabPhoto2, .spokenName = "種類"}}}};
    ControlArray<TextInput, 2> txt_PhotoFilePath{*this, "txt_PhotoFilePath", std::array<TextDesign, 2>{{{.visible = false}, {.visible = false}}}};
    ControlArray<Button, 2> btm_PhotoSelect{*this, "btm_PhotoSelect", std::array<ButtonDesign, 2>{{{.caption = "選択", .tabRank = kTabPhoto1}, {.caption = "選択", .tabRank = kTabPhoto2}}}};
    ControlArray<Button, 2> btm_PhotoDel{*this, "btm_PhotoDel", std::array<ButtonDesign, 2>{{{.caption = "解除", .tabRank = kTabPhoto1}, {.caption = "解除", .tabRank = kTabPhoto2}}}};
    Label lbl_ImgMsg{*this, "lbl_ImgMsg", {.caption = "画像の登録は、承認手続きが終了するまで行えません。"}};
    /// Used to fit pictures; never visible.
    ImageControl pic_LeadTmp{*this, "pic_LeadTmp", {.visible = false}};
    // clang-format on
};

}  // namespace orv
