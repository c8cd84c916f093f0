#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

#include "adapters/store/store_connection.h"
#include "adapters/words/printable.h"

namespace orv {

// Shared by the commands of the tool.

enum class Ending : int { Done = 0, Findings = 1, Usage = 2, Failed = 3 };

/// The reason for a failed command, unless a store gave its own.
class KeeperFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct Options {
    std::string store;
    std::string other;     // the second file or store, or the computer
    bool yes = false;      // asks nothing
    bool replace = false;  // deletes the target's content
    bool salvage = false;  // imports the readable part of a damaged file
    bool json = false;
};

/// The findings and actions of a command, as JSON and as lines for a person.
struct StoreReport {
    nlohmann::ordered_json facts = nlohmann::ordered_json::object();
    std::string lines;
    Ending ending = Ending::Done;

    void say(const std::string& line) { lines += printable(line) + "\n"; }
};

StoreReport createStore(const Options& options);
StoreReport checkStore(const Options& options);
StoreReport unlockStore(const Options& options);
StoreReport backUpStore(const Options& options);
StoreReport restoreStore(const Options& options);
StoreReport copyStore(const Options& options);
StoreReport upgradeStore(const Options& options);
StoreReport importJet(const Options& options);
StoreReport showStatus(const Options& options);
StoreReport runNightly(const Options& options);
StoreReport writeSupportFile(const Options& options);

/// Returns the code that the program logs for the failure, or "" if it has none.
std::string errorCode(const std::exception& failure);

/// Opens a store of either kind.
std::unique_ptr<StoreConnection> openStore(const std::string& path, StoreAccess access = StoreAccess::ReadWrite);
bool isEmbedded(const std::string& path);
bool storeExists(const std::string& path);

/// Returns the number of rows.
std::int64_t count(StoreConnection& store, const std::string& table);

/// Adds the locks to the report, each with its computer, its time and its age in hours.
void listLocks(StoreConnection& store, StoreReport& report);

/// Fails if an existing target contains companies and `replace` is not set.
void requireMayFill(const std::string& target, const Options& options);

/// Creates a file in a private folder next to its place and moves it there when it is complete. It gets the permissions
/// of the file `rightsFrom`, or those of its folder if that is empty. A file created at the place meanwhile is not
/// replaced.
void makeWhole(const std::string& path, const std::string& rightsFrom,
               const std::function<void(const std::string& newFile)>& make);

/// Asks the person at the terminal. False if there is none.
bool agreed(const Options& options, const std::string& question);

/// Shows a progress text if a person is reading.
void reportProgress(const Options& options, const std::string& line);

}  // namespace orv
