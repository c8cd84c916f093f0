#pragma once

#include <chrono>
#include <filesystem>
#include <initializer_list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "desk.h"
#include "session.h"
#include "store_eye.h"

namespace prove {

/// The company that an operator works on, and what the store is before and while he does.
struct CompanyKind {
    const char* name;
    const char* company;
    const char* before;
    /// Done to the store once the pages are edited.
    const char* edited;
    bool replacesPhotos;
};

/// Name and fingerprint.
using Files = std::map<std::string, std::string>;
/// The name under which a journal beside the store is listed.
inline constexpr const char* kJournal = "MDB/journal";

/// Time limits: one that many silent servers cost little with, and one that no stalled machine misses.
inline constexpr std::chrono::milliseconds kHasty{500};
inline constexpr std::chrono::milliseconds kPatient{30000};

/// An office in which a company can be brought back to how it was, and what of it can be seen past the program.
class OfficeGround {
public:
    OfficeGround(const std::filesystem::path& folder, const std::string& serverPort);

    /// From now on the store is this one, and the file at its place says so.
    void reachServer(const std::string& text);
    /// How long the program waits for an answer of the suite's server; kPatient at first.
    void giveUpAfter(std::chrono::milliseconds limit);
    std::chrono::milliseconds limit() const { return limit_; }
    /// Everywhere in the settings.
    void changeSettings(const std::string& usual, const std::string& other) const;
    void begin(const CompanyKind& kind);
    void comeBack();
    void edited() { eye_->run(kind_->edited); }

    /// Where calls are struck, beside the wires. A kill matters where the errand writes. A failing call also matters
    /// where it only reads, the settings and the help file. What one errand has shown is not tried by the next: photos
    /// change nothing about the settings, and on a server all but the server itself fails as it does on a file.
    std::vector<std::string> watched(bool kills) const;
    /// `round`: each has words and photos of its own.
    Errand errand(const std::string& company, int round) const;
    std::string company() const { return kind_->company; }
    const CompanyKind& kind() const { return *kind_; }

    /// The three tables; a number that the server has given is written as "#".
    std::string state();
    std::string damage() { return eye_->damage(); }
    /// The first column of the first row, or nothing.
    std::string one(const std::string& sql);
    /// Of the companies that were not there before.
    std::vector<std::string> newNumbers();
    /// The locks beside the ones that were there.
    std::vector<std::string> ownLocks();
    /// What stands below the folders that a save works on.
    Files files() const;
    /// The records of the err log, without the ends of their lines, as bytes. Whether the last one has its end.
    std::vector<std::string> log(bool& isWhole) const;
    std::vector<std::string> report() const;

private:
    std::vector<std::string> folders(std::initializer_list<const char*> names) const;
    std::filesystem::path orv() const { return office_.drive() / "ORV"; }
    void copyFolders(const std::filesystem::path& from, const std::filesystem::path& to) const;
    void makePhotos() const;

    std::filesystem::path folder_;
    desk::Office office_;
    std::unique_ptr<StoreEye> eye_;
    std::chrono::milliseconds limit_ = kPatient;
    bool isServed_ = false;
    const CompanyKind* kind_ = nullptr;
    std::set<std::string> known_;
};

}  // namespace prove
