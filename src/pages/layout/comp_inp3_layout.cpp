#include "pages/layout/page_layouts.h"

#include <array>

namespace orv {
namespace {

// clang-format off
constexpr auto kCompInp3 = std::to_array<Placement>({
    {"lbl_Management_Type_Table",  0, {144,  92,  38,  20}},
    {"chk_Management_Type_Flg",    0, {189,  91, 112,  22}},
    {"chk_Management_Type_Flg",    1, {305,  91, 116,  22}},
    {"chk_Management_Type_Flg",    2, {189, 117, 112,  22}},
    {"chk_Management_Type_Flg",    3, {305, 117, 116,  22}},
    {"chk_Management_Type_Flg",    4, {189, 143, 112,  22}},

    {"lbl_Management_Type_Table",  1, {452,  92,  38,  20}},
    {"chk_Management_Type_Flg",    5, {497,  91, 136,  22}},
    {"chk_Management_Type_Flg",    6, {637,  91, 120,  22}},
    {"chk_Management_Type_Flg",    7, {497, 117, 136,  22}},
    {"chk_Management_Type_Flg",    8, {637, 117, 120,  22}},
    {"chk_Management_Type_Flg",    9, {497, 143, 136,  22}},
    {"chk_Management_Type_Flg",   10, {637, 143, 120,  22}},
    {"chk_Management_Type_Flg",   11, {497, 169, 136,  22}},
    {"chk_Management_Type_Flg",   12, {637, 169, 120,  22}},

    {"lbl_Management_Type_Table",  2, {144, 205,  38,  20}},
    {"chk_Management_Type_Flg",   13, {189, 205, 120,  20}},
    {"chk_Management_Type_Flg",   14, {189, 226, 120,  20}},
    {"chk_Management_Type_Flg",   15, {189, 247, 120,  20}},

    {"lbl_Management_Type_Table",  3, {328, 205,  50,  20}},
    {"chk_Management_Type_Flg",   16, {385, 205, 174,  20}},
    {"chk_Management_Type_Flg",   17, {563, 205, 215,  20}},
    {"chk_Management_Type_Flg",   18, {385, 226, 174,  20}},
    {"chk_Management_Type_Flg",   19, {563, 226, 215,  20}},
    {"chk_Management_Type_Flg",   20, {385, 247, 174,  20}},
    {"chk_Management_Type_Flg",   21, {563, 247, 215,  20}},
    {"chk_Management_Type_Flg",   22, {385, 268, 174,  20}},
    {"chk_Management_Type_Flg",   23, {563, 268, 215,  20}},
    {"chk_Management_Type_Flg",   24, {385, 289, 174,  20}},
    {"chk_Management_Type_Flg",   25, {563, 289, 215,  20}},
    {"chk_Management_Type_Flg",   26, {385, 310, 174,  20}},
    {"chk_Management_Type_Flg",   27, {563, 310, 215,  20}},

    {"lbl_Business_Type_Table",    0, {144, 367,  38,  20}},
    {"chk_Business_Type_Flg",      0, {189, 366, 100,  22}},
    {"chk_Business_Type_Flg",      1, {189, 389, 100,  22}},
    {"chk_Business_Type_Flg",      2, {189, 412, 100,  22}},
    {"chk_Business_Type_Flg",      3, {189, 435, 100,  22}},
    {"chk_Business_Type_Flg",      4, {189, 458, 100,  22}},

    {"lbl_Business_Type_Table",    1, {316, 367,  62,  20}},
    {"chk_Business_Type_Flg",      5, {385, 366, 190,  22}},
    {"chk_Business_Type_Flg",      6, {385, 389, 190,  22}},
    {"chk_Business_Type_Flg",      7, {385, 412, 190,  22}},
    {"chk_Business_Type_Flg",      8, {385, 435, 190,  22}},
    {"chk_Business_Type_Flg",      9, {385, 458, 190,  22}},
    {"chk_Business_Type_Flg",     10, {385, 481, 190,  22}},

    {"lbl_Business_Type_Table",    2, {592, 367,  48,  20}},
    {"chk_Business_Type_Flg",     11, {644, 366, 134,  22}},
});

// clang-format on

}  // namespace

std::span<const Placement> compInp3Layout() { return kCompInp3; }

}  // namespace orv
