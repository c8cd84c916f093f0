#include <gtest/gtest.h>

#include <array>
#include <map>

#include "adapters/sqlite/sqlite_db_service.h"
#include "adapters/store_terminal.h"
#include "support/store_files.h"

namespace orv {
namespace {

using namespace std::chrono_literals;

enum class DiskCall { Write, Sync, Delete };

struct Fault {
    DiskCall call;
    int result;
    std::string code, word;
};

struct FaultState {
    DiskCall call = DiskCall::Write;
    int result = SQLITE_OK;
    int failAt = 0;
    bool forGood = false;
    int calls = 0;
    bool hasFailed = false;
};

/// While one lives, the engine's file layer fails its `failAt`-th call of a kind: once, or for good like a disk that is
/// full or gone.
class FaultyDisk {
public:
    FaultyDisk(const Fault& fault, int failAt, bool forGood) : layer_(*real()) {
        state = {.call = fault.call, .result = fault.result, .failAt = failAt, .forGood = forGood};
        layer_.zName = "faulty";
        layer_.xOpen = open;
        layer_.xDelete = [](sqlite3_vfs*, const char* name, int syncFolder) {
            const int failure = failureOf(DiskCall::Delete);
            return failure != SQLITE_OK ? failure : real()->xDelete(real(), name, syncFolder);
        };
        sqlite3_vfs_register(&layer_, 1);
    }
    FaultyDisk(const FaultyDisk&) = delete;
    FaultyDisk& operator=(const FaultyDisk&) = delete;
    ~FaultyDisk() {
        sqlite3_vfs_unregister(&layer_);
        sqlite3_vfs_register(real(), 1);
        state = {};
    }

    static bool hasFailed() { return state.hasFailed; }

private:
    static sqlite3_vfs* real() {
        static sqlite3_vfs* const original = sqlite3_vfs_find(nullptr);
        return original;
    }
    static int failureOf(DiskCall call) {
        if (state.call != call) {
            return SQLITE_OK;
        }
        ++state.calls;
        const bool fails = state.calls == state.failAt || (state.forGood && state.calls > state.failAt);
        state.hasFailed |= fails;
        return fails ? state.result : SQLITE_OK;
    }
    /// The engine's tables of calls differ by their locks only; reading, writing and flushing are the same in all.
    static int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
        const int result = real()->xOpen(real(), name, file, flags, outFlags);
        if (file->pMethods != nullptr) {
            write = file->pMethods->xWrite;
            sync = file->pMethods->xSync;
            sqlite3_io_methods& changed = changedMethods.try_emplace(file->pMethods, *file->pMethods).first->second;
            changed.xWrite = [](sqlite3_file* to, const void* bytes, int count, sqlite3_int64 at) {
                const int failure = failureOf(DiskCall::Write);
                return failure != SQLITE_OK ? failure : write(to, bytes, count, at);
            };
            changed.xSync = [](sqlite3_file* of, int how) {
                const int failure = failureOf(DiskCall::Sync);
                return failure != SQLITE_OK ? failure : sync(of, how);
            };
            file->pMethods = &changed;
        }
        return result;
    }

    static inline FaultState state;
    static inline decltype(sqlite3_io_methods::xWrite) write = nullptr;
    static inline decltype(sqlite3_io_methods::xSync) sync = nullptr;
    /// They outlive every file that was opened with them.
    static inline std::map<const sqlite3_io_methods*, sqlite3_io_methods> changedMethods;

    sqlite3_vfs layer_;
};

constexpr auto kTables = std::to_array<const char*>({"TBL_CUSTOMER_INFO", "TBL_CUSTOMER_ADD", "TBL_CUSTOMER_DATE"});

/// The keys in the three tables of a company that is moved to a number, and its locks.
std::string stateOf(const std::string& path) {
    SqliteDbService service(nativePaths(), 50ms);
    Terminal terminal(service, path);
    std::string keys;
    for (const std::string table : kTables) {
        keys += terminal.one("SELECT USER_ID FROM " + table + " WHERE USER_ID IN ('000004601', '000004699')") + " ";
    }
    return keys + terminal.one("SELECT COUNT(*) FROM TBL_LOCK WHERE USER_ID = '000004601'");
}

bool moveCompany(DbService& service, Terminal& terminal) {
    if (!terminal.begin()) {
        return false;
    }
    bool done = true;
    for (const std::string table : kTables) {
        done =
            done && terminal.execute("UPDATE " + table + " SET USER_ID  ='000004699' WHERE USER_ID = '000004601'") == 1;
    }
    // More than the engine keeps in memory, so that it writes before the commit too.
    for (int row = 0; done && row < 1200; ++row) {
        done = terminal.execute(lockInsert("000004601", std::string(2000, 'x'))) == 1;
    }
    done = done && terminal.commit();
    if (!done) {
        const FailureRecord why = service.DbError();
        EXPECT_TRUE(terminal.rollback()) << service.DbError().text;
        EXPECT_EQ(service.DbError(), why) << "the rollback does not hide the cause";
    }
    return done;
}

class DiskFaults : public ::testing::TestWithParam<std::tuple<Fault, bool>> {};

TEST_P(DiskFaults, WhereverTheDiskFailsTheStoreIsWholeAndTheCauseIsTold) {
    const auto& [fault, forGood] = GetParam();
    const TempFolder folder;
    bool wasReached = true;
    int moved = 0;
    // Each of the first calls, then ever wider steps: the calls in the middle are all alike.
    for (int failAt = 1; wasReached; failAt += failAt < 30 ? 1 : failAt / 8) {
        const std::string path = makeSampleStore(folder.file(std::to_string(failAt)));
        bool done = false;
        {
            const FaultyDisk disk(fault, failAt, forGood);
            SqliteDbService service(nativePaths(), 50ms);
            Terminal terminal(service, path);
            done = moveCompany(service, terminal);
            wasReached = FaultyDisk::hasFailed();
            if (!done) {
                EXPECT_EQ(service.DbError().code, fault.code) << failAt;
                EXPECT_NE(service.DbError().text.find(fault.word), std::string::npos) << service.DbError().text;
            }
        }
        EXPECT_EQ(stateOf(path), done ? "000004699 000004699 000004699 1200" : "000004601 000004601 000004601 0")
            << failAt;
        EXPECT_TRUE(done || wasReached);
        moved += done ? 1 : 0;
        std::filesystem::remove(path);
    }
    EXPECT_GE(moved, 1) << "the last round meets no fault";
}

INSTANTIATE_TEST_SUITE_P(
    Calls, DiskFaults,
    ::testing::Combine(::testing::Values(Fault{DiskCall::Write, SQLITE_FULL, "DB13", "空き容量"},
                                         Fault{DiskCall::Write, SQLITE_IOERR_WRITE, "DB778", "読み書き中"},
                                         Fault{DiskCall::Sync, SQLITE_IOERR_FSYNC, "DB1034", "読み書き中"},
                                         Fault{DiskCall::Delete, SQLITE_IOERR_DELETE, "DB2570", "読み書き中"}),
                       ::testing::Bool()));

}  // namespace
}  // namespace orv
