#include "pages/layout/page_layouts.h"

#include <array>

namespace orv {
namespace {

// clang-format off
constexpr auto kCompInp3 = std::to_array<Placement>({
    {"lbl_Management_Type_Table",  0, {144,  91,  38,  20}},
    {"chk_Management_Type_Flg",    0, {189,  92,  98,  26}},
    {"chk_Management_Type_Flg",    1, {291,  92, 130,  26}},
    {"chk_Management_Type_Flg",    2, {189, 128,  98,  26}},
    {"chk_Management_Type_Flg",    3, {291, 128, 130,  26}},
    {"chk_Management_Type_Flg",    4, {189, 164,  98,  26}},

    {"lbl_Management_Type_Table",  1, {452,  91,  38,  20}},
    {"chk_Management_Type_Flg",    5, {497,  90, 136,  24}},
    {"chk_Management_Type_Flg",    6, {637,  90, 120,  24}},
    {"chk_Management_Type_Flg",    7, {497, 117, 136,  24}},
    {"chk_Management_Type_Flg",    8, {637, 117, 120,  24}},
    {"chk_Management_Type_Flg",    9, {497, 144, 136,  24}},
    {"chk_Management_Type_Flg",   10, {637, 144, 120,  24}},
    {"chk_Management_Type_Flg",   11, {497, 171, 136,  24}},
    {"chk_Management_Type_Flg",   12, {637, 171, 120,  24}},

    {"lbl_Management_Type_Table",  2, {144, 207,  38,  20}},
    {"chk_Management_Type_Flg",   13, {189, 209, 120,  34}},
    {"chk_Management_Type_Flg",   14, {189, 251, 120,  34}},
    {"chk_Management_Type_Flg",   15, {189, 293, 120,  34}},

    {"lbl_Management_Type_Table",  3, {328, 207,  50,  20}},
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

    {"lbl_Business_Type_Table",    0, {144, 368,  38,  20}},
    {"chk_Business_Type_Flg",      0, {189, 367, 100,  24}},
    {"chk_Business_Type_Flg",      1, {189, 394, 100,  24}},
    {"chk_Business_Type_Flg",      2, {189, 421, 100,  24}},
    {"chk_Business_Type_Flg",      3, {189, 448, 100,  24}},
    {"chk_Business_Type_Flg",      4, {189, 475, 100,  24}},

    // One caption is wider than the group's box, so all boxes here are.
    {"lbl_Business_Type_Table",    1, {316, 368,  62,  20}},
    {"chk_Business_Type_Flg",      5, {382, 365, 212,  23}},
    {"chk_Business_Type_Flg",      6, {382, 388, 212,  23}},
    {"chk_Business_Type_Flg",      7, {382, 411, 212,  23}},
    {"chk_Business_Type_Flg",      8, {382, 434, 212,  23}},
    {"chk_Business_Type_Flg",      9, {382, 457, 212,  23}},
    {"chk_Business_Type_Flg",     10, {382, 480, 212,  23}},

    {"lbl_Business_Type_Table",    2, {596, 368,  42,  20}},
    {"chk_Business_Type_Flg",     11, {644, 367, 134,  24}},
});

// clang-format on

}  // namespace

std::span<const Placement> compInp3Layout() { return kCompInp3; }

}  // namespace orv
