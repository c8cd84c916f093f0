#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <utility>

#include "bench.h"
#include "bench_office.h"
#include "pages/forms/page_set.h"

namespace bench {
namespace {

/// Measures the longest time during which the window handles no event.
class Heartbeat {
public:
    Heartbeat() {
        since_.start();
        QObject::connect(&timer_, &QTimer::timeout, [this] { longest_ = std::max(longest_, beat()); });
        timer_.start(0);
    }
    /// Returns the longest such time in the next `length` milliseconds.
    double longestIn(int length) {
        beat();
        longest_ = 0;
        QElapsedTimer whole;
        for (whole.start(); whole.elapsed() < length;) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        return longest_;
    }

private:
    double beat() {
        const qint64 before = std::exchange(last_, since_.nsecsElapsed());
        return static_cast<double>(last_ - before) / 1e6;
    }

    QTimer timer_;
    QElapsedTimer since_;
    qint64 last_ = 0;
    double longest_ = 0;
};

}  // namespace

void measureWindow(const std::string& folder, const std::string& photo) {
    const ui_driver::Office office(folder + "/window-office", "1");
    for (const std::string slot : {"1", "2"}) {
        std::filesystem::copy_file(photo,
                                   office.drive() / "ORV/IMG" / slot / ("000004601COS00000000_0" + slot + ".jpg"),
                                   std::filesystem::copy_options::overwrite_existing);
    }
    const orv::Application application("bench");
    const RunningProgram program(office, "000004601,1,0");
    Heartbeat heartbeat;
    heartbeat.longestIn(500);
    const auto changed = [&](orv::PageForm& from, std::size_t to) {
        QTimer::singleShot(0, [&from, to] { from.btm_ChangePage[to].press(); });
        return heartbeat.longestIn(1500);
    };
    // The size at which the picture of a slot is decoded on any screen.
    const QSize decodedSize = QImageReader(QString::fromStdString(photo)).size() / 8;
    std::vector<double> stretches;
    std::vector<double> decodings;
    for (int i = 0; i < 5; ++i) {
        stretches.push_back(changed(orv::page<orv::frm_CompInp0>(), 2));
        decodings.push_back(2 * timed([&] { decoded(photo, decodedSize); }));
        changed(orv::page<orv::frm_CompInp2>(), 0);
    }
    const Result result{median(stretches), median(decodings)};
    print("window", result);
    std::printf("  page 2 keeps the window waiting %.0f ms beyond the scaled decoding of both photos\n",
                result.ours - result.peer);
}

}  // namespace bench
