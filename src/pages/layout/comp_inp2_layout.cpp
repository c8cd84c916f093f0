#include "pages/layout/page_layouts.h"

#include <array>

namespace orv {
namespace {

// clang-format off
constexpr auto kCompInp2 = std::to_array<Placement>({
    {"lbl_Railroad_Name_Title",   -1, {168, 105,  62,  20}},
    {"lbl_Railroad_Name",         -1, {232, 105, 190,  20}},
    {"lbl_Station_Name_Title",    -1, {428, 105,  50,  20}},
    {"lbl_Station_Name",          -1, {480, 105, 146,  20}},
    {"btn_SelectRail",            -1, {634, 104,  74,  22}},
    {"btn_DelRail",               -1, {714, 104,  70,  22}},
    {"txt_Walk_Minutes",          -1, {232, 127,  30,  20}, 104},
    {"txt_Bus_Route",             -1, {360, 127, 300,  20}, 72},
    {"txt_Bus_Minutes",           -1, {232, 149,  30,  20}, 104},
    {"txt_Busstop",               -1, {360, 149, 158,  20}, 72},
    {"txt_Thiho_Minutes",         -1, {574, 149,  30,  20}, 48},
    {"txt_Car_Target",            -1, {232, 171, 158,  20}, 104},
    {"txt_Car_Minutes",           -1, {400, 171,  30,  20}},
    {"txt_Car_Distance",          -1, {458, 171,  48,  20}},

    {"txt_Company_URL",           -1, {232, 217, 552,  20}, 104},
    {"txt_Company_URL_Comment",   -1, {232, 242, 552,  20}, 104},
    {"txt_Company_Comment",       -1, {232, 267, 552,  20}, 104},
    {"txt_Day_Off",               -1, {232, 292, 552,  20}, 104},
    {"txt_Office_Hours",          -1, {232, 317, 552,  20}, 104},

    // A slot below each of its bars.
    {"pic_PhotoFile",              0, {132, 366, 121, 100}},
    {"cbo_pic_PhotoFile",          0, {132, 471, 121,  22}},
    {"btm_PhotoSelect",            0, {132, 499,  58,  24}},
    {"btm_PhotoDel",               0, {195, 499,  58,  24}},
    {"pic_PhotoFile",              1, {267, 366, 121, 100}},
    {"cbo_pic_PhotoFile",          1, {267, 471, 121,  22}},
    {"btm_PhotoSelect",            1, {267, 499,  58,  24}},
    {"btm_PhotoDel",               1, {330, 499,  58,  24}},
    {"lbl_ImgMsg",                -1, {406, 366, 330,  26}},
});

// clang-format on

}  // namespace

std::span<const Placement> compInp2Layout() { return kCompInp2; }

}  // namespace orv
