#include "store_observer.h"

#include <libpq-fe.h>
#include <sqlite3.h>

#include <chrono>
#include <stdexcept>
#include <thread>

#include "platform/ascii.h"

namespace crash_test {
namespace {

namespace fs = std::filesystem;

/// True for the free disk space, and for the kind of network, which is blank by design if the settings cannot be read.
bool isMeasured(const std::string& name) {
    const std::string column = orv::upperAscii(name);
    return column.ends_with("HD_CAP") || column == "NET_TYPE";
}

class FileObserver : public StoreObserver {
public:
    FileObserver(fs::path file, fs::path copy) : file_(std::move(file)), copy_(std::move(copy)) {}

    std::vector<std::string> rows(const std::string& sql) override { return ask(copied(), sql); }
    void run(const std::string& sql) override { ask(file_, sql); }
    std::string damage() override {
        const std::vector<std::string> found = ask(copied(), "PRAGMA integrity_check");
        return found == std::vector<std::string>{"ok"} ? "" : found.empty() ? "no answer" : found.front();
    }
    void beginAgain() override {}
    void keep() override {}
    void comeBack() override {}

private:
    fs::path copied() const {
        fs::remove_all(copy_);
        fs::copy(file_.parent_path(), copy_);
        return copy_ / file_.filename();
    }
    static std::vector<std::string> ask(const fs::path& file, const std::string& sql) {
        sqlite3* database = nullptr;
        std::vector<std::string> found;
        bool fine = sqlite3_open_v2(file.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK;
        fine = fine && sqlite3_exec(database, sql.c_str(), addRow, &found, nullptr) == SQLITE_OK;
        const std::string words = sqlite3_errmsg(database);
        sqlite3_close(database);
        if (!fine) {
            throw std::runtime_error(sql + ": " + words);
        }
        return found;
    }
    static int addRow(void* list, int count, char** values, char** names) {
        std::string row;
        for (int i = 0; i < count; ++i) {
            const bool isNull = values[i] == nullptr;
            row += (i > 0 ? "|" : "") + std::string(isMeasured(names[i]) ? "*" : isNull ? "NULL" : values[i]);
        }
        static_cast<std::vector<std::string>*>(list)->push_back(row);
        return 0;
    }

    fs::path file_;
    fs::path copy_;
};

class ServerObserver : public StoreObserver {
public:
    explicit ServerObserver(const std::string& text) : connection_(PQconnectdb(text.c_str()), PQfinish) {
        run("SET client_min_messages = error; CREATE SCHEMA first; CREATE SCHEMA kept");
        for (const char* table : kTables) {
            for (const std::string schema : {"first.", "kept."}) {
                run("CREATE TABLE " + schema + table + " AS SELECT * FROM " + table);
            }
        }
    }

    std::vector<std::string> rows(const std::string& sql) override {
        waitForTheOthers();
        return ask(sql);
    }
    void run(const std::string& sql) override { ask(sql); }
    std::string damage() override { return {}; }
    void beginAgain() override { refill("", "first."); }
    void keep() override { refill("kept.", ""); }
    void comeBack() override {
        waitForTheOthers();
        refill("", "kept.");
    }

private:
    static constexpr const char* kTables[] = {"TBL_CUSTOMER_INFO", "TBL_CUSTOMER_ADD", "TBL_CUSTOMER_DATE", "TBL_LOCK"};
    static constexpr int kTries = 180000;  // a millisecond each

    void refill(const std::string& into, const std::string& from) {
        for (const std::string table : kTables) {
            run("DELETE FROM " + into + table + "; INSERT INTO " + into + table + " SELECT * FROM " + from + table);
        }
    }
    std::vector<std::string> ask(const std::string& sql) {
        const std::unique_ptr<PGresult, decltype(&PQclear)> result(PQexec(connection_.get(), sql.c_str()), PQclear);
        const int status = PQresultStatus(result.get());
        if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK && status != PGRES_EMPTY_QUERY) {
            throw std::runtime_error(sql + ": " + PQerrorMessage(connection_.get()));
        }
        std::vector<std::string> found;
        for (int row = 0; row < PQntuples(result.get()); ++row) {
            found.emplace_back();
            for (int column = 0; column < PQnfields(result.get()); ++column) {
                const bool isNull = PQgetisnull(result.get(), row, column) != 0;
                const bool isLeftOut = isMeasured(PQfname(result.get(), column));
                found.back() += column > 0 ? "|" : "";
                found.back() += isLeftOut ? "*" : isNull ? "NULL" : PQgetvalue(result.get(), row, column);
            }
        }
        return found;
    }
    void waitForTheOthers() {
        const char* others =
            "SELECT 1 FROM pg_stat_activity WHERE datname = current_database() AND pid <> pg_backend_pid() "
            "AND backend_type = 'client backend'";
        for (int tries = 0; !ask(others).empty(); ++tries) {
            if (tries == kTries) {
                throw std::runtime_error("a session of a dead program is still there");
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    std::unique_ptr<PGconn, decltype(&PQfinish)> connection_;
};

}  // namespace

std::unique_ptr<StoreObserver> observerOfFile(const fs::path& file, const fs::path& copy) {
    return std::make_unique<FileObserver>(file, copy);
}

std::unique_ptr<StoreObserver> observerOfServer(const std::string& text) {
    return std::make_unique<ServerObserver>(text);
}

}  // namespace crash_test
