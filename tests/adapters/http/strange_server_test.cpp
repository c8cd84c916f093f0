#include <gtest/gtest.h>
#include <openssl/conf.h>
#include <openssl/x509.h>

#include <cstdlib>

#include "http_fixture.h"

namespace orv {
namespace {

constexpr const char* kFine = "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n";

TEST(StrangeServer, ACertificateThatNobodyVouchesForAndOldTlsAreRefusedBeforeAnythingIsSent) {
    EVP_PKEY* key = EVP_EC_gen("P-256");
    X509* certificate = X509_new();
    X509_gmtime_adj(X509_getm_notBefore(certificate), -3600);
    X509_gmtime_adj(X509_getm_notAfter(certificate), 3600);
    X509_set_pubkey(certificate, key);
    X509_sign(certificate, key, EVP_sha256());
    // The system's own settings refuse old TLS. Here both sides may speak it, so that only the program refuses.
    const TempFolder folder;
    const std::string any = folder.write("any.cnf",
                                         "openssl_conf = all\n[all]\nssl_conf = ssl\n[ssl]\nsystem_default = any\n"
                                         "[any]\nMinProtocol = TLSv1\nCipherString = DEFAULT:@SECLEVEL=0\n");
    ASSERT_EQ(CONF_modules_load_file(any.c_str(), nullptr, 0), 1);
    for (const auto& [version, words] :
         {std::pair{TLS1_1_VERSION, "安全な接続を開始できません"}, {TLS1_2_VERSION, "証明書を確認できません"}}) {
        httplib::SSLServer server(certificate, key);
        SSL_CTX_set_min_proto_version(server.ssl_context(), TLS1_VERSION);
        SSL_CTX_set_max_proto_version(server.ssl_context(), version);
        std::atomic<bool> asked{false};
        server.Get("/", [&](const httplib::Request&, httplib::Response&) { asked = true; });
        const std::string url = "https://127.0.0.1:" + std::to_string(server.bind_to_any_port("127.0.0.1")) + "/";
        std::thread thread([&] { server.listen_after_bind(); });
        const RunTimeError failure = raisedBy([&] { get(url); });
        while (!server.is_running()) {
            std::this_thread::yield();
        }
        server.stop();
        thread.join();
        EXPECT_NE(failure.description().find(words), std::string::npos) << failure.description();
        EXPECT_FALSE(asked);
    }
    X509_free(certificate);
    EVP_PKEY_free(key);
}

TEST(StrangeServer, NeitherARedirectNorTheEnvironmentLeadsElsewhere) {
    const RawServer elsewhere(kFine);
    for (const int status : {301, 302, 303, 307, 308}) {
        const RawServer server("HTTP/1.1 " + std::to_string(status) + " Moved\r\nContent-Length: 0\r\nLocation: " +
                               elsewhere.url() + "\r\nRefresh: 0;url=" + elsewhere.url() + "\r\n\r\n");
        EXPECT_EQ(get(server.url()).status, status);
    }
    const RawServer server(kFine);
    for (const char* name : {"http_proxy", "all_proxy", "ALL_PROXY"}) {
        ::setenv(name, elsewhere.url().c_str(), 1);
        EXPECT_EQ(get(server.url()).status, 200) << name;
        ::unsetenv(name);
    }
    EXPECT_EQ(elsewhere.requests(), 0);
}

TEST(StrangeServer, PasswordsThatTheUserHasStoredAreNotSent) {
    const TempFolder home;
    home.write(".netrc", "machine 127.0.0.1 login clerk password private\n");
    const char* usual = std::getenv("HOME");
    const std::string before = usual == nullptr ? "" : usual;
    ::setenv("HOME", home.path().c_str(), 1);
    const RawServer server(kFine);
    EXPECT_EQ(get(server.url()).status, 200);
    ::setenv("HOME", before.c_str(), 1);
    EXPECT_TRUE(server.lastRequest().starts_with("GET / HTTP/1.1")) << server.lastRequest();
    EXPECT_EQ(server.lastRequest().find("Authorization"), std::string::npos);
}

}  // namespace
}  // namespace orv
