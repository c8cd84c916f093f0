#include "adapters/sqlite/guarded_vfs.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "adapters/sqlite/plain_file.h"
#include "adapters/store/store_failure.h"

namespace orv {
namespace {

constexpr StoreRefusal kForeignJournal{"DBFILE10", Failure::PathFileAccess,
                                       "データベースの横にある中断された書き込みの記録（-journal）が、ほかのファイルを"
                                       "指しています。システムの管理者に連絡してください。"};

constexpr int kKinds = SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_MAIN_JOURNAL | SQLITE_OPEN_SUPER_JOURNAL | SQLITE_OPEN_WAL;
constexpr auto kJournalEndings = std::to_array<std::string_view>({"-journal", "-wal"});
constexpr const char* kIndexEnding = "-shm";  // of a write-ahead log; the engine opens it without this layer

// A journal with this end names a super-journal, by which several databases are written together. This program never
// does that.
constexpr std::string_view kSuperSign = "\xd9\xd5\x05\xf9\x20\xa1\x63\xd7";

bool namesSuperJournal(sqlite3_file* file) {
    sqlite3_int64 size = 0;
    std::array<char, kSuperSign.size()> end{};
    return file->pMethods->xFileSize(file, &size) == SQLITE_OK && size >= static_cast<sqlite3_int64>(end.size()) &&
           file->pMethods->xRead(file, end.data(), static_cast<int>(end.size()),
                                 size - static_cast<sqlite3_int64>(end.size())) == SQLITE_OK &&
           std::string_view(end.data(), end.size()) == kSuperSign;
}

}  // namespace

GuardedVfs::GuardedVfs() : sqlite3_vfs(*sqlite3_vfs_find(nullptr)), system_(sqlite3_vfs_find(nullptr)) {
    name_ = "guarded-" + std::to_string(reinterpret_cast<std::uintptr_t>(this));
    zName = name_.c_str();
    pNext = nullptr;
    xOpen = open;
    xDelete = remove;
    sqlite3_vfs_register(this, 0);
}

GuardedVfs::~GuardedVfs() { sqlite3_vfs_unregister(this); }

void GuardedVfs::refuseForeignJournal() const {
    if (hasRefusedJournal_) {
        refuse(kForeignJournal);
    }
}

int GuardedVfs::open(sqlite3_vfs* vfs, const char* path, sqlite3_file* file, int flags, int* given) {
    auto& self = static_cast<GuardedVfs&>(*vfs);
    file->pMethods = nullptr;
    switch (flags & kKinds) {
        case SQLITE_OPEN_MAIN_DB:
            self.store_ = path;
            break;
        case SQLITE_OPEN_MAIN_JOURNAL:
        case SQLITE_OPEN_WAL:
            return self.openJournal(path, file, flags, given);
        case SQLITE_OPEN_SUPER_JOURNAL:
            return SQLITE_CANTOPEN;
        default:
            break;  // temporary files, which have no name here
    }
    return self.system_->xOpen(self.system_, path, file, flags, given);
}

int GuardedVfs::openJournal(const char* path, sqlite3_file* file, int flags, int* given) {
    // A second name would let the engine write into another file.
    if (!isOwnJournal(path) || !isPlainOrMissing(path) || !isPlainOrMissing((store_ + kIndexEnding).c_str())) {
        hasRefusedJournal_ = true;
        return SQLITE_CANTOPEN;
    }
    const int result = system_->xOpen(system_, path, file, flags, given);
    if (result == SQLITE_OK && namesSuperJournal(file)) {
        file->pMethods->xClose(file);
        file->pMethods = nullptr;
        hasRefusedJournal_ = true;
        return SQLITE_CANTOPEN;
    }
    return result;
}

int GuardedVfs::remove(sqlite3_vfs* vfs, const char* path, int flushesFolder) {
    auto& self = static_cast<GuardedVfs&>(*vfs);
    return self.isOwnJournal(path) ? self.system_->xDelete(self.system_, path, flushesFolder) : SQLITE_IOERR_DELETE;
}

bool GuardedVfs::isOwnJournal(const char* path) const {
    return std::ranges::any_of(kJournalEndings,
                               [&](std::string_view ending) { return path == store_ + std::string(ending); });
}

}  // namespace orv
