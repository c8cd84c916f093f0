#include "pages/controls/page_set.h"

#include "support/form_test.h"

namespace orv {
namespace {

class PageSet : public FormTest {
protected:
    ~PageSet() override {
        wirePagesWith({});
        dropPages();
    }
};

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
