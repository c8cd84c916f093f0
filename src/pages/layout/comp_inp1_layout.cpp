#include "pages/layout/page_layouts.h"

#include <array>

namespace orv {
namespace {

// clang-format off
constexpr auto kCompInp1 = std::to_array<Placement>({
    {"cbo_License_No",            -1, {232, 110, 150,  22}, 104},
    {"txt_License_no_Dai",        -1, {388, 111,  30,  20}},
    {"txt_License_No_Go",         -1, {440, 111,  54,  20}},
    {"cbo_Get_License_Nengou",    -1, {232, 142,  66,  22}, 104},
    {"txt_Get_License_Date",       0, {302, 143,  44,  20}},
    {"txt_Get_License_Date",       1, {364, 143,  30,  20}},
    {"txt_Get_License_Date",       2, {412, 143,  30,  20}},
    {"cbo_Valid_License_Nengou",  -1, {474, 142,  66,  22}},
    {"txt_Valid_License_Date",     0, {544, 143,  44,  20}},
    {"txt_Valid_License_Date",     1, {606, 143,  30,  20}},
    {"txt_Valid_License_Date",     2, {654, 143,  30,  20}},

    // Associations.
    {"lbl_Dantai_Name_Title",     -1, {144, 181,  62,  20}},
    {"chk_Dantai",                 0, {209, 181,  20,  20}},
    {"cbo_Dantai_Name",           -1, {231, 180, 252,  22}},
    {"chk_Dantai",                 1, {209, 203, 274,  20}},
    {"chk_Dantai",                 2, {209, 225, 274,  20}},
    {"chk_Dantai",                 3, {209, 247, 274,  20}},
    {"chk_Dantai",                 4, {209, 269, 274,  20}},
    {"chk_Dantai",                 5, {209, 291, 274,  20}},
    {"chk_Dantai",                 6, {209, 313, 274,  20}},
    {"txt_Other_Dantai_Name",     -1, {229, 333, 254,  20}},

    // Councils.
    {"chk_Koutori",                0, {501, 206,  84,  22}},
    {"chk_Koutori",                1, {589, 206,  66,  22}},
    {"chk_Koutori",                2, {659, 206, 108,  22}},
    {"chk_Koutori",                3, {501, 242,  84,  22}},
    {"chk_Koutori",                4, {589, 242,  66,  22}},
    {"chk_Koutori",                5, {659, 242, 108,  22}},
    {"chk_Koutori",                6, {501, 278,  84,  22}},
    {"chk_Koutori",                7, {589, 278,  66,  22}},
    {"chk_Koutori",                8, {659, 278, 108,  22}},
});

// clang-format on

}  // namespace

std::span<const Placement> compInp1Layout() { return kCompInp1; }

}  // namespace orv
