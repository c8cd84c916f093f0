#include <algorithm>
#include <array>
#include <memory>
#include <span>

#include "adapters/win32/windows_api.h"
#include "place_rights.h"

// After windows.h.
#include <aclapi.h>

namespace orv {
namespace {

namespace fs = std::filesystem;

constexpr DWORD kChange = FILE_WRITE_DATA | FILE_APPEND_DATA | FILE_DELETE_CHILD | DELETE | WRITE_DAC | WRITE_OWNER |
                          GENERIC_WRITE | GENERIC_ALL;
constexpr DWORD kAnything = ~DWORD{SYNCHRONIZE | READ_CONTROL | FILE_READ_ATTRIBUTES};

// The first of the groups have users without an account in the office.
constexpr auto kGroups = std::to_array<WELL_KNOWN_SID_TYPE>(
    {WinWorldSid, WinAnonymousSid, WinBuiltinGuestsSid, WinAuthenticatedUserSid, WinBuiltinUsersSid});
constexpr std::span<const WELL_KNOWN_SID_TYPE> kUsers(kGroups);
constexpr std::span<const WELL_KNOWN_SID_TYPE> kAllUsers = kUsers.first(3);

/// Rights that none of the groups can have.
struct Rule {
    std::span<const WELL_KNOWN_SID_TYPE> groups;
    DWORD rights;
    OpenRight right;
};

constexpr auto kRules = std::to_array<Rule>({
    {kUsers, kChange, {RightKind::Change, "can be changed by users who are not administrators: icacls"}},
    {kAllUsers, kAnything, {RightKind::Use, "is open to all users of this computer: icacls"}},
});

/// The access list of a file or folder.
class AccessList {
public:
    explicit AccessList(const fs::path& path) {
        PSECURITY_DESCRIPTOR descriptor = nullptr;
        isKnown_ = ::GetNamedSecurityInfoW(path.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                                           &list_, nullptr, &descriptor) == ERROR_SUCCESS;
        owner_.reset(descriptor);
    }

    /// A disk without access lists allows everything.
    bool breaks(const Rule& rule) const {
        if (!isKnown_ || list_ == nullptr) {
            return isKnown_;
        }
        bool allows = false;
        for (DWORD place = 0; place < list_->AceCount && !allows; ++place) {
            void* entry = nullptr;
            allows = ::GetAce(list_, place, &entry) != 0 && allowsAny(*static_cast<ACCESS_ALLOWED_ACE*>(entry), rule);
        }
        return allows;
    }

private:
    static bool allowsAny(ACCESS_ALLOWED_ACE& entry, const Rule& rule) {
        const bool applies =
            entry.Header.AceType == ACCESS_ALLOWED_ACE_TYPE && (entry.Header.AceFlags & INHERIT_ONLY_ACE) == 0;
        return applies && (entry.Mask & rule.rights) != 0 &&
               std::ranges::any_of(rule.groups, [&](WELL_KNOWN_SID_TYPE group) {
                   return ::IsWellKnownSid(&entry.SidStart, group) != 0;
               });
    }

    bool isKnown_ = false;
    PACL list_ = nullptr;
    std::unique_ptr<void, decltype(&::LocalFree)> owner_{nullptr, &::LocalFree};
};

bool isLink(const fs::path& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    return attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

}  // namespace

std::vector<OpenRight> findOpenRights(const fs::path& path, const fs::path&) {
    std::vector<OpenRight> found;
    if (isLink(path)) {
        return found;
    }
    const AccessList list(path);
    for (const Rule& rule : kRules) {
        if (list.breaks(rule)) {
            found.push_back(rule.right);
        }
    }
    return found;
}

fs::path findOffice(const fs::path& install) { return install; }

/// Windows itself protects the folders of a drive.
std::vector<fs::path> placesAbove(const fs::path&) { return {}; }

}  // namespace orv
