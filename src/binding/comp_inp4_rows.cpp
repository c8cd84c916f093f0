#include "binding/page_bindings.h"

namespace orv {
namespace {

using R = CompanyRecord;
using P = frm_CompInp4;

template <auto Member>
constexpr ControlRef on = of<P, Member>;

constexpr auto kRows = std::to_array<BindingRow>({
    {&R::PROXY_INFO, on<&P::lbl_Proxy_Info>, TakeBack::AsShown},
    {&R::IE_VER, on<&P::lbl_Ie_Ver>, TakeBack::AsShown},
    {&R::IP_ADDRESS, on<&P::lbl_Ip_Address>, TakeBack::AsShown},
    {&R::NET_TYPE, on<&P::lbl_Net_Type>, TakeBack::AsShown},
    {&R::MEMORY, on<&P::lbl_Memory>, TakeBack::AsShown},
    {&R::INS_ORV_PATH, on<&P::lbl_Ins_Orv_Path>, TakeBack::AsShown},
    {&R::INS_HD_CAP, on<&P::lbl_Ins_Hd_Cap>, TakeBack::AsShown},
    {&R::SYS_HD_CAP, on<&P::lbl_Sys_Hd_Cap>, TakeBack::AsShown},
    {&R::CSD_VER, on<&P::lbl_Csd_Ver>, TakeBack::AsShown},
    {&R::OS_BUILD_VER, on<&P::lbl_Build_Ver>, TakeBack::AsShown},
    {&R::OS_MINOR_VER, on<&P::lbl_Minor_Ver>, TakeBack::AsShown},
    {&R::OS_MAJOR_VER, on<&P::lbl_OS_Major_Ver>, TakeBack::AsShown},
    {&R::OS_VER, on<&P::lbl_OS_Ver>, TakeBack::AsShown},
});

/// Filling and reading both follow the rows.
constexpr auto kOrder = [] {
    std::array<Step, kRows.size()> order{};
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        order[i] = row(kRows[i].field);
    }
    return order;
}();

}  // namespace

constexpr PageBinding kBinding4{kRows, kOrder, kOrder};

}  // namespace orv
