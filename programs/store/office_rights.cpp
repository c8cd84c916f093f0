#include "office_rights.h"

#include <array>

#include "adapters/store/file_path.h"
#include "place_rights.h"
#include "platform/ascii.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

/// The use of a file or folder: programs and settings, an office's data, or the text that names a server.
enum class PlaceUse : std::uint8_t { Programs, Data, ServerText };

struct Part {
    const char* folder;
    PlaceUse use;
};

constexpr auto kParts = std::to_array<Part>({
    {"BIN", PlaceUse::Programs},
    {"SYS", PlaceUse::Programs},
    {"HLP", PlaceUse::Programs},
    {"MDB", PlaceUse::Data},
    {"IMG", PlaceUse::Data},
    {"TMP", PlaceUse::Data},
    {"LOG", PlaceUse::Data},
});

/// The users of an office change its data. A text that names a server contains no password, so all users can read it.
bool isWrong(RightKind kind, PlaceUse use) {
    switch (use) {
        case PlaceUse::Programs:
            return true;
        case PlaceUse::Data:
            return kind == RightKind::Use;
        case PlaceUse::ServerText:
            return kind == RightKind::Change;
    }
    return false;
}

using Look = std::function<void(const fs::path& path, PlaceUse use)>;

/// Returns a function that reports each permission of a file or folder that goes beyond its use.
Look reportTo(const FoundRight& found, const fs::path& office) {
    return [found, office](const fs::path& path, PlaceUse use) {
        for (const OpenRight& right : findOpenRights(path, office)) {
            if (isWrong(right.kind, use)) {
                found(pathText(path), right.what);
            }
        }
    };
}

/// The program can be running: entries that are private to another clerk's run, or that disappear, are skipped.
void lookThrough(const fs::path& folder, PlaceUse use, const Look& look) {
    look(folder, use);
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code gone;
        if (entry->symlink_status(gone).type() == fs::file_type::directory) {
            lookThrough(entry->path(), use, look);
        } else {
            look(entry->path(), use);
        }
    }
}

bool isNamed(const fs::path& path, std::string_view name) { return equalWithoutCase(pathText(path.filename()), name); }

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

void lookAtOffice(const fs::path& install, const FoundRight& found) {
    const Look look = reportTo(found, findOffice(install));
    look(install, PlaceUse::Programs);
    for (const fs::path& path : placesAbove(install)) {
        look(path, PlaceUse::Programs);
    }
    for (const Part& part : kParts) {
        if (const fs::path folder = findPart(install, part.folder); !folder.empty()) {
            lookThrough(folder, part.use, look);
        }
    }
}

}  // namespace

void reportOpenRights(const fs::path& store, bool isServerText, const FoundRight& found) {
    std::error_code error;
    const fs::path place = fs::canonical(store, error);
    const fs::path install = place.parent_path().parent_path();
    if (isNamed(place.parent_path(), "MDB") && !findPart(install, "BIN").empty()) {
        lookAtOffice(install, found);
    } else {
        reportTo(found, place)(place, isServerText ? PlaceUse::ServerText : PlaceUse::Data);
    }
}

}  // namespace orv
