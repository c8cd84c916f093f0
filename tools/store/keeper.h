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

// What the commands of the tool share.

enum class Ending : int { Done = 0, Findings = 1, Usage = 2, Failed = 3 };

/// Why a command can't be carried out, where no store has said so itself.
class KeeperFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct Options {
    std::string store;
    std::string other;     // the second file or store, or the computer
    bool yes = false;      // asks nothing
    bool replace = false;  // what the target holds goes
    bool salvage = false;  // takes what can be read of a damaged file
    bool json = false;
};

/// What a command has found and done: for programs, and line by line for a person.
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
StoreReport importJet(const Options& options);

/// Opens the store of either kind.
std::unique_ptr<StoreConnection> openStore(const std::string& path, StoreAccess access = StoreAccess::ReadWrite);
bool isEmbedded(const std::string& path);
bool stands(const std::string& path);

/// The number that a count yields.
std::int64_t count(StoreConnection& store, const std::string& table);

/// Fails where a target that stands holds companies and may not lose them.
void requireMayFill(const std::string& target, const Options& options);

/// Makes a file in a private folder next to its place and puts it there when it is whole, with the rights of the file
/// `rightsOf`, or of its folder where that is empty. One that stands at the place by then is not replaced.
void makeWhole(const std::string& path, const std::string& rightsOf,
               const std::function<void(const std::string& beside)>& make);

/// Asks the person at the terminal; no one there means no.
bool agreed(const Options& options, const std::string& question);

/// A word on the way, where a person is reading.
void progress(const Options& options, const std::string& line);

}  // namespace orv
