#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include "adapters/postgres/server_fixture.h"
#include "adapters/store_terminal.h"

namespace orv {
namespace {

using namespace std::chrono_literals;

constexpr auto kAtMost = 3s;

/// Takes connections and never says a word.
class SilentHost {
public:
    SilentHost() : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* const place = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(::bind(socket_, place, size), 0);
        EXPECT_EQ(::listen(socket_, 8), 0);
        EXPECT_EQ(::getsockname(socket_, place, &size), 0);
        port = std::to_string(ntohs(address.sin_port));
    }
    ~SilentHost() { ::close(socket_); }

    std::string port;

private:
    int socket_;
};

struct Case {
    std::string text, code;
    std::string shown = {};  // where it opens, what `question` yields; else a part of the failure's text
};

class ServerNetwork : public ::testing::Test {
protected:
    void expect(const std::vector<Case>& cases, const std::string& question) {
        for (const Case& row : cases) {
            StoreService service(nativePaths(), postgresStore(kShortLimits));
            const std::string path = folder.file("server.txt");
            writeFile(path, row.text);
            ConnectionPtr connection;
            bool ok = false;
            const auto start = std::chrono::steady_clock::now();
            service.DbOpen(connection, path, ok);
            EXPECT_LT(std::chrono::steady_clock::now() - start, kAtMost) << row.text;
            EXPECT_EQ(service.DbError().code, row.code) << row.text << "\n" << service.DbError().text;
            if (ok) {
                EXPECT_EQ(Terminal(service, path).one(question), row.shown) << row.text;
            } else {
                EXPECT_NE(service.DbError().text.find(row.shown), std::string::npos) << service.DbError().text;
            }
        }
    }

    const TempFolder folder;
};

TEST_F(ServerNetwork, OnlyTheRightServerIsTalkedToAndNeverInTheOpen) {
    PrivateServer server;
    server.listen();
    const std::string port = " port=" + std::to_string(server.port()) + " user=keeper dbname=sample ";
    const std::string root = "sslrootcert=" + server.folder().string();
    const std::string full = "sslmode=verify-full " + root + "/authority.pem";
    const std::string encrypted = "select ssl from pg_stat_ssl where pid = pg_backend_pid()";
    expect({{"host=localhost" + port + full, "", "True"},
            {"host=localhost" + port + "sslmode=require", "", "True"},
            {"host=localhost" + port + "sslmode=disable", "DB28000"},
            {"host=localhost" + port + "sslmode=verify-full " + root + "/stranger.pem", "DBCONN02", "certificate"},
            {"host=localhost" + port + "sslmode=verify-full " + root + "/missing.pem", "DBCONN02", "missing.pem"},
            {"host=127.0.0.1" + port + full, "DBCONN02", "localhost"},
            {"host=store.example.jp hostaddr=127.0.0.1" + port + full, "DBCONN02", "store.example.jp"},
            {"host=127.0.0.1,localhost" + port + full, "", "True"}},
           encrypted);
    const SilentHost silent;
    const std::string two = silent.port + "," + std::to_string(server.port()) + " user=keeper dbname=sample ";
    expect({{"host=127.0.0.1,localhost port=1," + two.substr(two.find(',') + 1) + full, "", "True"},
            {"host=127.0.0.1,localhost port=" + two + full, "", "True"},
            {"host=127.0.0.1 port=" + silent.port, "DBCONN03"},
            {"host=127.0.0.1,127.0.0.1 connect_timeout=1 port=" + silent.port, "DBCONN03"}},
           encrypted);
    server.sql("postgres", "ALTER SYSTEM SET ssl = off");
    server.stop("fast");
    server.start();
    expect({{"host=localhost" + port + full, "DBCONN02", "SSL"},
            {"host=localhost" + port + "sslmode=require", "DBCONN02"}},
           encrypted);
}

TEST_F(ServerNetwork, AStandbyIsPassedOverReadOrRefusedAsTheTextSays) {
    PrivateServer& server = sharedServer();
    const std::string database = std::filesystem::path(server.storeFile()).filename();
    server.sql(database,
               "DROP ROLE IF EXISTS reader; CREATE ROLE reader LOGIN;"
               "GRANT SELECT ON ALL TABLES IN SCHEMA public TO reader");
    const PrivateServer standby(server.folder());
    const std::string user = " user=keeper dbname=" + database;
    const std::string pair = "host=" + standby.folder().string() + "," + server.folder().string() + user;
    const std::string turned = "host=" + server.folder().string() + "," + standby.folder().string() + user;
    expect({{pair, "", "True"},
            {pair + " target_session_attrs=read-write", "", "False"},
            {turned + " target_session_attrs=standby", "", "True"},
            {turned + " target_session_attrs=prefer-standby", "", "True"},
            {"host=" + server.folder().string() + user + " target_session_attrs=prefer-standby", "", "False"},
            {standby.text(database) + " target_session_attrs=read-write", "DBCONN02", "read-only"},
            {"host=" + standby.folder().string() + "," + server.folder().string() + " user=nobody_at_all dbname=x",
             "DB28000"}},
           "select pg_is_in_recovery()");
    for (const auto& [text, code] :
         {std::pair(standby.text(database), "DB25006"),
          std::pair("host=" + server.folder().string() + " user=reader dbname=" + database, "DB42501")}) {
        writeFile(folder.file("server.txt"), text);
        StoreService service(nativePaths(), postgresStore(kShortLimits));
        Terminal terminal(service, folder.file("server.txt"));
        EXPECT_EQ(terminal.one("SELECT COUNT(*) FROM TBL_CUSTOMER_INFO"), "6");
        EXPECT_LT(terminal.execute(nameUpdate("000004601", "000004601", "x")), 0);
        EXPECT_EQ(service.DbError().code, code);
    }
}

}  // namespace
}  // namespace orv
