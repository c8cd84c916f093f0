#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>

#include "adapters/http/curl_session.h"
#include "adapters/office_store/office_store.h"
#include "private_server.h"
#include "store_code.h"
#include "support/temp_folder.h"

namespace orv {
namespace {

/// The system's own settings refuse old TLS. Here everything may speak it, so that only the program refuses. The
/// library reads them once, before the first test.
struct AnyTls {
    AnyTls() {
        const std::string file = folder.write("any.cnf",
                                              "openssl_conf = all\n[all]\nssl_conf = ssl\n[ssl]\nsystem_default = any\n"
                                              "[any]\nMinProtocol = TLSv1\nCipherString = DEFAULT:@SECLEVEL=0\n");
        ::setenv("OPENSSL_CONF", file.c_str(), 1);
    }
    const TempFolder folder;
} const anyTls;

class OldTls : public ::testing::Test {
protected:
    OldTls() { server.listen(); }

    /// Why nothing is sent to a web server that speaks this version and has a certificate of nobody.
    std::string refusalOf(const std::string& version) {
        const std::string files = server.folder().string() + "/data/server.";
        const std::string command = "openssl s_server -www -accept 127.0.0.1:0 -naccept 1 -" + version +
                                    " -cipher ALL:@SECLEVEL=0 -cert " + files + "crt -key " + files + "key 2>/dev/null";
        std::FILE* const output = ::popen(command.c_str(), "r");
        std::array<char, 200> piece{};
        std::string line;
        while (!line.starts_with("ACCEPT") && std::fgets(piece.data(), piece.size(), output) != nullptr) {
            line = piece.data();
        }
        HttpRequest request;
        request.url =
            "https://127.0.0.1:" + line.substr(line.rfind(':') + 1, line.find_last_not_of('\n') - line.rfind(':')) +
            "/";
        std::string refusal;
        try {
            exchange(request);
        } catch (const RunTimeError& failure) {
            refusal = failure.description();
        }
        ::pclose(output);
        return refusal;
    }

    PrivateServer server;
};

TEST_F(OldTls, IsSpokenWithNoServer) {
    const std::string rest = std::to_string(server.port()) + " dbname=sample user=keeper ";
    const std::string text =
        "host=localhost port=" + rest + "sslrootcert=" + (server.folder() / "authority.pem").string();
    const TempFolder folder;
    writeFile(folder.file("store"), text);
    const std::string control = "PGSSLMINPROTOCOLVERSION=TLSv1 psql -X -c 'SELECT 1' '" + text + "' >/dev/null";
    for (const auto& [version, code] : {std::pair{"TLSv1.1", "DBCONN02"}, {"TLSv1.2", ""}}) {
        server.sql("postgres", "ALTER SYSTEM SET ssl_min_protocol_version = 'TLSv1'");
        server.sql("postgres", std::string("ALTER SYSTEM SET ssl_max_protocol_version = '") + version + "'");
        server.stop("fast");
        server.start();
        EXPECT_EQ(std::system(control.c_str()), 0) << "the server speaks " << version;
        EXPECT_EQ(codeOf([&] { officeStore()(folder.file("store"), StoreAccess::ReadWrite); }), code) << version;
    }
    EXPECT_NE(refusalOf("tls1_1").find("安全な接続を開始できません"), std::string::npos);
    EXPECT_NE(refusalOf("tls1_2").find("証明書を確認できません"), std::string::npos) << "a better one is judged";
}

}  // namespace
}  // namespace orv
