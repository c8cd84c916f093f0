#include "pages/layout/page_layouts.h"

#include <array>

namespace orv {
namespace {

// clang-format off
constexpr auto kChangePassword = std::to_array<Placement>({
    {"lbl_Old_Password",          -1, { 16,  18, 184,  22}},
    {"txt_Password",               0, {212,  19, 152,  20}},
    {"lbl_New_Password",          -1, { 16,  52, 184,  22}},
    {"txt_Password",               1, {212,  53, 152,  20}},
    {"lbl_New_Password_Try",      -1, { 16,  86, 184,  22}},
    {"txt_Password",               2, {212,  87, 152,  20}},
    {"btm_Entry",                 -1, {132, 126, 108,  28}},
    {"btm_Cancel",                -1, {256, 126, 108,  28}},
});

constexpr auto kImgCommon = std::to_array<Placement>({
    {"lbl_ImgCommonTitle",        -1, { 10,  10, 640,  22}},
    {"lbl_BeforImg",              -1, { 10,  38, 640,  22}},
    {"lbl_AfterImg",              -1, { 10,  66, 640,  22}},
    {"pic_Info",                  -1, { 10,  94, 640, 494}},
    {"cmd_Cancel",                -1, { 10, 592, 108,  28}},
    {"cmd_Entry",                 -1, {533, 592, 108,  28}},
});

// clang-format on

}  // namespace

std::span<const Placement> changePasswordLayout() { return kChangePassword; }
std::span<const Placement> imgCommonLayout() { return kImgCommon; }

}  // namespace orv
