#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace bench {

/// Milliseconds that one run of `work` takes.
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

/// Runs both in turn, so that what else the machine does meets both; the medians. `prepare` goes before each round and
/// is not measured.
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

Result start(const std::string& folder);
Result save(const std::string& folder);
/// The page of the photos, opened in a real window with `photo` in both slots.
void window(const std::string& folder, const std::string& photo);
/// Works all pages for so long, or for 10,000 page changes, 1,000 switches and 1,000 saves (0 minutes), and prints how
/// much memory and time that came to need.
void soak(const std::string& folder, double minutes);
/// Prints the time from each kind of input to the last painting that follows it, in the real program, at two scales and
/// with few and many companies. `photo` is chosen and shown.
void clicks(const std::string& folder, const std::string& photo);
/// `companies`: how many the store holds.
Result list(const std::string& folder, int companies);

}  // namespace bench
