#include "pages/controls/page_set.h"

#include "pages/controls/control_ref.h"
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

TEST_F(PageSet, DroppingAnotherFormTouchesNoPage) {
    Form other{"frm_Other", "", {1, 1}};
    PageForm& kept = pageAt(1);
    dropPage(other);
    EXPECT_EQ(&pageAt(1), &kept);
}

struct Row {
    std::string_view objectName;
    ControlRef control;
};

constexpr auto kRows = std::to_array<Row>({
    {"txt_Tel_No1", of<frm_CompInp0, &frm_CompInp0::txt_Tel_No1>},
    {"cbo_User_Id", of<frm_CompInp4, &frm_CompInp4::cbo_User_Id>},
    {"chk_Dantai(6)", of<frm_CompInp1, &frm_CompInp1::chk_Dantai, 6>},
    {"txt_Password(0)", of<frm_ChangePassword, &frm_ChangePassword::txt_Password, 0>},
});

TEST_F(PageSet, TablesNameControlsOfPagesThatDoNotExistYet) {
    for (const Row& row : kRows) {
        EXPECT_EQ(row.control().objectName(), row.objectName);
    }
    EXPECT_EQ(&kRows[0].control(), &page<frm_CompInp0>().txt_Tel_No1);
}

}  // namespace
}  // namespace orv
