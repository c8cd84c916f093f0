#include "pages/handlers/sibling_search.h"

#include "support/fixture.h"

namespace orv {
namespace {

std::string readText(const Control& control) {
    return control.kind() == ControlKind::Label ? dynamic_cast<const Label&>(control).caption()
                                                : dynamic_cast<const TextInput&>(control).text();
}

/// One of the three searches: its page, its controls, the program's arguments and its results.
struct Search {
    int page;
    std::string button;
    bool closesButton;
    std::vector<std::string> filled;
    std::string next;
    /// The program and the values on the command line, before the handles.
    std::string begins;
    Texts answer;
    std::string failure;
};

void PrintTo(const Search& search, std::ostream* stream) { *stream << search.button; }

const std::vector<Search> kSearches{
    {0,
     "btm_SearchOfficeAddress",
     true,
     {"txt_Post_Code", "txt_Address", "txt_Address_Code"},
     "txt_Address_number",
     "C:\\ORV\\BIN\\KELT_ADD.EXE 160-0022,東京都 新宿区,13104022003,",
     {"530-0001", "大阪府大阪市北区梅田１丁目", "27127001001"},
     "[ SS_Base btn_Search_Address_Click ]"},
    {0,
     "btm_Pc_SearchOfficeAddress",
     false,
     {"txt_Pc_Post_Code", "txt_Pc_Address", "txt_Pc_Address_Code"},
     "txt_Pc_Address_number",
     "C:\\ORV\\BIN\\KELT_ADD.EXE ,,,",
     {"530-0001", "大阪府大阪市北区梅田１丁目", "27127001001"},
     "[ SS_Base btn_Pc_Search_Address_Click ]"},
    {2,
     "btn_SelectRail",
     true,
     {"txt_Railroad_Code", "txt_Station_Code", "lbl_Railroad_Name", "lbl_Station_Name"},
     "txt_Walk_Minutes",
     "C:\\ORV\\BIN\\KELT_LINE.EXE ",
     {"270105", "101", "なにわ見本線", "見本大橋"},
     "[ CompInp2 btn_SelectRail_Click ]"},
};

class SiblingSearches : public SystemTest, public testing::WithParamInterface<Search> {
protected:
    void SetUp() override {
        startOn(GetParam().page);
        if (GetParam().page == 0) {
            page<frm_CompInp0>().txt_Address.setText(" 東京都 新宿区 ");
            page<frm_CompInp0>().chk_EqualData.setValue(0);
        }
        before = texts();
    }
    Button& button() { return dynamic_cast<Button&>(*screen().find(GetParam().button)); }
    std::vector<Control*> filled() {
        std::vector<Control*> controls;
        for (const std::string& name : GetParam().filled) controls.push_back(screen().find(name));
        return controls;
    }
    Texts texts() {
        Texts all;
        for (const Control* control : filled()) all.push_back(readText(*control));
        return all;
    }
    void answerAll() {
        for (std::size_t i = 0; i < filled().size(); ++i) {
            EXPECT_TRUE(siblings.setText(filled()[i]->handle(), GetParam().answer[i]));
        }
    }

    Texts before;
};

TEST_P(SiblingSearches, StartsItsProgramWaitsAndPutsEverythingInAtOnceByTheKey) {
    forms.setPointer(kPointerHourglass);
    button().press();
    std::string line = GetParam().begins;
    for (const Control* control : filled()) line += std::to_string(control->handle()) + ",";
    EXPECT_EQ(siblings.commandLines, Texts{line + std::to_string(button().handle())});
    EXPECT_EQ(windows.work, std::string(GetParam().page == 0 ? "住所" : "沿線") + "検索の画面で選択してください");
    EXPECT_FALSE(screen().enabled());
    EXPECT_EQ(button().enabled(), !GetParam().closesButton);
    EXPECT_TRUE(siblings.setText(filled()[0]->handle(), "1"));
    answerAll();
    EXPECT_EQ(texts(), before);
    bool formFirst = !GetParam().closesButton;
    button().observe([&] { formFirst = screen().enabled(); });
    EXPECT_TRUE(siblings.pressKey(button().handle(), 65));
    button().observe({});
    EXPECT_TRUE(formFirst);
    EXPECT_EQ(texts(), GetParam().answer);
    EXPECT_TRUE(screen().enabled());
    EXPECT_TRUE(button().enabled());
    EXPECT_EQ(screen().activeControl(), screen().find(GetParam().next));
    EXPECT_EQ(forms.pointer(), kPointerDefault);
    EXPECT_FALSE(siblings.listenedTo());
}

TEST_P(SiblingSearches, RefusesMessagesForOtherControls) {
    button().press();
    const std::uint32_t field = filled()[0]->handle();
    EXPECT_FALSE(siblings.setText(0, "x"));
    EXPECT_FALSE(siblings.setText(button().handle(), "x"));
    EXPECT_FALSE(siblings.setText(screen().find("cbo_User_Id")->handle(), "000004602"));
    EXPECT_FALSE(siblings.pressKey(field, kKeyEnter));
    EXPECT_FALSE(siblings.pressKey(screen().btm_Save.handle(), kKeyEnter));
    for (const char* text : {"a\tb", "\x7F", "\xC2\x80", "\xFF", "\xE3\x81", "\xED\xA0\x80"}) {
        EXPECT_FALSE(siblings.setText(field, text)) << text;
    }
    EXPECT_FALSE(screen().enabled());
    answerAll();
    siblings.end();
    EXPECT_EQ(texts(), before) << "everything or nothing";
    EXPECT_TRUE(screen().enabled());
}

TEST_P(SiblingSearches, APageThatGoesIsNotFoundAnyMore) {
    button().press();
    const std::uint32_t field = filled()[0]->handle();
    forms.unload(screen(), UnloadMode::Code);
    forms.sweep();
    EXPECT_FALSE(siblings.listenedTo());
    EXPECT_GT(pageAt(GetParam().page).find(GetParam().filled[0])->handle(), field) << "made anew";
}

TEST_P(SiblingSearches, AProgramThatCannotBeStartedLeavesThePageUsable) {
    siblings.failure = Failure::FileNotFound;
    bool enabledWhenShown = false;
    messages.onShow = [&] { enabledWhenShown = screen().enabled(); };
    button().press();
    EXPECT_TRUE(enabledWhenShown);
    expectReported("53", GetParam().failure + std::string(describe(Failure::FileNotFound)));
    EXPECT_EQ(button().enabled(), !GetParam().closesButton);
    EXPECT_EQ(texts(), before);
}

INSTANTIATE_TEST_SUITE_P(Each, SiblingSearches, testing::ValuesIn(kSearches),
                         [](const auto& search) { return search.param.button; });

}  // namespace
}  // namespace orv
