#include <gtest/gtest.h>

#include "adapters/sqlite/faulty_disk.h"
#include "adapters/sqlite/sqlite_db_service.h"
#include "adapters/store_terminal.h"
#include "support/store_files.h"

namespace orv {
namespace {

using namespace std::chrono_literals;

/// The state of the three tables of a company that is moved to a number: all before, all behind, or a mixture.
std::string stateOf(const std::string& path) {
    SqliteDbService service(nativePaths(), 50ms);
    Terminal terminal(service, path);
    std::string state;
    for (const std::string table : {"TBL_CUSTOMER_INFO", "TBL_CUSTOMER_ADD", "TBL_CUSTOMER_DATE"}) {
        state += terminal.one(probe(table, "000004601")) + terminal.one(probe(table, "000004699")) + " ";
    }
    return state + terminal.one("SELECT COUNT(*) FROM TBL_LOCK WHERE USER_ID = '000004601'");
}

constexpr const char* kBefore = "10 10 10 0";
constexpr const char* kBehind = "01 01 01 1200";

bool moveCompany(DbService& service, Terminal& terminal) {
    if (!terminal.begin()) {
        return false;
    }
    bool done = true;
    for (const std::string table : {"TBL_CUSTOMER_INFO", "TBL_CUSTOMER_ADD", "TBL_CUSTOMER_DATE"}) {
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

struct Fault {
    DiskCall call;
    int result;
    std::string code, word;
};

void PrintTo(const Fault& fault, std::ostream* out) { *out << fault.code; }

class DiskFaults : public ::testing::TestWithParam<std::tuple<Fault, bool>> {};

TEST_P(DiskFaults, WhereverTheDiskFailsTheStoreIsWholeAndTheCauseIsTold) {
    const auto& [fault, forGood] = GetParam();
    const TempFolder folder;
    bool wasReached = true;
    int moved = 0;
    // Some of the first calls, each of them, then ever wider steps: the calls in the middle are all alike.
    for (int failAt = 1; wasReached; failAt += failAt < 30 ? 1 : failAt / 8) {
        const std::string path = folder.file(std::to_string(failAt));
        makeSampleStore(path);
        bool done = false;
        {
            const FaultyDisk disk(fault.call, failAt, fault.result, forGood);
            SqliteDbService service(nativePaths(), 50ms);
            Terminal terminal(service, path);
            done = moveCompany(service, terminal);
            wasReached = disk.hasFailed();
            if (!done) {
                EXPECT_EQ(service.DbError().code, fault.code) << failAt;
                EXPECT_NE(service.DbError().text.find(fault.word), std::string::npos) << service.DbError().text;
            }
        }
        EXPECT_EQ(stateOf(path), done ? kBehind : kBefore) << failAt;
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
