#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "adapters/store/store_connection.h"
#include "sample_folder.h"
#include "support/native_files.h"
#include "support/temp_folder.h"

namespace orv {

/// Opens the stores of the tests. The build decides their kind.
StoreOpener testStore();

/// Runs `sql` on the file with the engine itself, without the adapter. Creates a missing file.
void runSql(const std::string& path, const std::string& sql);
/// Returns the rows of a select, also without the adapter, columns joined with "|".
std::vector<std::string> readRows(const std::string& path, const std::string& select);

inline void runSampleFile(const std::string& path, const std::string& name) {
    const std::string sql = readFile(std::filesystem::path(kSampleFolder) / "sql" / name);
    ASSERT_FALSE(sql.empty()) << name;
    runSql(path, sql);
}

/// Copies a store with the sample's rows to `path`. The store is built once.
inline std::string makeSampleStore(const std::string& path) {
    static const TempFolder folder;
    static const std::string built = [] {
        std::string file = folder.file("sample.mdb");
        for (const char* name : {"schema.sql", "masters.sql", "companies.sql", "locks.sql"}) {
            runSampleFile(file, name);
        }
        return file;
    }();
    std::filesystem::copy_file(built, path);
    std::filesystem::permissions(path, std::filesystem::perms(0600));
    return path;
}

}  // namespace orv
