#include <gtest/gtest.h>
#include <openssl/x509.h>

#include <cstdlib>

#include "http_fixture.h"

namespace orv {
namespace {

constexpr const char* kFine = "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n";

TEST(StrangeServer, ACertificateThatNobodyVouchesForIsRefusedBeforeAnythingIsSent) {
    EVP_PKEY* key = EVP_EC_gen("P-256");
    X509* certificate = X509_new();
    X509_gmtime_adj(X509_getm_notBefore(certificate), -3600);
    X509_gmtime_adj(X509_getm_notAfter(certificate), 3600);
    X509_set_pubkey(certificate, key);
    X509_sign(certificate, key, EVP_sha256());
    httplib::SSLServer server(certificate, key);
    X509_free(certificate);
    EVP_PKEY_free(key);
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
    EXPECT_NE(failure.description().find("証明書を確認できません"), std::string::npos) << failure.description();
    EXPECT_FALSE(asked);
}

TEST(StrangeServer, TheEnvironmentDoesNotLeadElsewhere) {
    const RawServer elsewhere(kFine);
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
