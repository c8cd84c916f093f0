// immediate_input FOLDER RUNS: operates the program without pauses. After each message, search and dialog the next
// input follows the painting of the page at once. Each run uses a program that has just started. An input without
// effect counts as lost. FOLDER receives the office.
#include <cstdlib>
#include <iostream>
#include <stdexcept>

#include "ui_driver.h"

namespace {

using ui_driver::Spot;

constexpr const char* kNotice = "会社情報設定";
constexpr const char* kMiddle = "txt_Takken_Syunin_Name";

void require(bool done, const std::string& what) {
    if (!done) {
        throw std::runtime_error(what);
    }
}

class FastDriver {
public:
    FastDriver(const std::string& display, const ui_driver::Office& office)
        : office_(office), probe_(display), terminal_(office, display, "DESK-01") {}

    void work(const std::string& number) {
        start();
        saveTwice(number);
        openTwice("btm_SearchOfficeAddress", "住所検索");
        openTwice("btm_ChangePW", "パスワード変更");
    }
    void stop() { terminal_.kill(); }

private:
    void start() {
        office_.change("delete from TBL_LOCK");
        probe_.startTiming();
        terminal_.start("000004601,1,0");
        require(terminal_.waitForPage(0), "the page");
        probe_.settled("the page", [] { return true; });
        middle_ = onPage(kMiddle);
        colour_ = probe_.colourAt(middle_);
    }
    Spot onPage(const std::string& control) {
        require(terminal_.waitForPage(0), "the page");
        return terminal_.onScreen(control);
    }
    void clickAt(Spot spot) {
        probe_.moveTo(spot);
        probe_.click();
    }
    /// Opens a window with a click, closes it with a key and waits until a place below it is painted as before.
    void openAndClose(Spot button, const std::string& title, const std::string& key) {
        clickAt(button);
        require(terminal_.waitForWindow(title), "the click that opens " + title);
        require(ui_driver::eventually([&] { return terminal_.frontTitle() == title; }), "the focus of " + title);
        probe_.key(key);
        probe_.waitForColourAt(middle_, colour_);
    }
    /// Types the number right after the first message has closed. The window manager delivers a click later than a key,
    /// so the keys wait until the field shows its focus.
    void saveTwice(const std::string& number) {
        const Spot field = onPage("txt_Address_number");
        const Spot save = onPage("btm_Save");
        openAndClose(save, kNotice, "Return");
        clickAt(field);
        probe_.waitForPaintingAt(field);
        probe_.key("ctrl+a");
        for (const char digit : number) {
            probe_.key(std::string(1, digit));
        }
        openAndClose(save, kNotice, "Return");
        const std::string stored =
            office_.ask("select ADDRESS_NUMBER from TBL_CUSTOMER_INFO where USER_ID = '000004601'");
        require(stored == number, "the typed " + number + ": " + stored);
    }
    void openTwice(const std::string& button, const std::string& title) {
        const Spot spot = onPage(button);
        openAndClose(spot, title, "Escape");
        openAndClose(spot, title, "Escape");
    }

    const ui_driver::Office& office_;
    ui_driver::ScreenProbe probe_;
    ui_driver::Terminal terminal_;
    /// A place that every window covers, and its colour while it is not covered.
    Spot middle_;
    unsigned long colour_ = 0;
};

int lostIn(int runs, FastDriver& clerk) {
    int lost = 0;
    for (int run = 0; run < runs; ++run) {
        try {
            clerk.work(std::to_string(10 + run % 90));
        } catch (const std::runtime_error& failure) {
            ++lost;
            std::cout << "run " << run << " lost " << failure.what() << std::endl;
        }
        clerk.stop();
    }
    return lost;
}

}  // namespace

int main(int argc, char* argv[]) {
    if (argc != 3) {
        std::cerr << "immediate_input FOLDER RUNS\n";
        return 2;
    }
    const std::string folder = argv[1];
    const ui_driver::VirtualDisplay display;
    const ui_driver::ServerProcess server(folder + "/server");
    const ui_driver::Office office(folder + "/office", server.port());
    FastDriver clerk(display.name(), office);
    const int runs = std::atoi(argv[2]);
    const int lost = lostIn(runs, clerk);
    std::cout << "input runs=" << runs << " lost=" << lost << "\n";
    return lost == 0 ? 0 : 1;
}
