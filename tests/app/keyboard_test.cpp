#include "support/window_test.h"

namespace orv {
namespace {

class Keyboard : public WindowTest {
protected:
    static void retype(const std::string& text) {
        press(Qt::Key_A, Qt::ControlModifier);
        type(text);
    }
    /// Does something at some of the controls; at all others the keys only go on.
    static void doAt(const std::string& control) {
        static const std::map<std::string, std::function<void()>> doings{
            {"txt_Tanto_Name", [] { retype("架空　次郎"); }},
            {"txt_Mail_Address", [] { retype("desk@aozora.example.jp"); }},
            {"cbo_Get_License_Nengou", [] { press(Qt::Key_Up); }},
            {"txt_License_No_Go", [] { retype("654321"); }},
            {"chk_Koutori(3)", [] { press(Qt::Key_Space); }},
            {"txt_Day_Off", [] { retype("水曜日"); }},
            {"chk_Management_Type_Flg(1)", [] { press(Qt::Key_Space); }},
            {"chk_Business_Type_Flg(11)", [] { press(Qt::Key_Space); }},
        };
        if (const auto found = doings.find(control); found != doings.end()) found->second();
    }
    /// Presses Tab from the first control to Save, does the work on the way, and returns the visited controls.
    std::vector<std::string> goThrough() {
        std::vector<std::string> way{focused()};
        for (doAt(way.back()); way.back() != "btm_Save" && way.size() < screen().controls().size();) {
            press(Qt::Key_Tab);
            way.push_back(focused());
            doAt(way.back());
        }
        return way;
    }
    /// Returns the focusable controls in Tab order, from the initial focus of a page up to Save.
    std::vector<std::string> expectedOrder() {
        static constexpr std::array kStarts{"txt_Group_Name", "cbo_License_No", "txt_Walk_Minutes",
                                            "chk_Management_Type_Flg(0)", "btm_ChangePage(4)"};
        std::vector<std::string> names;
        for (const Control* control : screen().tabOrder()) {
            if (control->focusable()) names.push_back(control->objectName());
        }
        const std::string start = kStarts.at(static_cast<std::size_t>(screen().number));
        std::rotate(names.begin(), std::find(names.begin(), names.end(), start), names.end());
        names.erase(std::find(names.begin(), names.end(), "btm_Save") + 1, names.end());
        return names;
    }
};

TEST_F(Keyboard, GoesThroughTheFivePagesAndSaves) {
    startOn(0);
    for (int number = 0; number < kPageCount; ++number) {
        ASSERT_EQ(screen().number, number);
        EXPECT_EQ(goThrough(), expectedOrder()) << number;
        EXPECT_TRUE(findWindow(screen())->isWindowModified()) << number;
        if (number + 1 < kPageCount) press(Qt::Key_PageDown, Qt::ControlModifier);
    }
    EXPECT_EQ(focused(), "btm_Save");
    press(Qt::Key_Return);
    expectShown("COS05574", {});
    EXPECT_FALSE(findWindow(screen())->isWindowModified());
    EXPECT_EQ(info("TANTO_NAME || '|' || MAIL_ADDRESS || '|' || LICENSE_NO_GO || '|' || KOUTORI_FLG"),
              "架空　次郎|desk@aozora.example.jp|654321|0011000000000000");
    EXPECT_EQ(info("GET_LICENSE_NENGOU"), "西暦") << "the entry above 令和";
    EXPECT_EQ(add("DAY_OFF || substr(MANAGEMENT_TYPE_FLG, 1, 4) || substr(BUSINESS_TYPE_FLG, 12, 1)"), "水曜日11111");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // of the cover that kept input away
    press(Qt::Key_1, Qt::AltModifier);
    EXPECT_EQ(findWidget<QLineEdit>(*screen().activeControl())->selectedText(), "") << "the next key would replace it";
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(shownIds(), Texts{"COS05574"});
    EXPECT_EQ(focused(), "txt_Group_Name") << "the shortcut does not keep the focus";
    EXPECT_EQ(log(), "");
}

}  // namespace
}  // namespace orv
