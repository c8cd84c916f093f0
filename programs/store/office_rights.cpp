#include "office_rights.h"

#include <sys/stat.h>
#include <sys/xattr.h>

#include <array>
#include <span>

#include "platform/ascii.h"

namespace orv {
namespace {

namespace fs = std::filesystem;
using Found = std::function<void(const std::string& path, const std::string& what)>;

constexpr ::mode_t kGroup = 070;

/// A file or folder, and the folder of the office that it is in.
struct Place {
    fs::path path;
    struct stat facts;
    const struct stat& office;
};

struct Rule {
    bool (*isBroken)(const Place& place);
    const char* what;
};

/// Includes the list that new files of a folder get.
bool hasAccessList(const Place& place) {
    const auto has = [&](const char* list) { return ::lgetxattr(place.path.c_str(), list, nullptr, 0) > 0; };
    return has("system.posix_acl_access") || has("system.posix_acl_default");
}

constexpr auto kRules = std::to_array<Rule>({
    {[](const Place& place) { return (place.facts.st_mode & 022U) != 0; },
     "can be changed by others than its owner: chmod go-w"},
    {[](const Place& place) { return place.facts.st_uid != 0 && place.facts.st_uid != place.office.st_uid; },
     "belongs to another user than the office: chown"},
    {[](const Place& place) { return (place.facts.st_mode & 007U) != 0; },
     "is open to all users of this computer: chmod o="},
    {[](const Place& place) {
         return (place.facts.st_mode & kGroup) != 0 && place.facts.st_gid != place.office.st_gid;
     },
     "is open to another group than that of the office: chgrp"},
    {hasAccessList, "is open to users on an access list: setfacl -bk"},
});
constexpr std::span<const Rule> kForPrograms(kRules);
constexpr std::span<const Rule> kForData = kForPrograms.subspan(2);
constexpr std::span<const Rule> kForText = kForPrograms.first(1);

struct Part {
    const char* folder;
    std::span<const Rule> rules;
};

constexpr auto kParts = std::to_array<Part>({
    {"BIN", kForPrograms},
    {"SYS", kForPrograms},
    {"HLP", kForPrograms},
    {"MDB", kForData},
    {"IMG", kForData},
    {"TMP", kForData},
    {"LOG", kForData},
});

/// Reports the faults of each place.
class Look {
public:
    /// `office`: the folder whose owner and group everything has.
    Look(const fs::path& office, const Found& found) : found_(found) { ::stat(office.c_str(), &office_); }

    void at(const fs::path& path, std::span<const Rule> rules) const {
        Place place{path, {}, office_};
        if (::lstat(path.c_str(), &place.facts) != 0 || S_ISLNK(place.facts.st_mode)) {
            return;
        }
        for (const Rule& rule : rules) {
            if (rule.isBroken(place)) {
                found_(path.string(), rule.what);
            }
        }
    }

    /// The program can be running: entries that are private to another clerk's run, or that disappear, are skipped.
    void through(const fs::path& folder, std::span<const Rule> rules) const {
        at(folder, rules);
        std::error_code error;
        for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
            std::error_code gone;
            entry->symlink_status(gone).type() == fs::file_type::directory ? through(entry->path(), rules)
                                                                           : at(entry->path(), rules);
        }
    }

private:
    const Found& found_;
    struct stat office_ {};
};

bool isNamed(const fs::path& path, std::string_view name) { return equalWithoutCase(path.filename().string(), name); }

/// Returns the folder with that name in upper or lower case.
fs::path findPart(const fs::path& install, std::string_view name) {
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(install, error)) {
        if (isNamed(entry.path(), name)) {
            return entry.path();
        }
    }
    return {};
}

void lookAtOffice(const fs::path& install, const Found& found) {
    // Includes the parent folders, because a user who can rename BIN there can replace it.
    const fs::path drive = install.parent_path();
    const fs::path office = drive.parent_path();
    const Look look(office, found);
    for (const fs::path& path : {install, drive, office, office / "registry.txt"}) {
        look.at(path, kForPrograms);
    }
    for (const Part& part : kParts) {
        if (const fs::path folder = findPart(install, part.folder); !folder.empty()) {
            look.through(folder, part.rules);
        }
    }
}

}  // namespace

void reportOpenRights(const fs::path& store, bool isServerText, const Found& found) {
    std::error_code error;
    const fs::path place = fs::canonical(store, error);
    const fs::path install = place.parent_path().parent_path();
    if (isNamed(place.parent_path(), "MDB") && !findPart(install, "BIN").empty()) {
        lookAtOffice(install, found);
    } else {
        Look(place, found).at(place, isServerText ? kForText : kForData);
    }
}

}  // namespace orv
