#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <string>

#include "platform/machine/file_system.h"
#include "platform/run_time_error.h"

namespace orv {

/// A folder of its own for a test, gone with it.
class TempFolder {
public:
    TempFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "store-XXXXXX").string();
        path_ = ::mkdtemp(pattern.data());
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() { std::filesystem::remove_all(path_); }

    std::string file(const std::string& name) const { return (path_ / name).string(); }
    const std::filesystem::path& path() const { return path_; }

    /// Every file with its bytes, to see whether anything changed.
    std::map<std::string, std::string> contents() const;

private:
    std::filesystem::path path_;
};

inline std::string readFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void writeFile(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

inline std::map<std::string, std::string> TempFolder::contents() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
        files[entry.path().filename()] = entry.is_regular_file() ? readFile(entry.path()) : "";
    }
    return files;
}

/// The store's adapters ask for the native place of a path only; here it is the path itself.
class NativePaths : public FileSystem {
public:
    bool exists(const std::string&) const override { return unused<bool>(); }
    std::uint64_t sizeOf(const std::string&) const override { return unused<std::uint64_t>(); }
    bool canOpen(const std::string&) const override { return unused<bool>(); }
    void copy(const std::string&, const std::string&) override { unused<void>(); }
    void remove(const std::string&) override { unused<void>(); }
    void rename(const std::string&, const std::string&) override { unused<void>(); }
    void append(const std::string&, const std::string&) override { unused<void>(); }
    std::string read(const std::string&, std::size_t) const override { return unused<std::string>(); }
    std::string programFolder() const override { return unused<std::string>(); }
    std::string systemPath(const std::string&) const override { return unused<std::string>(); }
    std::string nativePath(const std::string& path) const override {
        if (path == "bad name") {
            throw RunTimeError(Failure::BadFileName);
        }
        return path;
    }

private:
    template <typename Result>
    static Result unused() {
        throw RunTimeError(Failure::Internal);
    }
};

inline NativePaths& nativePaths() {
    static NativePaths paths;
    return paths;
}

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
