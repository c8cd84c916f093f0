#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>

#include "adapters/office_store/office_store.h"
#include "adapters/store/store_failure.h"
#include "private_server.h"
#include "support/store_files.h"

namespace orv {
namespace {

/// The code of the failure with which the store that `text` names opens; empty where it opens.
std::string codeOf(const std::string& text, std::string* words = nullptr) {
    const TempFolder folder;
    writeFile(folder.file("store"), text);
    try {
        officeStore()(folder.file("store"), StoreAccess::ReadWrite);
        return "";
    } catch (const StoreFailure& failure) {
        if (words != nullptr) {
            *words = failure.description();
        }
        return failure.code();
    }
}

class Variable {
public:
    Variable(const char* name, const std::string& value) : name_(name) { ::setenv(name, value.c_str(), 1); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable() { ::unsetenv(name_); }

private:
    const char* name_;
};

/// A server that speaks TLS, and what is needed to reach it.
struct SafeServer {
    SafeServer() { server.listen(); }
    std::string text(const std::string& host, const std::string& user = "keeper") const {
        return "host=" + host + " port=" + std::to_string(server.port()) + " dbname=sample user=" + user + " ";
    }
    std::string file(const std::string& name) const { return (server.folder() / name).string(); }

    PrivateServer server;
};

SafeServer& safeServer() {
    static SafeServer safe;
    return safe;
}

TEST(StoreText, ASettingThatCouldRunCodeIsRefusedWhereverItComesFrom) {
    const TempFolder folder;
    const Variable mark("HOSTILE_MARK", folder.file("mark"));
    const SafeServer& safe = safeServer();
    const std::string key = std::string(HOSTILE_KEY) + ":x";
    const std::string safeText = safe.text("localhost") + "sslrootcert=" + safe.file("authority.pem");
    const std::string text = safeText + " sslcert=" + safe.file("authority.pem") + " ";
    const Variable services("PGSERVICEFILE", folder.file("services"));
    writeFile(folder.file("services"), "[office]\nsslkey=" + key + "\n");
    EXPECT_EQ(codeOf(text + "sslkey=" + key), "DBFILE08");
    EXPECT_EQ(codeOf(text + "service=office"), "DBFILE08");
    {
        const Variable environment("PGSSLKEY", key);
        EXPECT_EQ(codeOf(text), "DBFILE08");
    }
    for (const std::string other :
         {"options='-c role=keeper'", "sslcrldir=/tmp", "gsslib=gssapi", "replication=true", "channel_binding=disable",
          "client_encoding=SJIS", "sslkey=C:/k:x", "gssencmode=require", "ssl_min_protocol_version=TLSv1"}) {
        EXPECT_EQ(codeOf(safeText + " " + other), "DBFILE08") << other;
    }
    EXPECT_FALSE(folder.has("mark")) << "the code ran";
    EXPECT_EQ(codeOf(safeText + " sslkey=C:/office.key keepalives=1 application_name=orv connect_timeout=9"), "")
        << "without a certificate the key is not read";
}

TEST(StoreText, ATextThatSaysNothingOfTlsGetsTheRightServerOrNone) {
    const SafeServer& safe = safeServer();
    const std::string root = "sslrootcert=" + safe.file("authority.pem");
    struct Case {
        std::string text, code;
    };
    for (const Case& row : {
             Case{safe.text("localhost") + root, ""}, Case{safe.text("localhost"), "DBCONN02"},
             Case{safe.text("127.0.0.1") + root, "DBCONN02"},
             Case{safe.text("localhost") + "sslrootcert=" + safe.file("stranger.pem"), "DBCONN02"},
             Case{safe.text("127.0.0.1") + "sslmode=require", ""},
             Case{safe.server.text("sample"), ""},  // a local socket
         }) {
        EXPECT_EQ(codeOf(row.text), row.code) << row.text;
    }
    const Variable mode("PGSSLMODE", "require");
    EXPECT_EQ(codeOf(safe.text("127.0.0.1")), "") << "the user's own environment decides too";
}

TEST(StoreText, NoServerGetsThePasswordInTheClear) {
    const SafeServer& safe = safeServer();
    safe.server.sql("postgres",
                    "DROP ROLE IF EXISTS guarded, asked; CREATE ROLE guarded LOGIN PASSWORD 'right';"
                    "CREATE ROLE asked LOGIN PASSWORD 'right'");
    const std::string rules = readFile(safe.file("data/pg_hba.conf"));
    writeFile(safe.file("data/pg_hba.conf"),
              "hostssl all guarded all scram-sha-256\nhostssl all asked all password\n" + rules);
    safe.server.sql("postgres", "SELECT pg_reload_conf()");
    const TempFolder folder;
    folder.write("passwords", "*:*:*:*:right\n");
    ASSERT_EQ(::chmod(folder.file("passwords").c_str(), 0600), 0);
    const std::string rest = "sslrootcert=" + safe.file("authority.pem") + " passfile=" + folder.file("passwords");
    EXPECT_EQ(codeOf(safe.text("localhost", "guarded") + rest), "");
    std::string words;
    EXPECT_EQ(codeOf(safe.text("localhost", "asked") + rest, &words), "DBCONN02");
    EXPECT_NE(words.find("channel binding"), std::string::npos) << words;
}

}  // namespace
}  // namespace orv
