#include <sys/stat.h>
#include <sys/xattr.h>

#include <array>

#include "place_rights.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

constexpr ::mode_t kGroup = 070;

/// A file or folder, and the folder of the office that it is in.
struct Place {
    fs::path path;
    struct stat facts;
    struct stat office;
};

struct Rule {
    bool (*isBroken)(const Place& place);
    OpenRight right;
};

/// Includes the list that new files of a folder get.
bool hasAccessList(const Place& place) {
    const auto has = [&](const char* list) { return ::lgetxattr(place.path.c_str(), list, nullptr, 0) > 0; };
    return has("system.posix_acl_access") || has("system.posix_acl_default");
}

constexpr auto kRules = std::to_array<Rule>({
    {[](const Place& place) { return (place.facts.st_mode & 022U) != 0; },
     {RightKind::Change, "can be changed by others than its owner: chmod go-w"}},
    {[](const Place& place) { return place.facts.st_uid != 0 && place.facts.st_uid != place.office.st_uid; },
     {RightKind::Owner, "belongs to another user than the office: chown"}},
    {[](const Place& place) { return (place.facts.st_mode & 007U) != 0; },
     {RightKind::Use, "is open to all users of this computer: chmod o="}},
    {[](const Place& place) {
         return (place.facts.st_mode & kGroup) != 0 && place.facts.st_gid != place.office.st_gid;
     },
     {RightKind::Use, "is open to another group than that of the office: chgrp"}},
    {hasAccessList, {RightKind::Use, "is open to users on an access list: setfacl -bk"}},
});

}  // namespace

std::vector<OpenRight> findOpenRights(const fs::path& path, const fs::path& office) {
    Place place{path, {}, {}};
    ::stat(office.c_str(), &place.office);
    std::vector<OpenRight> found;
    if (::lstat(path.c_str(), &place.facts) != 0 || S_ISLNK(place.facts.st_mode)) {
        return found;
    }
    for (const Rule& rule : kRules) {
        if (rule.isBroken(place)) {
            found.push_back(rule.right);
        }
    }
    return found;
}

fs::path findOffice(const fs::path& install) { return install.parent_path().parent_path(); }

/// A user who can rename BIN in one of them can replace it.
std::vector<fs::path> placesAbove(const fs::path& install) {
    const fs::path office = findOffice(install);
    return {install.parent_path(), office, office / "registry.txt"};
}

}  // namespace orv
