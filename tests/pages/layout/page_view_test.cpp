#include "pages/frame/page_view.h"

#include "pages/layout/layouts.h"
#include "support/form_test.h"

namespace orv {
namespace {

class PageView : public FormTest {
protected:
    PageView() {
        EXPECT_TRUE(P_MakeComp0View(page<frm_CompInp0>()));
        EXPECT_TRUE(P_MakeComp1View(page<frm_CompInp1>()));
        EXPECT_TRUE(P_MakeComp2View(page<frm_CompInp2>()));
        EXPECT_TRUE(P_MakeComp3View(page<frm_CompInp3>()));
        EXPECT_TRUE(P_MakeComp4View(page<frm_CompInp4>()));
    }
    ~PageView() override { dropPages(); }

    template <class S>
    static std::vector<S> drawn(int number) {
        std::vector<S> found;
        for (const Shape& shape : pageAt(number).canvas().shapes()) {
            if (const auto* one = std::get_if<S>(&shape)) {
                found.push_back(*one);
            }
        }
        return found;
    }

    static std::vector<Box> boxes(int number, Colour colour) {
        std::vector<Box> found;
        for (const DrawnBox& box : drawn<DrawnBox>(number)) {
            if (box.filled && box.colour == colour) {
                found.push_back(box.box);
            }
        }
        return found;
    }
};

bool overlap(const Box& a, const Box& b) {
    return a.x < b.right() && b.x < a.right() && a.y < b.bottom() && b.y < a.bottom();
}

bool inside(const Box& inner, const Box& outer) {
    return inner.x >= outer.x && inner.y >= outer.y && inner.right() <= outer.right() &&
           inner.bottom() <= outer.bottom();
}

TEST_F(PageView, EveryPageHasItsStripesBandsAndTitle) {
    for (int number = 0; number < kPageCount; ++number) {
        EXPECT_EQ(pageAt(number).canvas().back(), Colour{0xfff6f6});
        const auto stripes = drawn<DrawnLine>(number);
        ASSERT_EQ(stripes.size(), 191U) << "every third row of 572";
        EXPECT_EQ(stripes.back().from.y, 570);
        EXPECT_EQ(boxes(number, {0xcc6666}), (std::vector<Box>{{0, 0, 794, 55}, {0, 532, 794, 40}}));
        const DrawnText title = drawn<DrawnText>(number).back();
        EXPECT_EQ(title.text, "設定/お客様情報");
        EXPECT_EQ(title.fontSize, 15);
        EXPECT_TRUE(title.bold);
    }
}

TEST_F(PageView, EveryHeadingStandsInABar) {
    constexpr std::array<std::size_t, kPageCount> kHeadings{3, 2, 4, 2, 5};
    for (int number = 0; number < kPageCount; ++number) {
        auto bars = boxes(number, {0x996666});
        const auto notices = boxes(number, {0xff8080});
        bars.insert(bars.end(), notices.begin(), notices.end());
        std::size_t headings = 0;
        for (const DrawnText& text : drawn<DrawnText>(number)) {
            if (text.fontSize != 9) {
                continue;
            }
            ++headings;
            const Box spot{text.at.x, text.at.y, 1, 12};
            EXPECT_TRUE(std::any_of(bars.begin(), bars.end(), [&](const Box& bar) { return inside(spot, bar); }))
                << text.text;
        }
        EXPECT_EQ(headings, bars.size());
        EXPECT_EQ(headings, kHeadings[static_cast<std::size_t>(number)]);
    }
}

TEST_F(PageView, BarsToTheRightEndTenPixelsBeforeTheEdge) {
    EXPECT_EQ(boxes(0, {0x996666}).front(), (Box{126, 84, 658, 18}));
    EXPECT_EQ(boxes(2, {0x996666}).back(), (Box{261, 343, 133, 18}));
    EXPECT_EQ(boxes(4, {0xff8080}).front(), (Box{126, 77, 658, 20}));
}

TEST_F(PageView, NoControlStandsOnABarAndOnlyTheFrameStandsOnTheBands) {
    for (int number = 0; number < kPageCount; ++number) {
        PageForm& form = pageAt(number);
        auto bars = boxes(number, {0x996666});
        const auto notices = boxes(number, {0xff8080});
        bars.insert(bars.end(), notices.begin(), notices.end());
        const auto bands = boxes(number, {0xcc6666});
        for (const Placement& each : layoutOf(form.name())) {
            for (const Box& bar : bars) {
                EXPECT_FALSE(overlap(each.box, bar)) << form.name() << " " << each.control;
            }
            const bool onBand =
                std::any_of(bands.begin(), bands.end(), [&](const Box& band) { return inside(each.box, band); });
            const bool onPage = each.box.y >= bands[0].bottom() && each.box.bottom() <= bands[1].y;
            EXPECT_TRUE(onBand || onPage) << form.name() << " " << each.control << " crosses a band";
        }
    }
}

TEST_F(PageView, TickBoxesStandInTheirGroups) {
    for (int number : {0, 1, 3}) {
        const auto groups = boxes(number, {0xffdddd});
        for (const Placement& each : layoutOf(pageAt(number).name())) {
            if (!each.control.starts_with("chk_")) {
                continue;
            }
            EXPECT_TRUE(
                std::any_of(groups.begin(), groups.end(), [&](const Box& box) { return inside(each.box, box); }))
                << each.control << " " << each.index;
        }
    }
}

}  // namespace
}  // namespace orv
