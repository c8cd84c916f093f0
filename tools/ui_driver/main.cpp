// Operates the program in an office like a clerk, and takes pictures of the screen.
//   ui_driver session OFFICE PICTURES   edits, opens all pages, chooses a photo, saves and leaves
//   ui_driver shots OFFICE PICTURES     shows every page and dialog without saving
//   ui_driver saving OFFICE PICTURES    takes pictures of the whole screen before and after a save
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <map>
#include <stdexcept>

#include "ui_driver.h"

namespace {

using ui_driver::Office;
using ui_driver::Terminal;

void require(bool done, const std::string& what) {
    if (!done) {
        throw std::runtime_error("not seen on the screen: " + what);
    }
    std::cout << "ui_driver: " << what << "\n";
}

void goTo(Terminal& terminal, int page, const std::filesystem::path& pictures) {
    terminal.click("btm_ChangePage", page);
    require(terminal.waitForPage(page), "page " + std::to_string(page));
    terminal.shot(pictures / ("page" + std::to_string(page) + ".png"));
}

void open(Terminal& terminal, const std::string& argument, const std::filesystem::path& pictures) {
    terminal.start(argument);
    require(terminal.waitForPage(0), "page 0 of " + argument);
    terminal.shot(pictures / "page0.png");
}

/// Chooses a photo, from the open dialog to the page that shows it.
void choosePhoto(Terminal& terminal, const Office& office, const std::filesystem::path& pictures) {
    const std::string photo = office.copyPhoto();
    terminal.click("btm_PhotoSelect", 0);
    require(terminal.waitForWindow("ファイルを開く"), "the open dialog");
    terminal.shot(pictures / "open_dialog.png");
    terminal.typeAscii(photo);
    terminal.key("Return");
    require(terminal.waitForConfirmation(), "the confirmation dialog");
    terminal.shot(pictures / "confirmation.png");
    terminal.key("F1");
    require(terminal.waitForWindow(".* - ヘルプ"), "the help window");
    terminal.shot(pictures / "help.png");
    terminal.key("Escape");
    require(terminal.waitForConfirmation(), "the confirmation dialog again");
    terminal.click("cmd_Entry");
    require(terminal.waitForPage(2), "page 2 with the photo");
    terminal.shot(pictures / "page2_photo.png");
}

void runSession(Terminal& terminal, const Office& office, const std::string& argument,
                const std::filesystem::path& pictures) {
    open(terminal, argument, pictures);
    terminal.enter("txt_Tanto_Name", "操作　花子");
    for (int page = 1; page < 5; ++page) {
        goTo(terminal, page, pictures);
        if (page == 2) {
            terminal.enter("txt_Day_Off", "毎週水曜日・年末年始");
            choosePhoto(terminal, office, pictures);
        }
    }
    terminal.click("btm_Save");
    require(terminal.waitForNotice(), "the message after the save");
    terminal.shot(pictures / "saved.png");
    terminal.key("Return");
    require(terminal.isNoticeGone() && terminal.waitForPage(4), "back on page 4");
    terminal.click("btm_Back_Menu");
    require(terminal.waitForEnd() == 0, "the program has ended");
}

/// Takes pictures of a search program's window and of the page that waits for it.
void takeSearchShots(Terminal& terminal, const std::string& button, const std::string& title, const std::string& name,
                     const std::filesystem::path& pictures) {
    terminal.click(button);
    require(terminal.waitForWindow(title), title);
    terminal.shot(pictures / (name + ".png"));
    terminal.shotOfScreen(pictures / (name + "_waiting.png"));
    terminal.key("Escape");
    require(terminal.isWindowGone(title), title + " has ended");
}

/// Answers the notice on the screen with its default button and waits for the page.
void dismiss(Terminal& terminal, int page) {
    terminal.key("Return");
    require(terminal.isNoticeGone() && terminal.waitForPage(page), "page " + std::to_string(page) + " again");
}

void takePasswordShots(Terminal& terminal, const std::filesystem::path& pictures) {
    terminal.click("btm_ChangePW");
    require(terminal.waitForPasswordDialog(), "the password dialog");
    terminal.typeAscii("mihon01");
    terminal.shot(pictures / "password.png");
    terminal.key("Return");
    require(terminal.waitForNotice(), "the refusal of an empty password");
    terminal.shot(pictures / "password_refused.png");
    terminal.key("Return");
    require(terminal.isNoticeGone() && terminal.waitForPasswordDialog(),
            "the password dialog with the focus on the field");
    terminal.shot(pictures / "password_focus.png");
    terminal.key("Escape");
    require(terminal.waitForPage(0), "page 0 after the password dialog");
}

void takeRefusalShots(Terminal& terminal, const std::filesystem::path& pictures) {
    terminal.enter("txt_Company_Name", "　");
    terminal.click("btm_Save");
    require(terminal.waitForNotice(), "the refusal of a blank company name");
    terminal.shot(pictures / "refused.png");
    dismiss(terminal, 0);
    terminal.shot(pictures / "refused_focus.png");
    terminal.enter("txt_Company_Name", "あおぞら架空不動産");
}

void takeCouncilShots(Terminal& terminal, const std::filesystem::path& pictures) {
    terminal.click("btm_ChangePage", 1);
    require(terminal.waitForPage(1), "page 1");
    terminal.click("chk_Koutori", 2);
    terminal.click("btm_Save");
    require(terminal.waitForNotice(), "the question for a council");
    terminal.shot(pictures / "council.png");
    terminal.key("Return");
    require(terminal.waitForNotice(), "the refusal that follows");
    terminal.shot(pictures / "council_refused.png");
    dismiss(terminal, 1);
    terminal.shot(pictures / "council_focus.png");
}

void leave(Terminal& terminal, const std::filesystem::path& pictures) {
    terminal.click("btm_Back_Menu");
    require(terminal.waitForNotice(), "the question before leaving");
    terminal.shot(pictures / "leave.png");
    terminal.key("Left");
    terminal.key("Return");
    require(terminal.waitForEnd() == 0, "the program has ended");
}

/// Takes pictures of a company without a licence and with its own site, where addresses are typed.
void takeOtherCompanyShots(Terminal& terminal, const std::filesystem::path& pictures) {
    open(terminal, "000004602,1,1", pictures / "other");
    goTo(terminal, 1, pictures / "other");
    terminal.kill();
}

void takeShots(Terminal& terminal, const Office& office, const std::string& argument,
               const std::filesystem::path& pictures) {
    open(terminal, argument, pictures);
    for (const int page : {1, 2, 3, 4, 0}) {
        goTo(terminal, page, pictures);
        if (page == 2) {
            takeSearchShots(terminal, "btn_SelectRail", "沿線検索", "rail_search", pictures);
            require(terminal.waitForPage(page), "page 2 is back");
            choosePhoto(terminal, office, pictures);
        }
    }
    takeSearchShots(terminal, "btm_SearchOfficeAddress", "住所検索", "address_search", pictures);
    require(terminal.waitForPage(0), "page 0 is back");
    takePasswordShots(terminal, pictures);
    takeRefusalShots(terminal, pictures);
    takeCouncilShots(terminal, pictures);
    leave(terminal, pictures);
    takeOtherCompanyShots(terminal, pictures);
}

void runSave(Terminal& terminal, const Office& /*office*/, const std::string& argument,
             const std::filesystem::path& pictures) {
    open(terminal, argument, pictures / "other");
    terminal.shotOfScreen(pictures / "1.png");
    terminal.enter("txt_Tanto_Name", "操作　花子");
    terminal.shotOfScreen(pictures / "2.png");
    terminal.click("btm_Save");
    require(terminal.waitForNotice(), "the message after the save");
    terminal.shotOfScreen(pictures / "3.png");
    dismiss(terminal, 0);
    terminal.shotOfScreen(pictures / "4.png");
    terminal.kill();
}

const std::map<std::string, decltype(&takeShots)> kWorks{
    {"session", runSession}, {"shots", takeShots}, {"saving", runSave}};

}  // namespace

int main(int argc, char* argv[]) {
    const auto work = argc < 4 ? kWorks.end() : kWorks.find(argv[1]);
    if (work == kWorks.end()) {
        std::cerr << "ui_driver session|shots|saving OFFICE PICTURES [ARGUMENT]\n";
        return 2;
    }
    const std::filesystem::path pictures = argv[3];
    const std::string argument = argc > 4 ? argv[4] : "000004601,1,0";
    try {
        std::filesystem::create_directories(pictures / "other");
        const ui_driver::VirtualDisplay display;
        const Office office = Office::existing(argv[2]);
        Terminal terminal(office, display.name(), "DESK-01", {{"FONTCONFIG_FILE", FONTS}});
        work->second(terminal, office, argument, pictures);
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << "ui_driver: " << failure.what() << "\n";
        return 1;
    }
}
