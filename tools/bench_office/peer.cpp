#include <array>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "process.h"
#include "working_day.h"

namespace bench {
namespace {

struct Event {
    const char* name;
    Deed deed;
};

constexpr auto kEvents = std::to_array<Event>(
    {{"open", Deed::Opened}, {"switch", Deed::Switched}, {"save", Deed::Saved}, {"leave", Deed::Opened}});

int countOf(const WorkingDay& day, Deed deed) {
    const auto found = day.deeds.find(deed);
    return found == day.deeds.end() ? 0 : found->second;
}

/// Adds the scripts with their weights and returns the sum of the weights.
int addScripts(std::vector<std::string>& command, const fs::path& folder, const WorkingDay& like) {
    int sum = 0;
    for (const Event& event : kEvents) {
        const int weight = countOf(like, event.deed);
        for (int number = 1; weight > 0; ++number) {
            const fs::path script = folder / (std::string(event.name) + "_" + std::to_string(number) + ".sql");
            if (!fs::exists(script)) {
                break;
            }
            command.insert(command.end(), {"-f", script.string() + "@" + std::to_string(weight)});
            sum += weight;
        }
    }
    return sum;
}

std::string contentOf(const fs::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

double rateIn(const std::string& report) {
    const std::string label = "tps = ";
    const std::size_t at = report.find(label);
    if (at == std::string::npos) {
        throw std::runtime_error("pgbench: " + report);
    }
    return std::stod(report.substr(at + label.size()));
}

}  // namespace

Peer::Peer(const Site& site, fs::path folder, std::string server, int companies)
    : folder_(std::move(folder)), server_(std::move(server)) {
    fs::create_directories(folder_);
    desk::Process scribe({BENCH_TERMINAL, site.terminal(1), (folder_ / "ledger").string(), std::to_string(companies),
                          "--statements", folder_.string()},
                         {{"ORV_COMPUTER_NAME", "DESK-"}});
    if (scribe.wait(std::chrono::seconds(30)) != 0) {
        throw std::runtime_error("the statements could not be written down");
    }
}

double Peer::savesPerSecond(int terminals, int seconds, const WorkingDay& like) const {
    const std::string number = std::to_string(terminals);
    const fs::path report = folder_ / "report";
    std::vector<std::string> command{"sh",
                                     "-c",
                                     "exec \"$@\" >\"$0\"",
                                     report.string(),
                                     POSTGRES_FOLDER "/pgbench",
                                     "-C",
                                     "-n",
                                     "-c",
                                     number,
                                     "-j",
                                     number,
                                     "-T",
                                     std::to_string(seconds),
                                     "-D",
                                     "id=100000001"};
    const int sum = addScripts(command, folder_, like);
    command.push_back(server_);
    desk::Process peer(command);
    if (peer.wait(std::chrono::seconds(seconds + 60)) != 0) {
        throw std::runtime_error("pgbench failed");
    }
    return rateIn(contentOf(report)) * countOf(like, Deed::Saved) / sum;
}

}  // namespace bench
