#pragma once

#include "pages/forms/page_set.h"

namespace orv {

/// Names a control in a table. It is a function, so that a constexpr row can contain it and the page is created only
/// when the row is used.
using ControlRef = Control& (*)();

/// Examples: `of<frm_CompInp0, &frm_CompInp0::txt_Tel_No1>`, and in an array `of<frm_CompInp1,
/// &frm_CompInp1::chk_Dantai, 6>`.
template <class F, auto Member, int Index = -1>
Control& of() {
    if constexpr (Index < 0) {
        return page<F>().*Member;
    } else {
        return (page<F>().*Member)[static_cast<std::size_t>(Index)];
    }
}

}  // namespace orv
