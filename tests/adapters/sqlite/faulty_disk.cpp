#include "adapters/sqlite/faulty_disk.h"

namespace orv {
namespace {

/// The changed tables of calls, by the table that each one changes. They outlive every file that was opened with them.
std::map<const sqlite3_io_methods*, sqlite3_io_methods>& changedMethods() {
    static std::map<const sqlite3_io_methods*, sqlite3_io_methods> methods;
    return methods;
}

}  // namespace

FaultyDisk* FaultyDisk::active = nullptr;
sqlite3_vfs* FaultyDisk::real = nullptr;

FaultyDisk::FaultyDisk(DiskCall call, int failAt, int result, bool forGood)
    : layer_(), call_(call), failAt_(failAt), result_(result), forGood_(forGood) {
    real = sqlite3_vfs_find(nullptr);
    layer_ = *real;
    layer_.zName = "faulty";
    layer_.xOpen = open;
    layer_.xDelete = remove;
    active = this;
    sqlite3_vfs_register(&layer_, 1);
}

FaultyDisk::~FaultyDisk() {
    sqlite3_vfs_unregister(&layer_);
    sqlite3_vfs_register(real, 1);
    active = nullptr;
}

int FaultyDisk::fails(DiskCall call) {
    if (active == nullptr || active->call_ != call) {
        return SQLITE_OK;
    }
    const int number = ++active->calls_;
    const bool fails = number == active->failAt_ || (active->forGood_ && number > active->failAt_);
    active->hasFailed_ = active->hasFailed_ || fails;
    return fails ? active->result_ : SQLITE_OK;
}

const sqlite3_io_methods* FaultyDisk::methodsFor(const sqlite3_io_methods* original) {
    const auto [entry, isNew] = changedMethods().try_emplace(original, *original);
    if (isNew) {
        entry->second.xWrite = write;
        entry->second.xSync = sync;
        entry->second.xTruncate = truncate;
    }
    return &entry->second;
}

const sqlite3_io_methods* FaultyDisk::originalOf(sqlite3_file* file) {
    for (const auto& [original, changed] : changedMethods()) {
        if (&changed == file->pMethods) {
            return original;
        }
    }
    return file->pMethods;
}

int FaultyDisk::open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    const int result = real->xOpen(real, name, file, flags, outFlags);
    if (file->pMethods != nullptr) {
        file->pMethods = methodsFor(file->pMethods);
    }
    return result;
}

int FaultyDisk::remove(sqlite3_vfs*, const char* name, int syncFolder) {
    const int failure = fails(DiskCall::Delete);
    return failure != SQLITE_OK ? failure : real->xDelete(real, name, syncFolder);
}

int FaultyDisk::write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
    const int failure = fails(DiskCall::Write);
    return failure != SQLITE_OK ? failure : originalOf(file)->xWrite(file, bytes, count, at);
}

int FaultyDisk::sync(sqlite3_file* file, int flags) {
    const int failure = fails(DiskCall::Sync);
    return failure != SQLITE_OK ? failure : originalOf(file)->xSync(file, flags);
}

int FaultyDisk::truncate(sqlite3_file* file, sqlite3_int64 size) {
    const int failure = fails(DiskCall::Truncate);
    return failure != SQLITE_OK ? failure : originalOf(file)->xTruncate(file, size);
}

}  // namespace orv
