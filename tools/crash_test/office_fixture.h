#pragma once

#include <chrono>
#include <filesystem>
#include <initializer_list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "scenario.h"
#include "store_observer.h"
#include "ui_driver.h"

namespace crash_test {

/// A kind of company, with the store before and during the work.
struct CompanyKind {
    const char* name;
    const char* company;
    const char* before;
    /// Statements for the store after the pages are edited.
    const char* edited;
    bool replacesPhotos;
};

/// Name and fingerprint.
using Files = std::map<std::string, std::string>;
/// The name under which a journal next to the store is listed.
inline constexpr const char* kJournal = "MDB/journal";

/// Time limits: a short one, because many silent servers are tested, and one that no stalled machine exceeds.
inline constexpr std::chrono::milliseconds kHasty{500};
inline constexpr std::chrono::milliseconds kPatient{30000};

/// An office in which a company can be reset, and whose state can be read without the program.
class OfficeFixture {
public:
    OfficeFixture(const std::filesystem::path& folder, const std::string& serverPort);

    /// Uses this store from now on and writes its text to the store's file.
    void reachServer(const std::string& text);
    /// Sets how long the program waits for an answer of the suite's server; initially kPatient.
    void giveUpAfter(std::chrono::milliseconds limit);
    std::chrono::milliseconds limit() const { return limit_; }
    /// Replaces a text everywhere in the settings.
    void changeSettings(const std::string& usual, const std::string& other) const;
    void begin(const CompanyKind& kind);
    void comeBack();
    void editCompany() { observer_->run(kind_->edited); }

    /// Returns the folders in which failures are injected, in addition to the connections. A kill matters where the
    /// scenario writes. A failing call also matters where it only reads: settings and help file. Later scenarios omit
    /// folders with known results. Photos do not affect the settings, and on a server the other files behave as with a
    /// file.
    std::vector<std::string> watched(bool kills) const;
    /// Each `round` has its own texts and photos.
    Scenario scenario(const std::string& company, int round) const;
    std::string company() const { return kind_->company; }
    const CompanyKind& kind() const { return *kind_; }

    /// Returns the three tables, with the number assigned by the server as "#".
    std::string state();
    std::string damage() { return observer_->damage(); }
    /// Returns the first column of the first row, or "".
    std::string one(const std::string& sql);
    /// Returns the numbers of companies that did not exist before.
    std::vector<std::string> newNumbers();
    /// Returns the locks that did not exist before.
    std::vector<std::string> ownLocks();
    /// Returns the files in the folders that a save uses.
    Files files() const;
    /// Returns the records of the err log without line ends, as bytes. `isWhole` is false if the last one has no line
    /// end.
    std::vector<std::string> log(bool& isWhole) const;
    std::vector<std::string> report() const;

private:
    std::vector<std::string> folders(std::initializer_list<const char*> names) const;
    std::filesystem::path orv() const { return office_.drive() / "ORV"; }
    void copyFolders(const std::filesystem::path& from, const std::filesystem::path& to) const;
    void makePhotos() const;

    std::filesystem::path folder_;
    ui_driver::Office office_;
    std::unique_ptr<StoreObserver> observer_;
    std::chrono::milliseconds limit_ = kPatient;
    bool isServed_ = false;
    const CompanyKind* kind_ = nullptr;
    std::set<std::string> known_;
};

}  // namespace crash_test
