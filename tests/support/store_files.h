#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <string>

#include "support/memory_machine.h"
#include "support/temp_folder.h"

namespace orv {

/// Runs `sql` on the file with the engine itself, past the adapter; makes the file where there is none.
inline void runSql(const std::string& path, const std::string& sql) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
    char* words = nullptr;
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, &words), SQLITE_OK) << words;
    sqlite3_free(words);
    sqlite3_close(database);
}

inline void runSampleFile(const std::string& path, const std::string& name) {
    const std::string sql = readFile(std::filesystem::path(SAMPLE_FOLDER) / "sql" / name);
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
    return path;
}

}  // namespace orv
