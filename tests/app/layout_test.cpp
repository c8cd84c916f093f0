#include "pages/layout/layouts.h"

#include <set>

#include "images/frm_img_common.h"
#include "pages/controls/page_set.h"
#include "support/form_test.h"

namespace orv {
namespace {

using Layouts = FormTest;

TEST_F(Layouts, PlaceEveryControlThatCanBeSeenOnceAndInsideItsForm) {
    const frm_ImgCommon confirmation;
    std::vector<const Form*> all{&confirmation, &page<frm_ChangePassword>()};
    for (int number = 0; number < kPageCount; ++number) {
        all.push_back(&pageAt(number));
    }
    for (const Form* form : all) {
        std::set<const Control*> placed;
        for (const Placement& place : layoutOf(form->name())) {
            const Control* control = form->find(place.control, place.index);
            ASSERT_NE(control, nullptr) << form->name() << " " << place.control << place.index;
            EXPECT_TRUE(placed.insert(control).second) << control->objectName() << " twice";
            EXPECT_TRUE(place.box.x >= 0 && place.box.right() <= form->scaleWidth()) << control->objectName();
            EXPECT_TRUE(place.box.y >= 0 && place.box.bottom() <= form->scaleHeight()) << control->objectName();
        }
        for (const Control* control : form->controls()) {
            EXPECT_TRUE(placed.contains(control) || !control->visible()) << form->name() << control->objectName();
        }
    }
    dropPages();
}

}  // namespace
}  // namespace orv
