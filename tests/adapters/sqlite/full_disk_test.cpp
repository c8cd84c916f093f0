#include <gtest/gtest.h>

#include "adapters/file_size_limit.h"
#include "adapters/sqlite/sqlite_store.h"
#include "adapters/store/store_service.h"
#include "adapters/store_terminal.h"
#include "support/store_files.h"

namespace orv {
namespace {

/// The crash test (tools/crash_test) checks that a failed call in a save leaves no partial data.
TEST(SqliteOnAFullDisk, TheFailureIsReportedAndTheRollbackDoesNotHideIt) {
    const TempFolder folder;
    const std::string path = makeSampleStore(folder.file("ORVESTATE.MDB"));
    StoreService service(nativePaths(), sqliteStore());
    // The file has no space for the journal, or space for the journal but not for the rows.
    for (const rlim_t limit : {rlim_t{0}, rlim_t{std::filesystem::file_size(path)}}) {
        service.DbReset();
        Terminal terminal(service, path);
        {
            const FileSizeLimit full(limit);
            ASSERT_TRUE(terminal.begin());
            const bool isTaken = terminal.execute(lockInsert("000004601", std::string(20'000, 'x'))) == 1;
            EXPECT_EQ(isTaken, limit > 0);
            EXPECT_FALSE(isTaken && terminal.commit());
            EXPECT_TRUE(terminal.rollback()) << service.DbError().text;
        }
        EXPECT_EQ(service.DbError().code, "DB778") << limit;
        EXPECT_NE(service.DbError().text.find("読み書き中"), std::string::npos) << service.DbError().text;
        EXPECT_EQ(Terminal(service, path).one("SELECT COUNT(*) FROM TBL_LOCK"), "1");
    }
}

}  // namespace
}  // namespace orv
