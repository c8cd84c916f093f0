#include "adapters/sqlite/sqlite_files.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include "adapters/sqlite/guarded_vfs.h"
#include "adapters/sqlite/sqlite_database.h"
#include "adapters/sqlite/sqlite_failure.h"
#include "adapters/store/file_path.h"
#include "platform/scope.h"

namespace orv {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kPause{1};
constexpr std::int64_t kBlock = 1 << 16;
constexpr std::uintmax_t kSpare = std::uintmax_t{64} << 20U;  // left on the disk for other programs

/// A file of a store, and the engine's kind of it.
struct Part {
    const char* ending;
    int kind;
};

constexpr auto kParts = std::to_array<Part>({
    {"", SQLITE_OPEN_MAIN_DB},
    {"-journal", SQLITE_OPEN_MAIN_JOURNAL},
    {"-wal", SQLITE_OPEN_WAL},
});

void refuseUnlessOk(int result) {
    if (result != SQLITE_OK) {
        throw sqliteFailure(result, "");
    }
}

/// A file that is opened like the engine opens it, with its rules for links and its locks.
class EngineFile : NonCopyable {
public:
    EngineFile(sqlite3_vfs& vfs, std::string path, int flags)
        : path_(std::move(path)),
          memory_(static_cast<std::size_t>(vfs.szOsFile) / sizeof(std::max_align_t) + 1),
          file_(reinterpret_cast<sqlite3_file*>(memory_.data())) {
        refuseUnlessOk(vfs.xOpen(&vfs, path_.c_str(), file_, flags, nullptr));
    }
    ~EngineFile() { file_->pMethods->xClose(file_); }

    const std::string& path() const { return path_; }
    std::int64_t size() const {
        sqlite3_int64 bytes = 0;
        refuseUnlessOk(file_->pMethods->xFileSize(file_, &bytes));
        return bytes;
    }
    void resize(std::int64_t bytes) const { refuseUnlessOk(file_->pMethods->xTruncate(file_, bytes)); }
    /// Fills `bytes` from `place` on. After the end of the file there are zeros.
    void read(std::vector<char>& bytes, std::int64_t place) const {
        const int result = file_->pMethods->xRead(file_, bytes.data(), static_cast<int>(bytes.size()), place);
        refuseUnlessOk(result == SQLITE_IOERR_SHORT_READ ? SQLITE_OK : result);
    }
    void write(const std::vector<char>& bytes, std::int64_t place) const {
        refuseUnlessOk(file_->pMethods->xWrite(file_, bytes.data(), static_cast<int>(bytes.size()), place));
    }
    /// Takes the lock of a reader until the file is closed. False while another program commits.
    bool tryLock() const {
        const int result = file_->pMethods->xLock(file_, SQLITE_LOCK_SHARED);
        refuseUnlessOk(result == SQLITE_BUSY ? SQLITE_OK : result);
        return result == SQLITE_OK;
    }

private:
    std::string path_;  // the engine keeps its address
    std::vector<std::max_align_t> memory_;
    sqlite3_file* file_;
};
using EngineFilePtr = std::unique_ptr<EngineFile>;
using Copies = std::array<EngineFilePtr, kParts.size()>;

/// A sparse file can claim more than the disk has.
void requireSpace(std::int64_t bytes, const std::string& file) {
    std::error_code error;
    const std::uintmax_t free = fs::space(filePath(file).parent_path(), error).available;
    if (!error && bytes > 0 && static_cast<std::uintmax_t>(bytes) + kSpare > free) {
        throw sqliteFailure(SQLITE_FULL, "");
    }
}

/// Gives `to` the content of `from`. True if it had the same before. Blocks of zeros take no space in a new file.
bool bringUpToDate(const EngineFile& from, const EngineFile& to) {
    const std::int64_t size = from.size();
    const std::int64_t before = to.size();
    requireSpace(size - before, to.path());
    to.resize(size);
    bool isSame = size == before;
    std::vector<char> wanted;
    std::vector<char> present;
    for (std::int64_t place = 0; place < size; place += kBlock) {
        wanted.resize(static_cast<std::size_t>(std::min(kBlock, size - place)));
        present.resize(wanted.size());
        from.read(wanted, place);
        to.read(present, place);
        if (wanted != present) {
            to.write(wanted, place);
            isSame = false;
        }
    }
    return isSame;
}

/// The files of a store, which are only read.
class Source {
public:
    explicit Source(const std::string& path)
        : vfs_(*sqlite3_vfs_find(guard_.name())),
          path_(fullPath(path)),
          store_(vfs_, path_, SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_READONLY) {}

    bool tryLock() const { return store_.tryLock(); }

