#include <cstdio>
#include <filesystem>
#include <map>
#include <stdexcept>

#include "bench.h"
#include "bench_office.h"
#include "pages/handlers/page_table.h"
#include "ui_driver.h"

namespace bench {
namespace {

constexpr const char* kArgument = "000004601,1,0";
constexpr const char* kPhoto = "large.jpg";
// The number of companies in the sample, and in a large office.
constexpr int kSampleCompanies = 6;
constexpr int kManyCompanies = 20000;

constexpr int kStarts = 10;
constexpr int kPageChanges = 30;
constexpr int kKeys = 30;
constexpr int kSwitches = 12;
constexpr int kSaves = 12;
constexpr int kDialogs = 8;
constexpr int kPhotos = 8;

double percentile95(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() * 95 / 100];
}

/// Operates the program in a real window as a clerk does and records the times.
class TimedClerk {
public:
    TimedClerk(const ui_driver::VirtualDisplay& display, const ui_driver::Office& office, const std::string& scale)
        : office_(office),
          probe_(display.name()),
          terminal_(office, display.name(), "DESK-01", {{"ORV_SCALE", scale}}) {}

    const std::map<std::string, std::vector<double>>& times() const { return times_; }

    void start() {
        for (int i = 0; i < kStarts; ++i) {
            if (terminal_.running()) {
                terminal_.kill();
                arrived(terminal_.isWindowGone("000004601 .*"));
            }
            office_.change("delete from TBL_LOCK where USER_ID = '000004601'");
            probe_.startTiming();
            terminal_.start(kArgument);
            note("start", "000004601");
        }
        arrived(terminal_.waitForPage(0));
    }
    void changePages() {
        for (int i = 1; i <= kPageChanges; ++i) {
            goTo(i % 5);
        }
    }
    void switchCompanies() {
        for (int i = 0; i < kSwitches; ++i) {
            clickAt("cbo_User_Id");
            wait();
            probe_.key(i % 2 == 0 ? "Down" : "Up");
            wait();
            probe_.key("Return");
            wait("会社情報設定");
            probe_.key("Left");
            wait();
            probe_.key("Return");
            note("switch", i % 2 == 0 ? "000004602" : "000004601");
        }
    }
    void typeKeys() {
        clickAt("txt_Mail_Address");
        wait();
        for (int i = 0; i < kKeys; ++i) {
            probe_.key(i % 2 == 0 ? "a" : "BackSpace");
            note("key", "");
        }
    }
    void save() {
        for (int i = 0; i < kSaves; ++i) {
            clickAt("btm_Save");
            note("save", "会社情報設定");
            probe_.key("Return");
            wait("000004601");
        }
    }
    void choosePhotos() {
        goTo(2);
        for (int i = 0; i < kDialogs; ++i) {
            openDialog();
            probe_.key("Escape");
            wait("000004601");
        }
        for (int i = 0; i < kPhotos; ++i) {
            openDialog();
            arrived(terminal_.waitForWindow("ファイルを開く"));
            terminal_.typeAscii(kPhoto);
            wait();
            probe_.key("Return");
            note("photo", "画像変換確認");
            probe_.key("Escape");
            wait("000004601");
        }
    }

private:
    static void arrived(bool there) {
        if (!there) {
            throw std::runtime_error("the page does not appear");
        }
    }
    /// Waits until the window with that text in its title is in front.
    double wait(const std::string& title = "") {
        return probe_.settled(title, [&] { return terminal_.frontTitle().find(title) != std::string::npos; });
    }
    void note(const std::string& figure, const std::string& title) { times_[figure].push_back(wait(title)); }
    /// Moves the pointer before the measurement starts, because the move can repaint the control.
    void clickAt(const std::string& control, int index = -1) {
        probe_.moveTo(terminal_.onScreen(control, index));
        probe_.click();
    }
    void goTo(int page) {
        clickAt("btm_ChangePage", page);
        note("page_change", std::string(orv::kPages.at(static_cast<std::size_t>(page)).name));
        arrived(terminal_.waitForPage(page));
    }
    void openDialog() {
        arrived(terminal_.waitForPage(2));
        clickAt("btm_PhotoSelect", 0);
        note("open_dialog", "ファイルを開く");
    }

    const ui_driver::Office& office_;
    ui_driver::ScreenProbe probe_;
    ui_driver::Terminal terminal_;
    std::map<std::string, std::vector<double>> times_;
};

void measure(const std::string& folder, const std::string& photo, const std::string& scale, int companies) {
    const ui_driver::VirtualDisplay display("2560x1600");
    const ui_driver::ServerProcess server(folder + "/clicks-server");
    const ui_driver::Office office(folder + "/clicks-office", server.port());
    addCompanies(office, companies - kSampleCompanies);
    std::filesystem::copy_file(photo, office.drive() / "ORV/PHOTO" / kPhoto);
    TimedClerk clerk(display, office, scale);
    clerk.start();
    clerk.changePages();
    clerk.switchCompanies();
    clerk.typeKeys();
    clerk.save();
    clerk.choosePhotos();
    for (const auto& [figure, times] : clerk.times()) {
        std::printf("clicks scale=%s companies=%d %s median=%.1f p95=%.1f unit=ms runs=%zu\n", scale.c_str(), companies,
                    figure.c_str(), median(times), percentile95(times), times.size());
    }
    std::fflush(stdout);
}

}  // namespace

void measureClicks(const std::string& folder, const std::string& photo) {
    for (const int companies : {kSampleCompanies, kManyCompanies}) {
        for (const char* scale : {"1", "2"}) {
            measure(folder, photo, scale, companies);
        }
    }
}

}  // namespace bench
