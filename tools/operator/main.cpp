// Works the program in an office as a clerk would, and takes pictures of what is on the screen.
//   operator session OFFICE PICTURES   edits, goes through all pages, takes a photo, saves, leaves
//   operator shots OFFICE PICTURES     every page and dialog, without saving
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <stdexcept>

#include "desk.h"

namespace {

using desk::Office;
using desk::Terminal;

void must(bool done, const std::string& what) {
    if (!done) {
        throw std::runtime_error("not seen on the screen: " + what);
    }
    std::cout << "operator: " << what << "\n";
}

void goTo(Terminal& terminal, int page, const std::filesystem::path& pictures) {
    terminal.click("btm_ChangePage", page);
    must(terminal.waitForPage(page), "page " + std::to_string(page));
    terminal.shot(pictures / ("page" + std::to_string(page) + ".png"));
}

void open(Terminal& terminal, const std::string& argument, const std::filesystem::path& pictures) {
    terminal.start(argument);
    must(terminal.waitForPage(0), "page 0 of " + argument);
    terminal.shot(pictures / "page0.png");
}

/// From the open dialog to the page that shows it.
void takePhoto(Terminal& terminal, const Office& office, const std::filesystem::path& pictures) {
    const std::string photo = office.layPhoto();
    terminal.click("btm_PhotoSelect", 0);
    must(terminal.waitForWindow("ファイルを開く"), "the open dialog");
    terminal.shot(pictures / "open_dialog.png");
    terminal.typeAscii(photo);
    terminal.key("Return");
    must(terminal.waitForConfirmation(), "the confirmation dialog");
    terminal.shot(pictures / "confirmation.png");
    terminal.key("F1");
    must(terminal.waitForWindow("ヘルプ"), "the help window");
    terminal.shot(pictures / "help.png");
    terminal.key("Return");
    must(terminal.waitForConfirmation(), "the confirmation dialog again");
    terminal.click("cmd_Entry");
    must(terminal.waitForPage(2), "page 2 with the photo");
    terminal.shot(pictures / "page2_photo.png");
}

void session(Terminal& terminal, const Office& office, const std::string& argument,
             const std::filesystem::path& pictures) {
    open(terminal, argument, pictures);
    terminal.enter("txt_Tanto_Name", "操作　花子");
    for (int page = 1; page < 5; ++page) {
        goTo(terminal, page, pictures);
        if (page == 2) {
            terminal.enter("txt_Day_Off", "毎週水曜日・年末年始");
            takePhoto(terminal, office, pictures);
        }
    }
    terminal.click("btm_Save");
    must(terminal.waitForNotice(), "the message after the save");
    terminal.shot(pictures / "saved.png");
    terminal.key("Return");
    must(terminal.noticeGone() && terminal.waitForPage(4), "back on page 4");
    terminal.click("btm_Back_Menu");
    must(terminal.waitForEnd() == 0, "the program has ended");
}

void shots(Terminal& terminal, const Office& office, const std::string& argument,
           const std::filesystem::path& pictures) {
    open(terminal, argument, pictures);
    for (const int page : {1, 2, 3, 4, 0}) {
        goTo(terminal, page, pictures);
        if (page == 2) {
            takePhoto(terminal, office, pictures);
        }
    }
    terminal.enter("txt_Company_Name", "");
    terminal.click("btm_Save");
    must(terminal.waitForNotice(), "the refusal of an empty company name");
    terminal.shot(pictures / "refused.png");
    terminal.key("Return");
    must(terminal.noticeGone() && terminal.waitForPage(0), "page 0 with the focus on the field");
    terminal.shot(pictures / "refused_focus.png");
    terminal.click("btm_Back_Menu");
    must(terminal.waitForNotice(), "the question before leaving");
    terminal.shot(pictures / "leave.png");
    terminal.kill();
}

}  // namespace

int main(int argc, char* argv[]) {
    if (argc < 4) {
        std::cerr << "operator session|shots OFFICE PICTURES [ARGUMENT]\n";
        return 2;
    }
    const std::string work = argv[1];
    const std::filesystem::path pictures = argv[3];
    const std::string argument = argc > 4 ? argv[4] : "000004601,1,0";
    try {
        std::filesystem::create_directories(pictures);
        const desk::VirtualDisplay display;
        const Office office = Office::standing(argv[2]);
        Terminal terminal(office, display.name(), "DESK-01");
        (work == "shots" ? shots : session)(terminal, office, argument, pictures);
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << "operator: " << failure.what() << "\n";
        return 1;
    }
}
