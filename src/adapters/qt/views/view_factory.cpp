#include "adapters/qt/views/views.h"

namespace orv {

std::unique_ptr<ControlView> makeView(Control& control, QWidget* page, const PageScale& scale) {
    return std::visit([&](auto* own) { return makeViewFor(*own, page, scale); }, control.self());
}

}  // namespace orv
