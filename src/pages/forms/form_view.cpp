#include "pages/forms/form_view.h"

#include "platform/machine/window_system.h"
#include "platform/services.h"

namespace orv {
namespace {

constexpr Colour kPaper{0xfff6f6};
constexpr Colour kStripe{0xffdddd};
constexpr int kStripeStep = 3;

}  // namespace

void PS_SetFormCenter(Form& form) { services().windows->centre(form); }

void drawStripes(Form& form) {
    form.canvas().clear(kPaper);
    for (int y = 0; y <= form.scaleHeight(); y += kStripeStep) {
        form.canvas().draw(DrawnLine{{0, y}, {form.scaleWidth(), y}, kStripe});
    }
}

}  // namespace orv