    /// Makes the copies equal to the files. True if they were.
    bool update(const Copies& copies) {
        bool isSame = bringUpToDate(store_, *copies.front());
        for (std::size_t part = 1; part < kParts.size(); ++part) {
            isSame = updateJournal(kParts[part], *copies[part]) && isSame;
        }
        return isSame;
    }

    /// Call this after a failure.
    void refuseForeignJournal() const { guard_.refuseForeignJournal(); }

private:
    static std::string fullPath(const std::string& path) {
        std::error_code error;
        const fs::path full = fs::canonical(filePath(path), error);  // the engine follows links to a store, no others
        refuseUnlessOk(error ? SQLITE_CANTOPEN : SQLITE_OK);
        return pathText(full);
    }

    bool updateJournal(const Part& part, const EngineFile& copy) {
        if (const EngineFilePtr journal = openJournal(part)) {
            return bringUpToDate(*journal, copy);
        }
        const bool isSame = copy.size() == 0;
        copy.resize(0);
        return isSame;
    }

    /// Null if there is none, also if it is removed at this moment.
    EngineFilePtr openJournal(const Part& part) {
        const std::string name = path_ + part.ending;
        if (!exists(name)) {
            return nullptr;
        }
        try {
            return std::make_unique<EngineFile>(vfs_, name, part.kind | SQLITE_OPEN_READONLY);
        } catch (const StoreFailure&) {
            if (exists(name)) {
                throw;
            }
            return nullptr;
        }
    }

    bool exists(const std::string& name) {
        int is = 0;
        refuseUnlessOk(vfs_.xAccess(&vfs_, name.c_str(), SQLITE_ACCESS_EXISTS, &is));
        return is != 0;
    }

    GuardedVfs guard_;
    sqlite3_vfs& vfs_;
    std::string path_;
    EngineFile store_;
};

/// Repeats `attempt` until it succeeds. Throws that the store is busy after `patience`.
template <typename Attempt>
void retry(std::chrono::milliseconds patience, Attempt attempt) {
    const auto deadline = Clock::now() + patience;
    while (!attempt()) {
        refuseUnlessOk(Clock::now() > deadline ? SQLITE_BUSY : SQLITE_OK);
        std::this_thread::sleep_for(kPause);
    }
}

Copies emptyCopies(const std::string& to) {
    constexpr int kNew = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_EXCLUSIVE;
    Copies copies;
    for (std::size_t part = 0; part < kParts.size(); ++part) {
        const int flags = kParts[part].kind | (part == 0 ? SQLITE_OPEN_READWRITE : kNew);
        copies[part] = std::make_unique<EngineFile>(*sqlite3_vfs_find(nullptr), to + kParts[part].ending, flags);
    }
    return copies;
}

/// Copies the store `from` and its journal or write-ahead log, as they are at one moment, byte for byte. `to` is the
/// caller's own empty file, and its journals are new. The originals are only read, and no file next to them is created.
/// An engine that opens the copy completes or undoes an interrupted write there.
///
/// Holds the lock of a reader: terminals that commit wait until the copy is complete. Waits up to `patience` for such a
/// terminal, and for a moment in which a write-ahead log does not change. Throws a StoreFailure after that time
/// ("DB5"), if the copy does not fit on the disk ("DB13"), or for a foreign journal ("DBFILE10").
void copyStoreFiles(const std::string& from, const std::string& to, std::chrono::milliseconds patience) {
    Source source(from);
    const Copies copies = emptyCopies(to);
    try {
        retry(patience, [&] { return source.tryLock(); });
        // A write-ahead log grows without a lock that a reader could hold. All files were as they are in the copy at
        // the moment between two passes if the second one finds no difference.
        static_cast<void>(source.update(copies));
        retry(patience, [&] { return source.update(copies); });
    } catch (const StoreFailure&) {
        source.refuseForeignJournal();
        throw;
    }
}

}  // namespace

void makeSqliteFile(const std::string& nativePath, const std::string& sql) {
    SqliteDatabase database(nativePath, StoreAccess::Create, {});
    database.runScript("BEGIN; " + sql + " COMMIT;");
}

void snapshotSqliteFile(const std::string& from, const std::string& to) {
    const SqliteLimits limits;
    copyStoreFiles(from, to, limits.busy);
    // Opening the file undoes an interrupted write. This completes the writes of a write-ahead log.
    SqliteDatabase(to, StoreAccess::OwnFile, limits).runScript("PRAGMA journal_mode = DELETE");
}

void copySqliteRows(const std::string& from, const std::string& to) {
    snapshotSqliteFile(from, to);
    SqliteDatabase(to, StoreAccess::OwnFile, {}).dropPrograms();
}

void restoreSqliteFile(const std::string& from, const std::string& to, StoreAccess access) {
    const SqliteDatabase source(from, StoreAccess::OwnCopy, {});
    const SqliteDatabase target(to, access, {});
    source.copyTo(target);
}

}  // namespace orv
