#include <gtest/gtest.h>

#include "adapters/postgres/server_fixture.h"
#include "adapters/store_terminal.h"

namespace orv {
namespace {

struct Case {
    std::string text, code;
    std::string shown = {};  // the result of `question` if it opens, otherwise part of the failure's text
};

class ServerNetwork : public ::testing::Test {
protected:
    void expect(const std::vector<Case>& cases, const std::string& question, const ServerLimits& limits = kLongLimits) {
        for (const Case& row : cases) {
            StoreService service(nativePaths(), postgresStore(limits));
            const std::string path = folder.file("server.txt");
            writeFile(path, row.text);
            ConnectionPtr connection;
            bool ok = false;
            service.DbOpen(connection, path, ok);
            EXPECT_EQ(ok, connection != nullptr);
            EXPECT_EQ(service.DbError().code, row.code) << row.text << "\n" << service.DbError().text;
            const std::string seen = ok ? Terminal(service, path).one(question) : service.DbError().text;
            EXPECT_NE(seen.find(row.shown), std::string::npos) << row.text << "\n" << seen;
        }
    }

    const TempFolder folder;
};

TEST_F(ServerNetwork, TheReasonOfAFailedOpeningIsReported) {
    PrivateServer& server = sharedServer();
    server.sql("postgres",
               "DROP DATABASE IF EXISTS raw; CREATE DATABASE raw ENCODING 'SQL_ASCII' TEMPLATE template0;"
               "DROP ROLE IF EXISTS guarded; CREATE ROLE guarded LOGIN PASSWORD 'right'");
    const std::string socket = "host=" + server.folder().string();
    const std::string database = std::filesystem::path(server.storeFile()).filename();
    const std::string here = socket + " dbname=" + database;
    writeFile(server.folder() / "passwords", "*:*:*:*:wrong");
    std::filesystem::permissions(server.folder() / "passwords", std::filesystem::perms(0600));
    expect({{here + " user=keeper", ""},
            {"\xEF\xBB\xBF# the office\r\n\r\n  host = " + server.folder().string() +
                 "\r\n#\r\nuser=keeper\r\ndbname=" + database,
             ""},
            {here + " user=keeper port=1", "DBCONN02"},
            {socket + " user=keeper dbname=nowhere", "DB3D000"},
            {socket + " user=keeper dbname=raw", "DBCONN05"},
            {here + " user=nobody_at_all", "DB28000"},
            {here + " user=guarded", "DBCONN04"},
            {here + " user=guarded passfile=" + server.folder().string() + "/passwords", "DB28P01"},
            {here + " colour=red", "DBFILE08"},
            {"host = # " + std::string(5000, 'x'), "DBFILE08"},
            {"# nothing but a remark", "DBFILE07"},
            {"a letter, host=x", "DBFILE07"}},
           "select 1");
}

TEST_F(ServerNetwork, OfSeveralHostsTheFirstThatAnswersInTimeIsUsed) {
    PrivateServer server;
    server.listen();
    const std::string rest = std::to_string(server.port()) + " user=keeper dbname=sample sslmode=verify-full " +
                             "sslrootcert=" + server.folder().string() + "/authority.pem";
    const std::string encrypted = "select ssl from pg_stat_ssl where pid = pg_backend_pid()";
    // The first host has another name, rejects the connection, or accepts it and stays silent.
    const std::string silent = sharedServer().folder().string();
    sharedServer().freeze();
    expect({{"host=127.0.0.1,localhost port=" + rest, "", "True"},
            {"host=127.0.0.1,localhost port=1," + rest, "", "True"},
            {"host=" + silent + ",localhost port=5432," + rest, "", "True"},
            {"host=" + silent, "DBCONN03"},
            {"host=" + silent + "," + silent + " connect_timeout=1", "DBCONN03"}},
           encrypted, butFor([](ServerLimits& limits) { limits.patience.connect = std::chrono::seconds(5); }));
    sharedServer().thaw();
}

TEST_F(ServerNetwork, AStandbyIsSkippedReadOrRefusedAsTheTextSays) {
    PrivateServer& server = sharedServer();
    const std::string database = std::filesystem::path(server.storeFile()).filename();
    server.sql(database,
               "DROP ROLE IF EXISTS reader; CREATE ROLE reader LOGIN;"
               "GRANT SELECT ON ALL TABLES IN SCHEMA public TO reader");
    const PrivateServer standby(server.folder());
    const std::string user = " user=keeper dbname=" + database;
    const std::string first = server.folder().string();
    const std::string pair = "host=" + standby.folder().string() + "," + first + user;
    const std::string turned = "host=" + first + "," + standby.folder().string() + user;
    expect({{pair, "", "True"},
            {pair + " target_session_attrs=read-write", "", "False"},
            {turned + " target_session_attrs=standby", "", "True"},
            {turned + " target_session_attrs=prefer-standby", "", "True"},
            {"host=" + first + user + " target_session_attrs=prefer-standby", "", "False"},
            {standby.text(database) + " target_session_attrs=read-write", "DBCONN02", "read-only"},
            {pair + " user=nobody_at_all", "DB28000"}},
           "select pg_is_in_recovery()");
    for (const auto& [text, code] : {std::pair(standby.text(database), "DB25006"),
                                     std::pair("host=" + first + " user=reader dbname=" + database, "DB42501")}) {
        writeFile(folder.file("server.txt"), text);
        StoreService service(nativePaths(), postgresStore(kLongLimits));
        Terminal terminal(service, folder.file("server.txt"));
        EXPECT_EQ(terminal.one("SELECT COUNT(*) FROM TBL_CUSTOMER_INFO"), "6");
        EXPECT_LT(terminal.execute(nameUpdate("000004601", "000004601", "x")), 0);
        EXPECT_EQ(service.DbError().code, code);
    }
}

}  // namespace
}  // namespace orv
