#pragma once

#include "pages/forms/frm_change_password.h"
#include "pages/forms/frm_comp_inp0.h"
#include "pages/forms/frm_comp_inp1.h"
#include "pages/forms/frm_comp_inp2.h"
#include "pages/forms/frm_comp_inp3.h"
#include "pages/forms/frm_comp_inp4.h"

namespace orv {

/// Returns the one object of a page or of the password dialog. The first call creates it, but does not load it. A
/// page's events are then connected to their handlers.
template <class F>
F& page();

/// Returns the page with that number. Failure 9 if there is none.
PageForm& pageAt(int number);

/// Removes the object; the next `page<F>()` creates a new one. The form host keeps the old one until no event is
/// running. Does nothing for any other form.
void dropPage(Form& form);

/// Destroys all objects at once. For tests only, while none of them is loaded.
void dropPages();

/// Identifies a control in a table. It is a function, so that a constexpr row can contain it and the page is created
/// only when the row is used.
using ControlRef = Control& (*)();

/// Examples: `of<frm_CompInp0, &frm_CompInp0::txt_Tel_No1>`, and in an array `of<frm_CompInp1,
/// &frm_CompInp1::chk_Dantai, 6>`. `C` is the control's class or a base of it.
template <class F, auto Member, int Index = -1, class C = Control>
C& of() {
    if constexpr (Index < 0) {
        return page<F>().*Member;
    } else {
        return (page<F>().*Member)[static_cast<std::size_t>(Index)];
    }
}

}  // namespace orv
