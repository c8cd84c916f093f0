#include "adapters/http/curl_session.h"

#include <gtest/gtest.h>
#include <httplib.h>
#include <openssl/x509.h>

#include <map>
#include <tuple>

#include "http_fixture.h"

namespace orv {
namespace {

using std::chrono::milliseconds;

HttpResponse get(const std::string& url, milliseconds timeout = milliseconds(5000)) {
    HttpRequest request;
    request.url = url;
    request.timeout = timeout;
    return exchange(request);
}

TEST(CurlSession, AnAnswerThatIsNotWholeIsAFailureWhateverItsStatus) {
    const std::map<std::string, std::string> cases{
        {"closed without a word", ""},
        {"cut in the head", "HTTP/1.1 200 OK\r\nContent-Le"},
        {"cut behind an interim answer", "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\nA: b\r\n"},
        {"cut in the body", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n{\"id\":"},
        {"cut in a chunk", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n20\r\nabc"},
        {"chunks that are none", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\nabc\r\n"},
        {"no HTTP", "SSH-2.0-OpenSSH_9.2\r\n"},
        {"too long, as announced", "HTTP/1.1 200 OK\r\nContent-Length: 1048577\r\n\r\n" + std::string(1048577, 'x')},
        {"too long, unannounced", "HTTP/1.1 200 OK\r\n\r\n" + std::string(2'000'000, 'x')},
    };
    for (const auto& [what, bytes] : cases) {
        const RawServer server(bytes);
        const RunTimeError failure = raisedBy([&] { get(server.url()); });
        EXPECT_EQ(failure.number(), 24011) << what;
        EXPECT_TRUE(failure.description().starts_with("サーバー")) << what << ": " << failure.description();
    }
}

TEST(CurlSession, NobodyThereOrNoSuchPlaceIsAConnectionFailure) {
    for (const std::string& url : {deafUrl(), std::string("http://no-such-host.invalid/")}) {
        EXPECT_EQ(raisedBy([&] { get(url); }).number(), 24011) << url;
    }
}

TEST(CurlSession, OnlyWholeWebAddressesAreAsked) {
    const RawServer server("HTTP/1.1 200 OK\r\n\r\n");
    const std::string bare = server.url().substr(7);
    for (const std::string& url : {std::string(), std::string("http://"), bare, "ftp://" + bare, "http:/" + bare,
                                   std::string("file:///etc/hostname"), std::string("http://a b/"),
                                   std::string("http://127.0.0.1:99999/"), server.url() + "\r\nX: y"}) {
        EXPECT_EQ(raisedBy([&] { get(url); }).number(), 24011) << url;
    }
    EXPECT_EQ(get("HTTP://" + bare).status, 200);
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST(CurlSession, ASilentServerIsATimeOut) {
    const RawServer server("", true);
    EXPECT_EQ(raisedBy([&] { get(server.url(), milliseconds(100)); }).number(), 24012);
}

TEST(CurlSession, StatusAndReasonComeAsReadableText) {
    const std::vector<std::tuple<std::string, int, std::string>> cases = {
        {"HTTP/1.1 200 OK", 200, "OK"},
        {"HTTP/1.0 404 Not Found", 404, "Not Found"},
        {"HTTP/1.1 500", 500, ""},
        {"HTTP/1.1 503 混雑中\xFF!", 503, "混雑中\uFFFD!"},
        {"HTTP/1.1 503 a\x1B[2Jb\tc", 503, "a [2Jb c"},
        {"HTTP/1.1 503 " + std::string(5000, 'x'), 503, std::string(200, 'x')},
        {"HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 409 Conflict", 409, "Conflict"},
    };
    for (const auto& [line, status, reason] : cases) {
        const RawServer server(line + "\r\nContent-Length: 0\r\n\r\n");
        const HttpResponse response = get(server.url());
        EXPECT_EQ(response.status, status) << line;
        EXPECT_EQ(response.reason, reason) << line;
    }
}

TEST(CurlSession, ARedirectIsAnAnswerAndIsNotFollowed) {
    const RawServer target("HTTP/1.1 200 OK\r\n\r\n");
    const RawServer server("HTTP/1.1 302 Found\r\nLocation: " + target.url() + "\r\nContent-Length: 0\r\n\r\n");
    EXPECT_EQ(get(server.url()).status, 302);
    EXPECT_TRUE(target.requests().empty());
}

TEST(CurlSession, ProxiesOfTheEnvironmentAreNotUsed) {
    const RawServer server("HTTP/1.1 200 OK\r\n\r\n");
    for (const char* name : {"http_proxy", "all_proxy", "ALL_PROXY"}) {
        ::setenv(name, deafUrl().c_str(), 1);
    }
    EXPECT_EQ(get(server.url()).status, 200);
    for (const char* name : {"http_proxy", "all_proxy", "ALL_PROXY"}) {
        ::unsetenv(name);
    }
}

TEST(CurlSession, ALargeBodyIsSentAtOnceWithoutAskingFirst) {
    const RawServer server("HTTP/1.1 200 OK\r\n\r\n");
    HttpRequest request;
    request.url = server.url("/register");
    request.body = std::string(3'000'000, 'x');
    exchange(request);
    const std::string& sent = server.requests().at(0);
    EXPECT_EQ(sent.find("Expect"), std::string::npos);
    EXPECT_TRUE(sent.ends_with("\r\n\r\n" + request.body));
}

/// A server that vouches for itself: nobody whom the machine trusts has signed.
class SelfSignedServer {
public:
    SelfSignedServer() : key_(EVP_EC_gen("P-256")), certificate_(X509_new()) {
        X509_set_version(certificate_, 2);
        X509_gmtime_adj(X509_getm_notBefore(certificate_), -3600);
        X509_gmtime_adj(X509_getm_notAfter(certificate_), 3600);
        X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate_), "CN", MBSTRING_ASC,
                                   reinterpret_cast<const unsigned char*>("127.0.0.1"), -1, -1, 0);
        X509_set_issuer_name(certificate_, X509_get_subject_name(certificate_));
        X509_set_pubkey(certificate_, key_);
        X509_sign(certificate_, key_, EVP_sha256());
        server_ = std::make_unique<httplib::SSLServer>(certificate_, key_);
        server_->Get("/", [this](const httplib::Request&, httplib::Response&) { asked_ = true; });
        port_ = server_->bind_to_any_port("127.0.0.1");
        thread_ = std::thread([this] { server_->listen_after_bind(); });
    }
    ~SelfSignedServer() {
        server_->stop();
        thread_.join();
        X509_free(certificate_);
        EVP_PKEY_free(key_);
    }
    SelfSignedServer(const SelfSignedServer&) = delete;
    SelfSignedServer& operator=(const SelfSignedServer&) = delete;

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

TEST(CurlSession, ACertificateThatNobodyVouchesForIsRefusedBeforeAnythingIsSent) {
    const SelfSignedServer server;
    const RunTimeError failure = raisedBy([&] { get(server.url()); });
    EXPECT_EQ(failure.number(), 24011);
    EXPECT_NE(failure.description().find("証明書を確認できません"), std::string::npos) << failure.description();
    EXPECT_FALSE(server.asked());
}

TEST(CurlSession, TheNameAtTheEndOfAUrlIsEncodedAndNothingElse) {
    const std::map<std::string, std::string> cases{
        {"http://h/d/---------COS00000000_01.jpg", "http://h/d/---------COS00000000_01.jpg"},
        {"http://h/d/a b.jpg", "http://h/d/a%20b.jpg"},
        {"http://h/d/50%#1?.jpg", "http://h/d/50%25%231%3F.jpg"},
        {"http://h/d/外観.jpg", "http://h/d/%E5%A4%96%E8%A6%B3.jpg"},
        {"http://h/a%20b/~x", "http://h/a%20b/~x"},
        {"http://h:80", "http://h:80"},
        {"http://h/d/", "http://h/d/"},
        {"", ""},
    };
    for (const auto& [url, encoded] : cases) {
        EXPECT_EQ(withEncodedName(url), encoded);
    }
}

}  // namespace
}  // namespace orv
