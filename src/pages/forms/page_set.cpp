#include "pages/forms/page_set.h"

#include <array>
#include <memory>
#include <tuple>

#include "platform/forms/form_host.h"
#include "platform/run_time_error.h"
#include "platform/services.h"

namespace orv {
namespace {

using Pages =
    std::tuple<std::unique_ptr<frm_CompInp0>, std::unique_ptr<frm_CompInp1>, std::unique_ptr<frm_CompInp2>,
               std::unique_ptr<frm_CompInp3>, std::unique_ptr<frm_CompInp4>, std::unique_ptr<frm_ChangePassword>>;

Pages pages;
PageWiring wiring;

const auto& wiringFor(const frm_CompInp0&) { return wiring.compInp0; }
const auto& wiringFor(const frm_CompInp1&) { return wiring.compInp1; }
const auto& wiringFor(const frm_CompInp2&) { return wiring.compInp2; }
const auto& wiringFor(const frm_CompInp3&) { return wiring.compInp3; }
const auto& wiringFor(const frm_CompInp4&) { return wiring.compInp4; }
const auto& wiringFor(const frm_ChangePassword&) { return wiring.changePassword; }

template <class F>
PageForm& asPage() {
    return page<F>();
}

constexpr std::array<PageForm& (*)(), kPageCount> kPages{
    asPage<frm_CompInp0>, asPage<frm_CompInp1>, asPage<frm_CompInp2>, asPage<frm_CompInp3>, asPage<frm_CompInp4>};

template <class F>
void dropIfSame(std::unique_ptr<F>& made, const Form& form) {
    if (made.get() == &form) {
        services().forms->retire(std::move(made));
    }
}

}  // namespace

template <class F>
F& page() {
    auto& made = std::get<std::unique_ptr<F>>(pages);
    if (!made) {
        made = std::make_unique<F>();
        if (const auto& tie = wiringFor(*made)) {
            tie(*made);
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

PageForm& pageAt(int number) {
    if (number < 0 || number >= kPageCount) {
        throw RunTimeError(Failure::SubscriptOutOfRange);
    }
    return kPages[static_cast<std::size_t>(number)]();
}

void dropPage(Form& form) {
    std::apply([&form](auto&... made) { (dropIfSame(made, form), ...); }, pages);
}

void dropPages() { pages = {}; }

void wirePagesWith(PageWiring ties) { wiring = std::move(ties); }

}  // namespace orv
