#include "pages/forms/page_set.h"

#include <memory>
#include <tuple>
#include <type_traits>

#include "platform/forms/form_host.h"
#include "platform/services.h"

namespace orv {
namespace {

using Forms =
    std::tuple<std::unique_ptr<frm_CompInp0>, std::unique_ptr<frm_CompInp1>, std::unique_ptr<frm_CompInp2>,
               std::unique_ptr<frm_CompInp3>, std::unique_ptr<frm_CompInp4>, std::unique_ptr<frm_ChangePassword>>;

Forms forms;

template <class F>
void dropIfSame(std::unique_ptr<F>& made, const Form& form) {
    if (made.get() == &form) {
        services().forms->retire(std::move(made));
    }
}

}  // namespace

template <class F>
F& page() {
    auto& made = std::get<std::unique_ptr<F>>(forms);
    if (!made) {
        made = std::make_unique<F>();
        if constexpr (std::is_base_of_v<PageForm, F>) {
            pageEntry(F::kNumber).wire();
        }
    }
    return *made;
}

template frm_CompInp0& page();
template frm_CompInp1& page();
template frm_CompInp2& page();
template frm_CompInp3& page();
template frm_CompInp4& page();
template frm_ChangePassword& page();

PageForm& pageAt(int number) { return pageEntry(number).form(); }

void dropPage(Form& form) {
    std::apply([&form](auto&... made) { (dropIfSame(made, form), ...); }, forms);
}

void dropPages() { forms = {}; }

}  // namespace orv
