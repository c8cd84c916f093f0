#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "adapters/store/store_connection.h"
#include "sample_folder.h"
#include "support/memory_machine.h"
#include "support/temp_folder.h"

namespace orv {

/// Opens the stores of the tests. The build decides of which kind they are.
StoreOpener testStore();

/// Runs `sql` on the file with the engine itself, past the adapter; makes the file where there is none.
void runSql(const std::string& path, const std::string& sql);
/// The rows of a select, also past the adapter: columns joined with "|".
std::vector<std::string> rowsOf(const std::string& path, const std::string& select);

inline void runSampleFile(const std::string& path, const std::string& name) {
    const std::string sql = readFile(std::filesystem::path(kSampleFolder) / "sql" / name);
    ASSERT_FALSE(sql.empty()) << name;
    runSql(path, sql);
}

/// A store with the sample's rows, built once and copied to `path`.
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
