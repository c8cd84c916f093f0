#include "pages/forms/tick_colours.h"

#include "pages/forms/colours.h"

namespace orv {

void showTick(CheckBox& box) {
    const bool on = box.value() == 1;
    box.setBackColour(on ? kTickOn : kTickOff);
    box.setForeColour(on ? kTickOnText : kTickOffText);
}

}  // namespace orv
