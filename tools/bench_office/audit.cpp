#include "audit.h"

#include <algorithm>
#include <set>

namespace bench {
namespace {

/// The saves of one company, in the order in which they ended.
struct History {
    std::vector<Entry> saves;
    std::set<int> unsure;
};

std::map<std::string, History> collectHistories(const std::vector<Entry>& entries) {
    std::map<std::string, History> histories;
    for (const Entry& entry : entries) {
        if (entry.deed == Deed::Saved) {
            histories[entry.what].saves.push_back(entry);
        } else if (entry.deed == Deed::Unsure) {
            histories[entry.what].unsure.insert(entry.value);
        }
    }
    for (auto& [company, history] : histories) {
        std::ranges::sort(history.saves, {}, [](const Entry& entry) { return entry.time.to; });
    }
    return histories;
}

/// Returns how many counts from `from` to below `to` no unsure save can have written.
int unexplained(const History& history, int from, int to) {
    int missing = 0;
    for (int value = from; value < to; ++value) {
        missing += history.unsure.contains(value) ? 0 : 1;
    }
    return missing;
}

/// True if another terminal that saved the company was locking and loading it at the same moment.
bool hadRival(const History& history, const Entry& save) {
    return std::ranges::any_of(history.saves, [&](const Entry& other) {
        return other.taken.from != save.taken.from && other.taken.meets(save.taken);
    });
}

void follow(const History& history, int stored, Losses& losses) {
    int count = 0;
    for (const Entry& save : history.saves) {
        const int overwritten = std::max(0, count - save.value + 1);
        int& kind = hadRival(history, save) ? losses.raced : losses.lost;
        kind += overwritten + unexplained(history, count + 1, save.value);
        count = save.value;
    }
    losses.lost += std::max(0, count - stored) + unexplained(history, count + 1, stored + 1);
}

}  // namespace

Losses audit(const std::vector<Entry>& entries, const std::map<std::string, int>& stored) {
    Losses losses;
    for (const auto& [company, history] : collectHistories(entries)) {
        const auto found = stored.find(company);
        follow(history, found == stored.end() ? 0 : found->second, losses);
    }
    return losses;
}

}  // namespace bench
