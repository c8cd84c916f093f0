#pragma once

#include "core/record/company_record.h"
#include "pages/forms/page_form.h"

namespace orv {

/// The company, its office, and the site of the computer.
struct frm_CompInp0 : PageForm {
    static constexpr int kNumber = 0;

    frm_CompInp0() : PageForm(kNumber) {
        nameBlock(lbl_EqualData.labelDesign().caption, txt_Pc_Post_Code, txt_Pc_Mail_Address);
    }

    // Each control is one line: its name, captions, accepted input and initial state.
    // clang-format off
    TextInput txt_User_Passwd{*this, "txt_User_Passwd", {.caption = "パスワード：", .mask = "aA#@", .limit = characters(kLongestPassword), .ime = Ime::Disabled, .back = kDisabledField, .enabled = false, .password = true}};
    Button btm_ChangePW{*this, "btm_ChangePW", {.caption = "変更"}};
    Label lbl_Pubish_Number_Title{*this, "lbl_Pubish_Number_Title", {.caption = "契約掲載件数：", .visible = false}};
    Label lbl_Pubish_Number{*this, "lbl_Pubish_Number", valuePanel(lbl_Pubish_Number_Title)};

    TextInput txt_Group_Name{*this, "txt_Group_Name", {.caption = "グループ名：", .refuse = "K", .limit = bytes(40), .ime = Ime::On, .back = kOptionalField}};
    TextInput txt_Company_Name{*this, "txt_Company_Name", {.caption = "会社名：", .refuse = "K", .limit = bytes(60), .ime = Ime::On, .back = kRequiredField}};
    TextInput txt_Company_Kana{*this, "txt_Company_Kana", {.caption = "会社名フリガナ：", .mask = "ＫＡａ＠＃", .limit = bytes(120), .ime = Ime::FullKatakana, .back = kRequiredField}};
    TextInput txt_Office_Name{*this, "txt_Office_Name", {.caption = "事務所・店舗名：", .refuse = "K", .limit = bytes(60), .ime = Ime::On, .back = kOptionalField}};
    TextInput txt_Post_Code{*this, "txt_Post_Code", {.caption = "〒：", .mask = "#", .limit = characters(8), .ime = Ime::Disabled, .back = kRequiredField, .enabled = false, .spokenName = "郵便番号"}};
    Button btm_SearchOfficeAddress{*this, "btm_SearchOfficeAddress", {.caption = "住所検索"}};
    TextInput txt_Address{*this, "txt_Address", {.caption = "所在地：", .limit = bytes(120), .ime = Ime::On, .back = kRequiredField, .enabled = false}};
    TextInput txt_Address_number{*this, "txt_Address_number", {.unit = "番地", .mask = "9", .limit = characters(4), .ime = Ime::Disabled, .back = kOptionalField}};
    TextInput txt_Address_Gou{*this, "txt_Address_Gou", {.unit = "号", .mask = "9", .limit = characters(4), .ime = Ime::Disabled, .back = kOptionalField}};
    TextInput txt_Address_Other{*this, "txt_Address_Other", {.caption = "所在地ビル名等：", .refuse = "K", .limit = bytes(60), .ime = Ime::On, .back = kOptionalField}};
    TextInput txt_Address_Code{*this, "txt_Address_Code", {.visible = false}};
    TextInput txt_Area_Code{*this, "txt_Area_Code", {.visible = false}};
    TextInput txt_Daihyo_Name{*this, "txt_Daihyo_Name", {.caption = "代表者：", .refuse = "K", .limit = bytes(40), .ime = Ime::On, .back = kRequiredField}};
    TextInput txt_Daihyo_Name_Kana{*this, "txt_Daihyo_Name_Kana", {.caption = "代表者カナ：", .mask = "ＫＡａ＃＠", .limit = bytes(80), .ime = Ime::FullKatakana, .back = kRequiredField}};
    TextInput txt_Takken_Syunin_Name{*this, "txt_Takken_Syunin_Name", {.caption = "宅建主任者：", .refuse = "K", .limit = bytes(40), .ime = Ime::On, .back = kRequiredField}};
    TextInput txt_Tanto_Name{*this, "txt_Tanto_Name", {.caption = "入力担当者：", .refuse = "K", .limit = bytes(40), .ime = Ime::On, .back = kRequiredField}};

