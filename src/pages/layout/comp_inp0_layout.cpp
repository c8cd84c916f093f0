#include "pages/layout/page_layouts.h"

#include <array>

namespace orv {
namespace {

// clang-format off
constexpr auto kCompInp0 = std::to_array<Placement>({
    {"txt_User_Passwd",           -1, {232,  60,  96,  20}, 104},
    {"btm_ChangePW",              -1, {334,  59,  52,  22}},
    {"lbl_Pubish_Number_Title",   -1, {600,  60,  88,  20}},
    {"lbl_Pubish_Number",         -1, {692,  60,  92,  20}},

    // The office.
    {"txt_Group_Name",            -1, {232, 105, 252,  20}, 104},
    {"txt_Company_Name",          -1, {232, 128, 374,  20}, 104},
    {"txt_Company_Kana",          -1, {232, 151, 552,  20}, 104},
    {"txt_Office_Name",           -1, {232, 174, 374,  20}, 104},
    {"txt_Post_Code",             -1, {232, 197,  66,  20}, 104},
    {"btm_SearchOfficeAddress",   -1, {304, 196,  68,  22}},
    {"txt_Address",               -1, {432, 197, 352,  20}, 52},
    {"txt_Address_number",        -1, {232, 220,  40,  20}},
    {"txt_Address_Gou",           -1, {306, 220,  40,  20}},
    {"txt_Address_Other",         -1, {472, 220, 312,  20}, 100},
    {"txt_Daihyo_Name",           -1, {232, 243, 246,  20}, 104},
    {"txt_Daihyo_Name_Kana",      -1, {554, 243, 230,  20}, 74},
    {"txt_Takken_Syunin_Name",    -1, {232, 266, 246,  20}, 104},
    {"txt_Tanto_Name",            -1, {554, 266, 230,  20}, 74},

    // The site of the computer.
    {"lbl_EqualData",             -1, {160, 313,  74,  20}},
    {"chk_EqualData",             -1, {241, 313,  94,  20}},
    {"txt_Pc_Post_Code",          -1, {232, 337,  66,  20}, 104},
    {"btm_Pc_SearchOfficeAddress",-1, {304, 336,  68,  22}},
    {"txt_Pc_Address",            -1, {432, 337, 352,  20}, 52},
    {"txt_Pc_Address_number",     -1, {232, 359,  40,  20}},
    {"txt_Pc_Address_Gou",        -1, {306, 359,  40,  20}},
    {"txt_Pc_Office_Name",        -1, {472, 359, 312,  20}, 100},
    {"txt_Pc_Tanto_Name",         -1, {232, 381, 374,  20}, 104},
    {"txt_Pc_Tel_No1",            -1, {232, 403,  92,  20}, 104},
    {"txt_Pc_Tel_No2",            -1, {408, 403,  92,  20}, 72},
    {"txt_Pc_Fax_No",             -1, {550, 403,  92,  20}, 42},
    {"txt_Pc_Mail_Address",       -1, {232, 425, 450,  20}, 104},

    // Telephone numbers and mail addresses for customers.
    {"txt_Tel_No1",               -1, {232, 473,  92,  20}, 104},
    {"txt_Tel_No2",               -1, {408, 473,  92,  20}, 72},
    {"txt_Fax_No",                -1, {550, 473,  92,  20}, 42},
    {"txt_Mail_Address",          -1, {232, 500, 450,  20}, 104},
});

// clang-format on

}  // namespace

std::span<const Placement> compInp0Layout() { return kCompInp0; }

}  // namespace orv
