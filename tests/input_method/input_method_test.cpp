// Works the program with a real input method. After a save the store must contain the text on the screen.
#include <cstdlib>
#include <utility>

#include "end_to_end/end_to_end.h"
#include "input_method.h"

namespace ui_driver {
namespace {

struct Field {
    const char* control = "";
    int index = -1;
};

struct Entry {
    const char* what;
    int page;
    Field field;
    /// Pressed in the field while the input method is on.
    const char* keys;
    /// Clicked directly after the keys, if any.
    Field next;
    const char* shown;
    const char* column;
    /// Pressed when the text that the keys have entered is selected.
    const char* keysOnSelection = "";
};

constexpr Field kSave{"btm_Save"};

// clang-format off
const Entry kEntries[]{
    {"the next field ends a composition", 0, {"txt_Company_Name"}, "ctrl+a k a i s h a", {"txt_Group_Name"}, "かいしゃ", "COMPANY_NAME"},
    {"and takes none of it", 0, {"txt_Group_Name"}, "", {}, "あ", "GROUP_NAME"},
    {"reconversion", 0, {"txt_Office_Name"}, "ctrl+a k a i s h a space Return", {}, "カイシャ", "OFFICE_NAME", "Henkan F7 Return"},
    {"rejected input removes nothing", 0, {"txt_Address_Other"}, "ctrl+a k a i F8 Return", {}, "あおぞら見本ビル２階", "ADDRESS_OTHER"},
    {"undo", 0, {"txt_Daihyo_Name"}, "ctrl+a a Return ctrl+z", {}, "見本　太郎", "DAIHYO_NAME"},
    {"katakana", 0, {"txt_Daihyo_Name_Kana"}, "ctrl+a m i h o n n Return", {}, "ミホン", "DAIHYO_NAME_KANA"},
    {"a composition is given up", 0, {"txt_Takken_Syunin_Name"}, "End a i Escape Escape", {}, "見本　花子", "TAKKEN_SYUNIN_NAME"},
    {"Enter commits, then moves on", 0, {"txt_Tanto_Name"}, "ctrl+a k a k u u Return Return", {}, "かくう", "TANTO_NAME"},
    {"no composition in digits", 0, {"txt_Tel_No1"}, "ctrl+a 0 3 minus 1 2 3 4 minus 5 6 7 8", {}, "03-1234-5678", "TEL_NO1"},
    {"a number", 1, {"txt_Get_License_Date", 0}, "ctrl+a 7", {"txt_License_No_Go"}, "7", "GET_LICENSE_DATE_YEAR"},
    {"a number ended by Save", 1, {"txt_Get_License_Date", 1}, "End 2", kSave, "12", "GET_LICENSE_DATE_MONTH"},
    {"its field is not disabled", 1, {"txt_Other_Dantai_Name"}, "k a i Return ctrl+a k y o u k a i space Return", {}, "協会", "OTHER_DANTAI_NAME"},
    {"it stays on", 2, {"txt_Day_Off"}, "ctrl+a s u i y o u b i space Return", {}, "水曜日", "DAY_OFF"},
    {"Save ends a composition", 2, {"txt_Office_Hours"}, "ctrl+a k u j i", kSave, "くじ", "OFFICE_HOURS"},
};
// clang-format on

class Composing : public EndToEnd, public testing::WithParamInterface<InputMethodKind> {
protected:
    Composing() {
        office_->change("update TBL_CUSTOMER_INFO set GET_LICENSE_DATE_MONTH = '1' where USER_ID = '000004601'");
        giveToUnprivileged(office_->folder());
        terminal.startUnprivileged("000004601,1,0");
        EXPECT_TRUE(terminal.waitForPage(0));
        terminal.click("txt_Group_Name");
        EXPECT_TRUE(eventually([this] { return switchedOn(); })) << "the server of the input method is up";
    }

    bool switchedOn() {
        terminal.key("ctrl+a a Return");
        const std::string shown = terminal.textOnScreen("txt_Group_Name");
        if (shown == "a") {
            terminal.key("Zenkaku_Hankaku");
        }
        return shown == "あ";
    }

    void play(const Entry& entry) {
        if (entry.page != page_) {
            page_ = entry.page;
            turnTo(terminal, page_);
        }
        terminal.click(entry.field.control, entry.field.index);
        if (entry.next.control[0] != 0) {
            terminal.keysAndClick(entry.keys, entry.next.control, entry.next.index);
        } else {
            terminal.key(entry.keys);
        }
        if (entry.next.control == kSave.control) {
            answer(terminal, page_);
        }
        if (entry.keysOnSelection[0] != 0) {
            terminal.textOnScreen(entry.field.control, entry.field.index);
            terminal.key(entry.keysOnSelection);
        }
        EXPECT_EQ(terminal.textOnScreen(entry.field.control, entry.field.index), entry.shown);
    }

    InputMethod inputMethod{GetParam(), display_.name(), folder_};
    Terminal terminal{*office_, display_.name(), "DESK-01", inputMethod.environment()};
    int page_ = 0;
};

TEST_P(Composing, TheScreenIsStored) {
    const std::string ticked = field("KOUTORI_FLG");
    for (const Entry& entry : kEntries) {
        SCOPED_TRACE(entry.what);
        play(entry);
    }
    for (const Entry& entry : kEntries) {
        EXPECT_EQ(field(entry.column), entry.shown) << entry.what;
    }
    EXPECT_EQ(field("KOUTORI_FLG || substr(DANTAI_FLG, 7, 1)"), ticked + "1");
    EXPECT_EQ(office_->errLog(), "");
}

/// The program reads all keys of a case at once. Each case starts with the text of the last one, selected.
TEST_P(Composing, KeysKeepTheirOrderWhenTheProgramIsBusy) {
    const std::pair<const char*, const char*> cases[]{{"k a i Return ctrl+a k y o u k a i space Return", "協会"},
                                                      {"a Return ctrl+z", "協会"},
                                                      {"k a k u u Return Home a Return End i Return", "あかくうい"},
                                                      {"k a k u u Return Return", "かくう"}};
    for (const auto& [keys, shown] : cases) {
        terminal.textOnScreen("txt_Office_Name");
        terminal.keysWhileStopped(keys);
        EXPECT_EQ(terminal.textOnScreen("txt_Office_Name"), shown) << keys;
    }
}

/// Clicks directly after the last key, on a field above, because the candidates cover those below. `./dev compose RUNS`
/// repeats it that often.
TEST_P(Composing, TheNextFieldTakesNothingOfTheLast) {
    const char* wanted = std::getenv("ORV_COMPOSE_RUNS");
    const int runs = wanted == nullptr ? 5 : std::atoi(wanted);
    int wrong = 0;
    for (int run = 0; run < runs; ++run) {
        terminal.click("txt_Office_Name");
        terminal.keysAndClick("ctrl+a k a i s h a", "txt_Group_Name");
        const std::string both =
            terminal.textOnScreen("txt_Office_Name") + "|" + terminal.textOnScreen("txt_Group_Name");
        if (both != "かいしゃ|あ") {
            ++wrong;
            ADD_FAILURE() << run << ": " << both;
            terminal.enter("txt_Group_Name", "あ");
        }
    }
    std::cout << runs << " runs, " << wrong << " wrong\n";
}

INSTANTIATE_TEST_SUITE_P(InputMethods, Composing, testing::Values(InputMethodKind::Fcitx, InputMethodKind::Ibus),
                         [](const auto& kind) { return kind.param == InputMethodKind::Fcitx ? "Fcitx" : "Ibus"; });

}  // namespace
}  // namespace ui_driver
