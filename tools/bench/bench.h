#pragma once

#include <QImageReader>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace bench {

/// Returns the milliseconds that one run of `work` takes.
inline double timed(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

inline double median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

struct Result {
    double ours = 0;
    double peer = 0;
};

/// Runs both in turn, so that other load on the machine affects both, and returns the medians. `prepare` runs before
/// each round and is not measured.
inline Result alternately(
    int rounds, const std::function<void()>& ours, const std::function<void()>& peer,
    const std::function<void()>& prepare = [] {}) {
    std::vector<double> oursTimes;
    std::vector<double> peerTimes;
    for (int i = 0; i < rounds; ++i) {
        prepare();
        oursTimes.push_back(timed(ours));
        peerTimes.push_back(timed(peer));
    }
    return {median(oursTimes), median(peerTimes)};
}

inline void print(const std::string& name, const Result& result) {
    std::printf("%s ours=%.2f peer=%.2f ratio=%.2f unit=ms\n", name.c_str(), result.ours, result.peer,
                result.ours / result.peer);
}

/// Decodes a photo with the toolkit alone, which scales it while it decodes.
inline QImage decoded(const std::string& photo, QSize size) {
    QImageReader reader(QString::fromStdString(photo));
    reader.setScaledSize(size);
    return reader.read();
}

Result measureStart(const std::string& folder);
Result measureSave(const std::string& folder);
/// Opens the page of the photos in a real window with `photo` in both slots.
void measureWindow(const std::string& folder, const std::string& photo);
/// Operates all pages for that time. 0 minutes means 10,000 page changes, 1,000 switches and 1,000 saves. Prints the
/// growth of memory and of the time for a page change.
void measureGrowth(const std::string& folder, double minutes);
/// Prints the time from each kind of input to the last painting that follows it. Measures the real program at two
/// scales, with few and many companies. `photo` is chosen and shown.
void measureClicks(const std::string& folder, const std::string& photo);
/// `companies` is the number of companies in the store.
Result measureList(const std::string& folder, int companies);

}  // namespace bench
