#include "pages/layout/page_layouts.h"

#include <array>

namespace orv {
namespace {

// clang-format off
constexpr auto kFrame = std::to_array<Placement>({
    // After the title, which is drawn.
    {"lbl_TitleRyutuKaiin",       -1, {290,   6, 160,  20}},
    {"lbl_User_Id",               -1, {598,   6,  80,  20}},
    // Only one of the two is visible.
    {"cbo_User_Id",               -1, {682,   4, 102,  24}},
    {"lbl_UserId",                -1, {682,   4, 102,  24}},
    {"lbl_TitleCompany",          -1, {126,  29, 658,  25}},

    {"pic_Logo",                  -1, { 12,  16, 100,  24}},
    {"btm_ChangePage",             0, {  8,  66, 104,  34}},
    {"btm_ChangePage",             1, {  8, 106, 104,  34}},
    {"btm_ChangePage",             2, {  8, 146, 104,  34}},
    {"btm_ChangePage",             3, {  8, 186, 104,  34}},
    {"btm_ChangePage",             4, {  8, 226, 104,  34}},
    {"pic_LeftLine",              -1, {117,  63,   3, 462}},

    {"btm_Save",                  -1, {536, 538, 112,  28}},
    {"btm_Back_Menu",             -1, {656, 538, 128,  28}},
});

// clang-format on

}  // namespace

std::span<const Placement> frameLayout() { return kFrame; }

}  // namespace orv