    Label lbl_EqualData{*this, "lbl_EqualData", {.caption = "PC設置場所："}};
    CheckBox chk_EqualData{*this, "chk_EqualData", {.caption = "上記と同じ", .back = kTickOn, .fore = kTickOnText, .value = 1}};
    TextInput txt_Pc_Post_Code{*this, "txt_Pc_Post_Code", {.caption = "〒：", .mask = "#", .limit = bytes(8), .ime = Ime::Disabled, .back = kDisabledField, .enabled = false, .spokenName = "郵便番号"}};
    Button btm_Pc_SearchOfficeAddress{*this, "btm_Pc_SearchOfficeAddress", {.caption = "住所検索"}};
    TextInput txt_Pc_Address{*this, "txt_Pc_Address", {.caption = "所在地：", .refuse = "K", .limit = bytes(120), .ime = Ime::On, .back = kDisabledField, .enabled = false}};
    TextInput txt_Pc_Address_number{*this, "txt_Pc_Address_number", {.unit = "番地", .mask = "9", .limit = characters(4), .ime = Ime::Disabled, .back = kDisabledField, .enabled = false}};
    TextInput txt_Pc_Address_Gou{*this, "txt_Pc_Address_Gou", {.unit = "号", .mask = "9", .limit = characters(4), .ime = Ime::Disabled, .back = kDisabledField, .enabled = false}};
    TextInput txt_Pc_Address_Code{*this, "txt_Pc_Address_Code", {.visible = false}};
    TextInput txt_Pc_Office_Name{*this, "txt_Pc_Office_Name", {.caption = "部署・店舗名：", .refuse = "K", .limit = bytes(60), .ime = Ime::On, .back = kDisabledField, .enabled = false}};
    TextInput txt_Pc_Tanto_Name{*this, "txt_Pc_Tanto_Name", {.caption = "入力担当者：", .refuse = "K", .limit = bytes(60), .ime = Ime::On, .back = kDisabledField, .enabled = false}};
    TextInput txt_Pc_Tel_No1{*this, "txt_Pc_Tel_No1", {.caption = "TEL：", .mask = "#", .limit = characters(13), .ime = Ime::Disabled, .back = kDisabledField, .enabled = false}};
    TextInput txt_Pc_Tel_No2{*this, "txt_Pc_Tel_No2", {.caption = "ﾌﾘｰﾀﾞｲﾔﾙ：", .mask = "#", .limit = characters(13), .ime = Ime::Disabled, .back = kDisabledField, .enabled = false}};
    TextInput txt_Pc_Fax_No{*this, "txt_Pc_Fax_No", {.caption = "FAX：", .mask = "#", .limit = characters(13), .ime = Ime::Disabled, .back = kDisabledField, .enabled = false}};
    TextInput txt_Pc_Mail_Address{*this, "txt_Pc_Mail_Address", {.caption = "E-Mail：", .mask = "aA9@", .limit = characters(64), .ime = Ime::Disabled, .back = kDisabledField, .enabled = false}};

    TextInput txt_Tel_No1{*this, "txt_Tel_No1", {.caption = "TEL：", .mask = "#", .limit = characters(13), .ime = Ime::Disabled, .back = kRequiredField}};
    TextInput txt_Tel_No2{*this, "txt_Tel_No2", {.caption = "ﾌﾘｰﾀﾞｲﾔﾙ：", .mask = "#", .limit = characters(13), .ime = Ime::Disabled}};
    TextInput txt_Fax_No{*this, "txt_Fax_No", {.caption = "FAX：", .mask = "#", .limit = characters(13), .ime = Ime::Disabled, .back = kRequiredField}};
    TextInput txt_Mail_Address{*this, "txt_Mail_Address", {.caption = "受信用E-Mail：", .mask = "aA9@", .limit = characters(64), .ime = Ime::Disabled, .back = kRequiredField}};
    // clang-format on
};

}  // namespace orv
