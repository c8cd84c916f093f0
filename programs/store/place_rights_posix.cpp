#include <sys/stat.h>
#include <sys/xattr.h>

#include <array>
#include <span>

#include "place_rights.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

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

std::span<const Rule> rulesFor(PlaceUse use) {
    const std::span<const Rule> all(kRules);
    switch (use) {
        case PlaceUse::Programs:
            return all;
        case PlaceUse::Data:
            return all.subspan(2);
        case PlaceUse::ServerText:
            return all.first(1);
    }
    return {};
}

}  // namespace

std::function<void(const fs::path&, PlaceUse)> placeRights(const fs::path& office, const FoundRight& found) {
    struct stat ofOffice {};
    ::stat(office.c_str(), &ofOffice);
    return [ofOffice, found](const fs::path& path, PlaceUse use) {
        Place place{path, {}, ofOffice};
        if (::lstat(path.c_str(), &place.facts) != 0 || S_ISLNK(place.facts.st_mode)) {
            return;
        }
        for (const Rule& rule : rulesFor(use)) {
            if (rule.isBroken(place)) {
                found(path.string(), rule.what);
            }
        }
    };
}

fs::path officeOf(const fs::path& install) { return install.parent_path().parent_path(); }

/// A user who can rename BIN in one of them can replace it.
std::vector<fs::path> placesAbove(const fs::path& install) {
    const fs::path office = officeOf(install);
    return {install.parent_path(), office, office / "registry.txt"};
}

}  // namespace orv
