#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <iostream>
#include <string_view>
#include <vector>

#include "adapters/machine/own_process.h"
#include "keeper.h"
#include "version.h"

namespace {

using namespace orv;

constexpr const char* kFooter =
    "STORE is the office's ORVESTATE.MDB: the database itself, or the text that names its server.\n"
    "Exit status: 0 done, nothing found; 1 something found, or not confirmed; 2 wrong use; 3 failed, nothing changed.";

struct Argument {
    const char* name = nullptr;
    const char* text = nullptr;
    bool isOptional = false;
};

constexpr Argument kStore = {"STORE", "the office's store"};

struct Command {
    const char* name;
    const char* text;
    Argument store;
    Argument other;
    StoreReport (*run)(const Options& options);
    std::vector<const char*> flags;  // in addition to --json
};

const auto kCommands = std::to_array<Command>({
    {"create", "Create a store with its tables and master lists", kStore, {}, createStore, {}},
    {"check", "Check for damage, missing rows, orphans and unknown words; list the locks", kStore, {}, checkStore, {}},
    {"status",
     "Show version, kind, size, companies, locks and last backup",
     kStore,
     {"FOLDER", "the nightly backups; without it BKUP of the office", true},
     showStatus,
     {}},
    {"unlock",
     "Free the companies that a computer holds",
     kStore,
     {"COMPUTER", "its name, as check shows it"},
     unlockStore,
     {"--yes"}},
    {"backup", "Write a snapshot of the store to a new file", kStore, {"FILE", "the file to create"}, backUpStore, {}},
    {"nightly",
     "Back up the store, keep 7 daily and 4 weekly backups, and check it",
     kStore,
     {"FOLDER", "the folder of the backups; without it BKUP of the office", true},
     runNightly,
     {}},
    {"restore",
     "Replace the content of the store by a backup",
     kStore,
     {"FILE", "the backup"},
     restoreStore,
     {"--yes"}},
    {"copy",
     "Copy the office's tables to another store of either kind",
     kStore,
     {"TARGET", "the store to fill"},
     copyStore,
     {"--replace"}},
    {"upgrade",
     "Add the columns that a newer version of the program needs",
     kStore,
     {"FILE", "the backup to write first", true},
     upgradeStore,
     {}},
    {"import",
     "Import an older install's Jet file; without TARGET, only check it",
     {"FILE", "the Jet file"},
     {"TARGET", "the store to fill", true},
     importJet,
     {"--replace", "--salvage"}},
    {"support",
     "Collect versions, settings, logs and a check of an office for the support, without passwords",
     {"FILE", "the archive to create, such as support.tar.gz"},
     {"OFFICE", "the folder of the office; without it the present folder", true},
     writeSupportFile,
     {}},
});

struct Flag {
    const char* name;
    const char* text;
    bool Options::*value;
};

constexpr auto kFlags = std::to_array<Flag>({
    {"--json", "print the report as JSON", &Options::json},
    {"--yes", "do not ask for confirmation", &Options::yes},
    {"--replace", "delete the companies that the target contains", &Options::replace},
    {"--salvage", "import the readable part of a damaged file", &Options::salvage},
});

void add(CLI::App& app, const Argument& argument, std::string& value) {
    if (argument.name != nullptr) {
        app.add_option(argument.name, value, argument.text)->required(!argument.isOptional);
    }
}

bool accepts(const Command& command, const Flag& flag) {
    return flag.value == &Options::json ||
           std::ranges::any_of(command.flags, [&](std::string_view name) { return name == flag.name; });
}

void add(CLI::App& app, const Command& command, Options& options, const Command*& chosen) {
    CLI::App* sub = app.add_subcommand(command.name, command.text);
    add(*sub, command.store, options.store);
    add(*sub, command.other, options.other);
    for (const Flag& flag : kFlags) {
        if (accepts(command, flag)) {
            sub->add_flag(flag.name, options.*flag.value, flag.text);
        }
    }
    sub->callback([&chosen, &command] { chosen = &command; });
}

int print(const StoreReport& report, const Options& options) {
    // A name in a damaged file can end in the middle of a character, which must not make the report fail. The output is
    // ASCII only, so that no character of a row can control the terminal.
    const auto asJson = [&] { return report.facts.dump(2, ' ', true, nlohmann::json::error_handler_t::replace); };
    std::cout << (options.json ? asJson() + "\n" : report.lines) << std::flush;
    return static_cast<int>(report.ending);
}

int reportFailure(const Options& options, const std::string& text, const std::string& code) {
    StoreReport report;
    report.ending = Ending::Failed;
    report.facts = {{"failure", {{"text", text}, {"code", code}}}};
    std::cerr << "orv_store: " << printable(text) << (code.empty() ? "" : " [" + code + "]") << std::endl;
    return options.json ? print(report, options) : static_cast<int>(report.ending);
}

int run(const Command& command, const Options& options) {
    try {
        return print(command.run(options), options);
    } catch (const std::exception& failure) {
        return reportFailure(options, failure.what(), errorCode(failure));
    }
}

}  // namespace

int main(int argc, char* argv[]) {
    keepMemoryPrivate();
    writeUtf8ToConsole();
    CLI::App app("Maintains the store of an office: the database file, or the database on a server.", "orv_store");
    app.footer(kFooter);
    app.set_version_flag("--version", "orv_store " + std::string(kVersion));
    app.require_subcommand(1);
    Options options;
    const Command* chosen = nullptr;
    for (const Command& command : kCommands) {
        add(app, command, options, chosen);
    }
    try {
        std::vector<std::string> arguments = programArguments(argc, argv);
        std::ranges::reverse(arguments);  // as the library reads them
        app.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : static_cast<int>(Ending::Usage);
    }
    return run(*chosen, options);
}
