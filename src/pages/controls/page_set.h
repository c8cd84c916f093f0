#pragma once

#include <functional>

#include "pages/controls/frm_change_password.h"
#include "pages/controls/frm_comp_inp0.h"
#include "pages/controls/frm_comp_inp1.h"
#include "pages/controls/frm_comp_inp2.h"
#include "pages/controls/frm_comp_inp3.h"
#include "pages/controls/frm_comp_inp4.h"

namespace orv {

inline constexpr int kPageCount = 5;

/// The one object of a page or of the password dialog, for each of the six types above. It is made, and its events are
/// tied, when it is first asked for; that does not load it.
template <class F>
F& page();

/// The page of that number; failure 9 outside 0 to 4.
PageForm& pageAt(int number);

/// Forgets the object: the next `page<F>()` makes a new one. It lives on in the form host until no event runs.
/// Nothing for a form that is not one of the six.
void dropPage(Form& form);

/// Destroys all six at once. Only for tests, when none of them is loaded.
void dropPages();

/// What ties the events of a page that has just been made to their handlers, which stand above this file.
struct PageWiring {
    std::function<void(frm_CompInp0&)> compInp0 = {};
    std::function<void(frm_CompInp1&)> compInp1 = {};
    std::function<void(frm_CompInp2&)> compInp2 = {};
    std::function<void(frm_CompInp3&)> compInp3 = {};
    std::function<void(frm_CompInp4&)> compInp4 = {};
    std::function<void(frm_ChangePassword&)> changePassword = {};
};

/// Holds for pages that are made from now on. A page without a function stays untied.
void wirePagesWith(PageWiring wiring);

}  // namespace orv
