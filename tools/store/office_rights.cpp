#include "office_rights.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>

#include "adapters/store/ascii_fold.h"

namespace orv {
namespace {

namespace fs = std::filesystem;
using Found = std::function<void(const std::string& path, const std::string& what)>;

struct Rule {
    ::mode_t forbidden;
    const char* what;
};

constexpr Rule kOwnersOnly{022, "can be changed by others than its owner: chmod go-w"};
constexpr Rule kClerksOnly{007, "is open to all users of this computer: chmod o="};

struct Part {
    const char* folder;
    Rule rule;
};

constexpr auto kParts = std::to_array<Part>({
    {"BIN", kOwnersOnly},
    {"SYS", kOwnersOnly},
    {"HLP", kOwnersOnly},
    {"MDB", kClerksOnly},
    {"IMG", kClerksOnly},
    {"TMP", kClerksOnly},
    {"LOG", kClerksOnly},
});

void look(const fs::path& path, const Rule& rule, const Found& found) {
    struct stat facts {};
    if (::lstat(path.c_str(), &facts) == 0 && !S_ISLNK(facts.st_mode) && (facts.st_mode & rule.forbidden) != 0) {
        found(path.string(), rule.what);
    }
}

void lookThrough(const fs::path& folder, const Rule& rule, const Found& found) {
    look(folder, rule, found);
    std::error_code error;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder, error)) {
        look(entry.path(), rule, found);
    }
}

bool isNamed(const fs::path& path, std::string_view name) { return equalWithoutCase(path.filename().string(), name); }

/// Returns the folder with that name in upper or lower case.
fs::path partOf(const fs::path& install, std::string_view name) {
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(install, error)) {
        if (isNamed(entry.path(), name)) {
            return entry.path();
        }
    }
    return {};
}

void lookAtOffice(const fs::path& install, const Found& found) {
    for (const Part& part : kParts) {
        if (const fs::path folder = partOf(install, part.folder); !folder.empty()) {
            lookThrough(folder, part.rule, found);
        }
    }
    // Includes the parent folders, because a user who can rename BIN there can replace it.
    const fs::path drive = install.parent_path();
    for (const fs::path& path : {install, drive, drive.parent_path(), drive.parent_path() / "registry.txt"}) {
        look(path, kOwnersOnly, found);
    }
}

}  // namespace

void tellOpenRights(const fs::path& store, bool isServerText, const Found& found) {
    std::error_code error;
    const fs::path place = fs::canonical(store, error);
    const fs::path install = place.parent_path().parent_path();
    const bool isInOffice = isNamed(place.parent_path(), "MDB") && !partOf(install, "BIN").empty();
    isInOffice ? lookAtOffice(install, found) : look(place, isServerText ? kOwnersOnly : kClerksOnly, found);
}

}  // namespace orv
