#pragma once

#include <sqlite3.h>

#include <map>

namespace orv {

/// The operations on the disk that can be made to fail.
enum class DiskCall { Write, Sync, Truncate, Delete };

/// While one lives, the engine's file layer counts its calls of one kind, and from the `failAt`-th on fails them with
/// `result`: once, or for good like a disk that is full or gone.
class FaultyDisk {
public:
    FaultyDisk(DiskCall call, int failAt, int result, bool forGood);
    FaultyDisk(const FaultyDisk&) = delete;
    FaultyDisk& operator=(const FaultyDisk&) = delete;
    ~FaultyDisk();

    bool hasFailed() const { return hasFailed_; }

private:
    static FaultyDisk* active;
    static sqlite3_vfs* real;

    static int fails(DiskCall call);
    static const sqlite3_io_methods* methodsFor(const sqlite3_io_methods* original);
    static const sqlite3_io_methods* originalOf(sqlite3_file* file);
    static int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags);
    static int remove(sqlite3_vfs*, const char* name, int syncFolder);
    static int write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at);
    static int sync(sqlite3_file* file, int flags);
    static int truncate(sqlite3_file* file, sqlite3_int64 size);

    sqlite3_vfs layer_;
    DiskCall call_;
    int failAt_;
    int result_;
    bool forGood_;
    int calls_ = 0;
    bool hasFailed_ = false;
};

}  // namespace orv
