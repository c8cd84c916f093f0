#include <gtest/gtest.h>
#include <openssl/x509.h>

#include <chrono>
#include <cstdlib>
#include <memory>

#include "adapters/http/curl_session.h"
#include "http_fixture.h"

namespace orv {
namespace {

constexpr const char* kFine = "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n";

int statusOf(const std::string& url) {
    HttpRequest request;
    request.url = url;
    request.timeout = std::chrono::minutes(3);
    request.user = "user";
    request.password = "secret";
    return exchange(request).status;
}

/// A server that vouches for itself: nobody whom the machine trusts has signed.
class SelfSignedServer {
public:
    SelfSignedServer() : key_(EVP_EC_gen("P-256")), certificate_(X509_new()) {
        X509_gmtime_adj(X509_getm_notBefore(certificate_), -3600);
        X509_gmtime_adj(X509_getm_notAfter(certificate_), 3600);
        X509_set_pubkey(certificate_, key_);
        X509_sign(certificate_, key_, EVP_sha256());
        server_ = std::make_unique<httplib::SSLServer>(certificate_, key_);
        server_->Get("/", [this](const httplib::Request&, httplib::Response&) { asked_ = true; });
        port_ = server_->bind_to_any_port("127.0.0.1");
        thread_ = std::thread([this] { server_->listen_after_bind(); });
    }
    SelfSignedServer(const SelfSignedServer&) = delete;
    SelfSignedServer& operator=(const SelfSignedServer&) = delete;
    ~SelfSignedServer() {
        server_->stop();
        thread_.join();
        X509_free(certificate_);
        EVP_PKEY_free(key_);
    }

    bool asked() const { return asked_; }
    std::string url() const { return "https://127.0.0.1:" + std::to_string(port_) + "/"; }

private:
    EVP_PKEY* key_;
    X509* certificate_;
    std::unique_ptr<httplib::SSLServer> server_;
    std::atomic<bool> asked_{false};
    int port_ = 0;
    std::thread thread_;
};

TEST(StrangeServer, ACertificateThatNobodyVouchesForIsRefusedBeforeAnythingIsSent) {
    const SelfSignedServer server;
    const RunTimeError failure = raisedBy([&] { statusOf(server.url()); });
    EXPECT_NE(failure.description().find("証明書を確認できません"), std::string::npos) << failure.description();
    EXPECT_FALSE(server.asked());
}

TEST(StrangeServer, NeitherARedirectNorTheEnvironmentLeadsElsewhere) {
    const RawServer elsewhere(kFine);
    const RawServer redirecting("HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + elsewhere.url() + "\r\n\r\n");
    EXPECT_EQ(statusOf(redirecting.url()), 302);

    const RawServer server(kFine);
    for (const char* name : {"http_proxy", "all_proxy", "ALL_PROXY"}) {
        ::setenv(name, elsewhere.url().c_str(), 1);
        EXPECT_EQ(statusOf(server.url()), 200) << name;
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
    HttpRequest request;
    request.url = server.url();
    request.timeout = std::chrono::minutes(3);
    EXPECT_EQ(exchange(request).status, 200);
    ::setenv("HOME", before.c_str(), 1);
    EXPECT_TRUE(server.lastRequest().starts_with("GET / HTTP/1.1")) << server.lastRequest();
    EXPECT_EQ(server.lastRequest().find("Authorization"), std::string::npos);
}

}  // namespace
}  // namespace orv
