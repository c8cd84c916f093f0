#include "pages/controls/page_set.h"

#include "support/form_test.h"

namespace orv {
namespace {

constexpr int kOutOfRange = 9;

class PageSet : public FormTest {
protected:
    ~PageSet() override {
        wirePagesWith({});
        dropPages();
    }
};

TEST_F(PageSet, APageIsMadeOnceTiedOnceAndNotLoaded) {
    int tied = 0;
    wirePagesWith({.compInp2 = [&](frm_CompInp2& made) {
        ++tied;
        EXPECT_EQ(&made, &page<frm_CompInp2>()) << "a tie may ask for the page that it ties";
    }});
    frm_CompInp2& second = page<frm_CompInp2>();
    EXPECT_EQ(&page<frm_CompInp2>(), &second);
    EXPECT_EQ(&pageAt(2), &second);
    EXPECT_EQ(tied, 1);
    EXPECT_FALSE(second.loaded());
    EXPECT_TRUE(windows.calls.empty());
}

TEST_F(PageSet, NumbersNameThePagesAndTheirTags) {
    for (int number = 0; number < kPageCount; ++number) {
        PageForm& found = pageAt(number);
        EXPECT_EQ(found.number, number);
        EXPECT_EQ(found.name(), "frm_CompInp" + std::to_string(number));
        EXPECT_EQ(found.tag(), "CompInp" + std::to_string(number));
        for (std::size_t i = 0; i < 5; ++i) {
            EXPECT_EQ(found.btm_ChangePage[i].marked(), static_cast<int>(i) == number);
        }
    }
    EXPECT_EQ(failureOf([] { pageAt(-1); }), kOutOfRange);
    EXPECT_EQ(failureOf([] { pageAt(kPageCount); }), kOutOfRange);
}

TEST_F(PageSet, APageThatDropsItselfWhileItUnloadsLivesUntilNoEventRuns) {
    std::string seenAfterTheDrop;
    wirePagesWith({.compInp0 = [&](frm_CompInp0& made) {
        made.onUnload = [&made, &seenAfterTheDrop] {
            dropPage(made);
            seenAfterTheDrop = made.txt_Tel_No1.text();
        };
    }});
    frm_CompInp0& old = page<frm_CompInp0>();
    forms.load(old);
    old.txt_Tel_No1.setText("03-1234-5678");
    EXPECT_TRUE(forms.unload(old, UnloadMode::Code));
    EXPECT_EQ(seenAfterTheDrop, "03-1234-5678");
    EXPECT_NE(&page<frm_CompInp0>(), &old);
    EXPECT_EQ(page<frm_CompInp0>().txt_Tel_No1.text(), "") << "a new page is as it was designed";
    EXPECT_TRUE(page<frm_CompInp0>().onUnload.handled()) << "and tied like the first";
}

}  // namespace
}  // namespace orv
