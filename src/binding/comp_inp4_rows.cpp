#include "binding/page_bindings.h"

namespace orv {
namespace {

using R = CompanyRecord;
using P = frm_CompInp4;

template <auto Member>
constexpr ControlRef on = of<P, Member>;

constexpr auto kRows = std::to_array<BindingRow>({
    {&R::PROXY_INFO, on<&P::lbl_Proxy_Info>, ReadAs::AsShown},
    {&R::IE_VER, on<&P::lbl_Ie_Ver>, ReadAs::AsShown},
    {&R::IP_ADDRESS, on<&P::lbl_Ip_Address>, ReadAs::AsShown},
    {&R::NET_TYPE, on<&P::lbl_Net_Type>, ReadAs::AsShown},
    {&R::MEMORY, on<&P::lbl_Memory>, ReadAs::AsShown},
    {&R::INS_ORV_PATH, on<&P::lbl_Ins_Orv_Path>, ReadAs::AsShown},
    {&R::INS_HD_CAP, on<&P::lbl_Ins_Hd_Cap>, ReadAs::AsShown},
    {&R::SYS_HD_CAP, on<&P::lbl_Sys_Hd_Cap>, ReadAs::AsShown},
    {&R::CSD_VER, on<&P::lbl_Csd_Ver>, ReadAs::AsShown},
    {&R::OS_BUILD_VER, on<&P::lbl_Build_Ver>, ReadAs::AsShown},
    {&R::OS_MINOR_VER, on<&P::lbl_Minor_Ver>, ReadAs::AsShown},
    {&R::OS_MAJOR_VER, on<&P::lbl_OS_Major_Ver>, ReadAs::AsShown},
    {&R::OS_VER, on<&P::lbl_OS_Ver>, ReadAs::AsShown},
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
