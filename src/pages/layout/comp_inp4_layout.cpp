#include "pages/layout/page_layouts.h"

#include <array>

namespace orv {
namespace {

// clang-format off
constexpr auto kCompInp4 = std::to_array<Placement>({
    {"lbl_OS_Ver_Title",          -1, {143, 128,  89,  20}},
    {"lbl_OS_Ver",                -1, {232, 128, 200,  20}},
    {"lbl_OS_Major_Ver_Title",    -1, {169, 151,  63,  20}},
    {"lbl_OS_Major_Ver",          -1, {232, 151, 200,  20}},
    {"lbl_Minor_Ver_Title",       -1, {169, 174,  63,  20}},
    {"lbl_Minor_Ver",             -1, {232, 174, 200,  20}},
    {"lbl_Build_Ver_Title",       -1, {178, 197,  54,  20}},
    {"lbl_Build_Ver",             -1, {232, 197, 200,  20}},
    {"lbl_Csd_Ver_Title",         -1, {178, 220,  54,  20}},
    {"lbl_Csd_Ver",               -1, {232, 220, 200,  20}},

    {"lbl_Sys_Hd_Cap_Title",      -1, {446, 128, 102,  20}},
    {"lbl_Sys_Hd_Cap",            -1, {548, 128, 236,  20}},
    {"lbl_Ins_Hd_Cap_Title",      -1, {458, 151,  90,  20}},
    {"lbl_Ins_Hd_Cap",            -1, {548, 151, 236,  20}},
    {"lbl_Ins_Orv_Path_Title",    -1, {464, 174,  84,  20}},
    {"lbl_Ins_Orv_Path",          -1, {548, 174, 236,  20}},
    {"lbl_Memory_Title",          -1, {500, 197,  48,  20}},
    {"lbl_Memory",                -1, {548, 197, 236,  20}},

    {"lbl_Net_Type_Title",        -1, {152, 272,  80,  20}},
    {"lbl_Net_Type",              -1, {232, 272, 200,  20}},
    {"lbl_Ip_Address_Title",      -1, {476, 272,  72,  20}},
    {"lbl_Ip_Address",            -1, {548, 272, 236,  20}},

    {"lbl_Ie_Ver_Title",          -1, {148, 328,  84,  20}},
    {"lbl_Ie_Ver",                -1, {232, 328, 200,  20}},
    {"lbl_Proxy_Info_Title",      -1, {480, 328,  68,  20}},
    {"lbl_Proxy_Info",            -1, {548, 328, 236,  20}},
});

// clang-format on

}  // namespace

std::span<const Placement> compInp4Layout() { return kCompInp4; }

}  // namespace orv
