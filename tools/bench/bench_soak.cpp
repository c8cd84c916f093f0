#include <malloc.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QTimer>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "bench.h"
#include "bench_office.h"
#include "core/record/globals.h"
#include "pages/forms/page_set.h"
#include "platform/forms/form_host.h"

namespace bench {
namespace {

constexpr int kChangesARound = 10;
constexpr std::size_t kWarmUp = 10;  // rounds, with a hundred page changes
constexpr std::size_t kRounds = 1000;
constexpr std::size_t kParts = 10;

double heapKilobytes() { return static_cast<double>(mallinfo2().uordblks) / 1024; }

double residentKilobytes() {
    std::ifstream sizes("/proc/self/statm");
    long all = 0;
    long resident = 0;
    sizes >> all >> resident;
    return static_cast<double>(resident * (sysconf(_SC_PAGESIZE) / 1024));
}

double cpuMilliseconds() { return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

orv::PageForm& pageOnScreen() { return dynamic_cast<orv::PageForm&>(*orv::services().forms->activeForm()); }

/// The memory in use after a round, and the cost of its page changes.
struct Reading {
    double heap = heapKilobytes();
    double resident = residentKilobytes();
    double changeCpu = 0;
};

/// Operates the program from its own event loop, one action per event, like an operator. A closed page is then deleted
/// before the next one opens.
class Clerk : public QObject {
public:
    Clerk(const RunningProgram& program, std::function<bool(std::size_t)> wantsMore)
        : program_(program), wantsMore_(std::move(wantsMore)) {
        connect(&timer_, &QTimer::timeout, this, [this] { act(); });
        timer_.start(0);
    }
    const std::vector<Reading>& readings() const { return readings_; }

private:
    void act() {
        if (step_ == 0) {
            cpu_ = cpuMilliseconds();
        }
        if (step_ < kChangesARound) {
            changePage();
        } else if (step_ == kChangesARound) {
            readings_.push_back({.changeCpu = (cpuMilliseconds() - cpu_) / kChangesARound});
            switchCompany();
        } else {
            save();
        }
        step_ = step_ == kChangesARound + 1 ? endRound() : step_ + 1;
    }

    void changePage() {
        orv::PageForm& page = pageOnScreen();
        page.btm_ChangePage[static_cast<std::size_t>((page.number + 1) % orv::kPageCount)].press();
        QCoreApplication::processEvents();
    }
    void switchCompany() {
        pageOnScreen().cbo_User_Id.setText(orv::tCustomerInfo.USER_ID == "000004601" ? "000004602" : "000004601");
    }
    void save() {
        if (orv::tCustomerInfo.USER_ID != "000004601") {
            switchCompany();
        }
        pageOnScreen().btm_Save.press();
        if (program_.messages().last() != "COS05574") {
            throw std::runtime_error("the save did not end");
        }
    }
    int endRound() {
        if (!wantsMore_(readings_.size())) {
            timer_.stop();
            QCoreApplication::exit();
        }
        return 0;
    }

    const RunningProgram& program_;
    std::function<bool(std::size_t)> wantsMore_;
    QTimer timer_;
    std::vector<Reading> readings_;
    int step_ = 0;
    double cpu_ = 0;
};

std::vector<Reading> workedFor(const std::string& folder, const std::function<bool(std::size_t)>& wantsMore) {
    const ui_driver::VirtualDisplay display;
    setenv("DISPLAY", display.name().c_str(), 1);
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    const ui_driver::ServerProcess server(folder + "/soak-server");
    const ui_driver::Office office(folder + "/soak-office", server.port());
    const orv::Application application("bench");
    const RunningProgram program(office, "000004601,1,0");
    const Clerk clerk(program, wantsMore);
    application.run();
    return clerk.readings();
}

double middle(const std::vector<Reading>& readings, std::size_t from, std::size_t to, double Reading::*figure) {
    std::vector<double> values;
    for (std::size_t i = from; i < to; ++i) {
        values.push_back(readings[i].*figure);
    }
    return median(values);
}

/// Prints the medians of ten equal parts of the run, and the growth from the first to the last.
void printCourse(const char* name, const char* unit, const std::vector<Reading>& readings, double Reading::*figure) {
    const std::size_t share = (readings.size() - kWarmUp) / kParts;
    std::vector<double> course;
    std::printf("%s", name);
    for (std::size_t part = 0; part < kParts; ++part) {
        const std::size_t from = kWarmUp + part * share;
        course.push_back(middle(readings, from, from + share, figure));
        std::printf(" %.2f", course.back());
    }
    std::printf(" growth=%.2f unit=%s\n", course.back() - course.front(), unit);
}

}  // namespace

void measureGrowth(const std::string& folder, double minutes) {
    const auto start = std::chrono::steady_clock::now();
    const std::vector<Reading> readings = workedFor(folder, [&](std::size_t rounds) {
        const std::chrono::duration<double, std::ratio<60>> passed = std::chrono::steady_clock::now() - start;
        return minutes > 0 ? passed.count() < minutes || rounds < 2 * kWarmUp + kParts : rounds < kRounds;
    });
    std::printf("soak changes=%zu switches=%zu saves=%zu\n", readings.size() * kChangesARound, readings.size(),
                readings.size());
    printCourse("soak_heap", "KB", readings, &Reading::heap);
    printCourse("soak_resident", "KB", readings, &Reading::resident);
    printCourse("soak_change_cpu", "ms", readings, &Reading::changeCpu);
}

}  // namespace bench
