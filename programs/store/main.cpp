#include <sys/prctl.h>

#include <CLI/CLI.hpp>
#include <array>
#include <iostream>

#include "adapters/store/store_failure.h"
#include "keeper.h"

namespace {

using namespace orv;

constexpr const char* kFooter =
    "STORE is the office's ORVESTATE.MDB: the database itself, or the text that names its server.\n"
    "Exit status: 0 done, nothing found; 1 something found, or not confirmed; 2 wrong use; 3 failed, nothing changed.";

struct Command {
    const char* name;
    const char* text;
    const char* other;  // the name of the second argument; nullptr: none
    const char* otherText;
    StoreReport (*run)(const Options& options);
    bool asks;
    bool replaces;
    bool isImport = false;  // `path` is another program's file, and the store is optional
};

constexpr auto kCommands = std::to_array<Command>({
    {"create", "Create a store with its tables and master lists", nullptr, nullptr, createStore, false, false},
    {"check", "Check for damage, missing rows, orphans and unknown words; list the locks", nullptr, nullptr, checkStore,
     false, false},
    {"unlock", "Free the companies that a computer holds", "COMPUTER", "its name, as check shows it", unlockStore, true,
     false},
    {"backup", "Write a snapshot of the store to a new file", "FILE", "the file to create", backUpStore, false, false},
    {"restore", "Replace the content of the store by a backup", "FILE", "the backup", restoreStore, true, false},
    {"copy", "Copy the office's tables to another store of either kind", "TARGET", "the store to fill", copyStore,
     false, true},
    {"import", "Import an older install's Jet file; without TARGET, only check it", "TARGET", "the store to fill",
     importJet, false, true, true},
});

void add(CLI::App& app, const Command& command, Options& options, const Command*& chosen) {
    CLI::App* sub = app.add_subcommand(command.name, command.text);
    sub->add_option(command.isImport ? "FILE" : "STORE", options.store,
                    command.isImport ? "the Jet file" : "the office's store")
        ->required();
    if (command.other != nullptr) {
        sub->add_option(command.other, options.other, command.otherText)->required(!command.isImport);
    }
    sub->add_flag("--json", options.json, "print the report as JSON");
    if (command.asks) {
        sub->add_flag("--yes", options.yes, "do not ask for confirmation");
    }
    if (command.replaces) {
        sub->add_flag("--replace", options.replace, "delete the companies that the target contains");
    }
    if (command.isImport) {
        sub->add_flag("--salvage", options.salvage, "import the readable part of a damaged file");
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

int failed(const Options& options, const std::string& text, const std::string& code) {
    StoreReport report;
    report.ending = Ending::Failed;
    report.facts = {{"failure", {{"text", text}, {"code", code}}}};
    std::cerr << "orv_store: " << printable(text) << (code.empty() ? "" : " [" + code + "]") << std::endl;
    return options.json ? print(report, options) : static_cast<int>(report.ending);
}

int run(const Command& command, const Options& options) {
    try {
        return print(command.run(options), options);
    } catch (const StoreFailure& failure) {
        return failed(options, failure.description(), failure.code());
    } catch (const RunTimeError& failure) {
        return failed(options, failure.description(), std::to_string(failure.number()));
    } catch (const std::exception& failure) {
        return failed(options, failure.what(), "");
    }
}

}  // namespace

int main(int argc, char* argv[]) {
    ::prctl(PR_SET_DUMPABLE, 0);  // the memory contains passwords
    CLI::App app("Maintains the store of an office: the database file, or the database on a server.", "orv_store");
    app.footer(kFooter);
    app.require_subcommand(1);
    Options options;
    const Command* chosen = nullptr;
    for (const Command& command : kCommands) {
        add(app, command, options, chosen);
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : static_cast<int>(Ending::Usage);
    }
    return run(*chosen, options);
}
