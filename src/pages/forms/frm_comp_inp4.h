#pragma once

#include "pages/forms/page_form.h"

namespace orv {

/// The measured data of the computer. Read-only.
struct frm_CompInp4 : PageForm {
    static constexpr int kNumber = 4;

    frm_CompInp4() : PageForm(kNumber) {}

    // clang-format off
    Label lbl_OS_Ver_Title{*this, "lbl_OS_Ver_Title", {.caption = "OSバージョン："}};
    Label lbl_OS_Ver{*this, "lbl_OS_Ver", valuePanel(lbl_OS_Ver_Title)};
    Label lbl_OS_Major_Ver_Title{*this, "lbl_OS_Major_Ver_Title", {.caption = "MajorVer："}};
    Label lbl_OS_Major_Ver{*this, "lbl_OS_Major_Ver", valuePanel(lbl_OS_Major_Ver_Title)};
    Label lbl_Minor_Ver_Title{*this, "lbl_Minor_Ver_Title", {.caption = "MinorVer："}};
    Label lbl_Minor_Ver{*this, "lbl_Minor_Ver", valuePanel(lbl_Minor_Ver_Title)};
    Label lbl_Build_Ver_Title{*this, "lbl_Build_Ver_Title", {.caption = "BuilVer："}};
    Label lbl_Build_Ver{*this, "lbl_Build_Ver", valuePanel(lbl_Build_Ver_Title)};
    Label lbl_Csd_Ver_Title{*this, "lbl_Csd_Ver_Title", {.caption = "CSDVer："}};
    Label lbl_Csd_Ver{*this, "lbl_Csd_Ver", valuePanel(lbl_Csd_Ver_Title)};
    Label lbl_Sys_Hd_Cap_Title{*this, "lbl_Sys_Hd_Cap_Title", {.caption = "システムHD容量："}};
    Label lbl_Sys_Hd_Cap{*this, "lbl_Sys_Hd_Cap", valuePanel(lbl_Sys_Hd_Cap_Title)};
    Label lbl_Ins_Hd_Cap_Title{*this, "lbl_Ins_Hd_Cap_Title", {.caption = "InstallHD容量："}};
    Label lbl_Ins_Hd_Cap{*this, "lbl_Ins_Hd_Cap", valuePanel(lbl_Ins_Hd_Cap_Title)};
    Label lbl_Ins_Orv_Path_Title{*this, "lbl_Ins_Orv_Path_Title", {.caption = "Installﾌｫﾙﾀﾞ："}};
    Label lbl_Ins_Orv_Path{*this, "lbl_Ins_Orv_Path", valuePanel(lbl_Ins_Orv_Path_Title)};
    Label lbl_Memory_Title{*this, "lbl_Memory_Title", {.caption = "メモリ："}};
    Label lbl_Memory{*this, "lbl_Memory", valuePanel(lbl_Memory_Title)};
    Label lbl_Net_Type_Title{*this, "lbl_Net_Type_Title", {.caption = "Net接続形態："}};
    Label lbl_Net_Type{*this, "lbl_Net_Type", valuePanel(lbl_Net_Type_Title)};
    Label lbl_Ip_Address_Title{*this, "lbl_Ip_Address_Title", {.caption = "IPアドレス："}};
    Label lbl_Ip_Address{*this, "lbl_Ip_Address", valuePanel(lbl_Ip_Address_Title)};
    Label lbl_Ie_Ver_Title{*this, "lbl_Ie_Ver_Title", {.caption = "IEバージョン："}};
    Label lbl_Ie_Ver{*this, "lbl_Ie_Ver", valuePanel(lbl_Ie_Ver_Title)};
    Label lbl_Proxy_Info_Title{*this, "lbl_Proxy_Info_Title", {.caption = "Proxy設定："}};
    Label lbl_Proxy_Info{*this, "lbl_Proxy_Info", valuePanel(lbl_Proxy_Info_Title)};
    // clang-format on
};

}  // namespace orv
