#include <charconv>
#include <exception>
#include <iostream>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "suite_server.h"

namespace {

constexpr std::string_view kUsage =
    "usage: suite_server --port N --folder DIR [--misbehave HOW]...\n"
    "\n"
    "A stand-in of the suite's server on 127.0.0.1. Port 0 is any free one; it is printed and written to DIR/port.\n"
    "DIR/requests.log has one line per request; photos are kept in DIR/photos, companies in DIR/companies.\n"
    "\n"
    "HOW is \"well\" or SERVICE:KIND, and adds to earlier instructions:\n"
    "  SERVICE    prepare, photos or companies\n"
    "  KIND       well          no faults\n"
    "             status=N      answer with N (200..599) and do nothing\n"
    "             delay=MS      do the work and answer late\n"
    "             cut           do the work, close the connection in the middle of the answer\n"
    "             garbage       do the work, answer with something else\n"
    "             gone=N        the server ends at the Nth request there from now on\n"
    "             id-length=N   (companies) answer with an id of N characters\n"
    "POST /misbehave accepts the same at any time, one per line; an empty body removes all faults.\n";

struct Options {
    int port = 0;
    std::string folder;
    std::vector<std::string> misbehaviours;
};

bool parsePort(std::string_view text, int& port) {
    const char* end = text.data() + text.size();
    return std::from_chars(text.data(), end, port).ptr == end && port >= 0 && port <= 65535;
}

/// Returns nothing for an invalid command line.
std::optional<Options> parseOptions(std::span<char*> arguments) {
    Options options;
    if (arguments.size() % 2 != 0) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < arguments.size(); i += 2) {
        const std::string_view name = arguments[i];
        const std::string value = arguments[i + 1];
        if (name == "--folder") {
            options.folder = value;
        } else if (name == "--misbehave") {
            options.misbehaviours.push_back(value);
        } else if (name != "--port" || !parsePort(value, options.port)) {
            return std::nullopt;
        }
    }
    return options.folder.empty() ? std::nullopt : std::optional(options);
}

int run(const Options& options) {
    orv::SuiteServer server(options.folder);
    for (const auto& instruction : options.misbehaviours) {
        if (!server.instruct(instruction)) {
            std::cerr << "suite_server: invalid instruction: " << instruction << '\n' << kUsage;
            return 2;
        }
    }
    const int port = server.bind(options.port);
    if (port < 0) {
        std::cerr << "suite_server: port " << options.port << " is not available\n";
        return 1;
    }
    std::cout << port << std::endl;
    server.serve();
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    const std::span<char*> all(arguments + 1, static_cast<std::size_t>(count - 1));
    if (all.size() == 1 && std::string_view(all[0]) == "--help") {
        std::cout << kUsage;
        return 0;
    }
    const auto options = parseOptions(all);
    if (!options) {
        std::cerr << kUsage;
        return 2;
    }
    try {
        return run(*options);
    } catch (const std::exception& failure) {
        std::cerr << "suite_server: " << failure.what() << '\n';
        return 1;
    }
}
