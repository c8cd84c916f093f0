#include "pages/handlers/form_layouts.h"

#include <QScrollArea>
#include <QTest>
#include <set>

#include "adapters/qt/qt_window_system.h"
#include "images/frm_img_common.h"
#include "pages/forms/page_set.h"
#include "support/form_test.h"
#include "support/unwired_pages.h"
#include "support/widgets.h"

namespace orv {
namespace {

class Layouts : public FormTest {
protected:
    Layouts() { useUnwiredPages(); }
    ~Layouts() override { dropPages(); }

    std::vector<Form*> all() {
        std::vector<Form*> made{&confirmation_, &page<frm_ChangePassword>()};
        for (int number = 0; number < kPageCount; ++number) made.push_back(&pageAt(number));
        return made;
    }

private:
    frm_ImgCommon confirmation_;
};

TEST_F(Layouts, PlaceEveryControlOnceAndWithinReachOnEveryScreen) {
    ScreenSpace space;
    QtWindowSystem screen(findLayout, forms, [&](const QScreen*, Sizing) { return space; });
    services().windows = &screen;
    qunsetenv("ORV_SCALE");
    for (const QSize pixels :
         {QSize(1024, 768), QSize(1366, 768), QSize(1920, 1080), QSize(2560, 1440), QSize(600, 440)}) {
        for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
            const QPoint panel(8, 24);
            space = {{panel / scale, (pixels - QSize(8, 24)) / scale}, QMargins(4, 28, 4, 4) / scale, scale};
            for (Form* form : all()) {
                SCOPED_TRACE(form->name() + " at " + std::to_string(space.area.width()));
                form->onLoad = nullptr;
                forms.show(*form);
                screen.centre(*form);
                QWidget& window = *findWindow(*form);
                const QRect outside = QRect(window.pos(), window.size().grownBy(space.frame));
                EXPECT_TRUE(space.area.contains(outside));
                EXPECT_LE((outside.center() - space.area.center()).manhattanLength(), 2);
                EXPECT_GT(findPane(*form)->font().pixelSize() * scale, 8.5) << "smaller text cannot be read";
                EXPECT_TRUE(QTest::qWaitForWindowActive(&window, kPatience));
                std::set<const Control*> placed;
                for (const Placement& place : findLayout(form->name())) {
                    ASSERT_NE(form->find(place.control, place.index), nullptr) << place.control << place.index;
                    const Control& control = *form->find(place.control, place.index);
                    EXPECT_TRUE(placed.insert(&control).second) << control.objectName() << " twice";
                    QWidget& widget = *findWidget(control);
                    if (control.focusable()) {
                        widget.setFocus(Qt::TabFocusReason);
                    } else {
                        window.findChild<QScrollArea*>()->ensureWidgetVisible(&widget, 0, 0);
                    }
                    EXPECT_TRUE(!control.visible() || widget.visibleRegion().boundingRect() == widget.rect())
                        << control.objectName();
                }
                for (const Control* control : form->controls()) {
                    EXPECT_TRUE(placed.contains(control) || !control->visible()) << control->objectName();
                }
                forms.unload(*form, UnloadMode::Code);
            }
        }
    }
    qputenv("ORV_SCALE", "1");
}

}  // namespace
}  // namespace orv
