#pragma once

#include <functional>

#include "pages/forms/frm_change_password.h"
#include "pages/forms/frm_comp_inp0.h"
#include "pages/forms/frm_comp_inp1.h"
#include "pages/forms/frm_comp_inp2.h"
#include "pages/forms/frm_comp_inp3.h"
#include "pages/forms/frm_comp_inp4.h"

namespace orv {
inline constexpr int kPageCount = 5;

/// Returns the one object of a page or of the password dialog. The first call creates it and connects its events, but
/// does not load it.
template <class F>
F& page();

/// Returns the page with that number. Failure 9 outside 0 to 4.
PageForm& pageAt(int number);

/// Removes the object; the next `page<F>()` creates a new one. The form host keeps the old one until no event is
/// running. Does nothing for a form that is not one of the six.
void dropPage(Form& form);

/// Destroys all six at once. For tests only, while none of them is loaded.
void dropPages();

/// Functions that connect the events of a new page to its handlers, which are in a higher layer than this file.
struct PageWiring {
    std::function<void(frm_CompInp0&)> compInp0 = {};
    std::function<void(frm_CompInp1&)> compInp1 = {};
    std::function<void(frm_CompInp2&)> compInp2 = {};
    std::function<void(frm_CompInp3&)> compInp3 = {};
    std::function<void(frm_CompInp4&)> compInp4 = {};
    std::function<void(frm_ChangePassword&)> changePassword = {};
};

/// Applies to pages created from now on. A page without a function is not connected.
void wirePagesWith(PageWiring wiring);

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
