#include <gtest/gtest.h>
#include <openssl/x509.h>

#include <map>

#include "adapters/http/company_document.h"
#include "adapters/http/http_fixture.h"
#include "any_tls.h"

namespace orv {
namespace {

constexpr const char* kFine = "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n";

TEST(StrangeServer, AnIncompleteAnswerIsAFailureForAnyStatus) {
    std::string manyHeaders;
    while (manyHeaders.size() < 2'000'000) {
        manyHeaders += "X: " + std::string(1000, 'x') + "\r\n";
    }
    std::map<std::string, std::string> cases{
        {"no HTTP", "SSH-2.0-OpenSSH_9.2\r\n"},
        {"too long, unannounced", "HTTP/1.1 200 OK\r\n\r\n" + std::string(2'000'000, 'x')},
        {"too much after it", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n" + manyHeaders + "\r\n"},
    };
    const std::string whole = "HTTP/1.1 200 OK\r\nContent-Length: 18\r\n\r\n{\"id\":\"000005001\"}";
    for (std::size_t place = 0; place < whole.size(); ++place) {
        cases["cut at " + std::to_string(place)] = whole.substr(0, place);
    }
    for (const auto& [what, bytes] : cases) {
        const RawServer server(bytes);
        const RunTimeError failure = raisedBy([&] { get(server.url()); });
        EXPECT_EQ(failure.number(), 24011) << what;
        EXPECT_TRUE(failure.description().starts_with("サーバー")) << what << ": " << failure.description();
    }
}

TEST(StrangeServer, StatusAndReasonComeAsReadableText) {
    const std::vector<std::tuple<std::string, int, std::string>> cases = {
        {"HTTP/1.0 302 Moved\r\nLocation: /elsewhere", 302, "Moved"},
        {"HTTP/1.1 503 混雑中\xFF!", 503, "混雑中\uFFFD!"},
        {"HTTP/1.1 503 a\x1B[2Jb\tc", 503, "a [2Jb c"},
        {"HTTP/1.1 503 " + std::string(5000, 'x'), 503, std::string(500, 'x') + "…"},
        {"HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 409 Conflict", 409, "Conflict"},
    };
    for (const auto& [line, status, reason] : cases) {
        const RawServer server(line + "\r\nContent-Length: 0\r\n\r\n");
        const HttpResponse response = get(server.url());
        EXPECT_EQ(response.status, status) << line;
        EXPECT_EQ(response.reason, reason) << line;
    }
}

TEST(StrangeServer, AnIdThatIsAPathOrAPieceOfAStatementIsNone) {
    for (const char* body :
         {"", "ok", "[]", "{}", R"({"ID":"000005001"})", R"({"id":5001})", R"({"id":""})", R"({"id":"000005001"} x)",
          "<html>\xFF\xFE{]", "{\"id\":\"\xFF\"}", R"({"id":"a\u0000b"})", R"({"id":"1234';--"})",
          R"({"id":"../../../"})", R"({"id":"..\\..\\x"})", R"({"id":"0000,0001"})", R"({"id":"00000500 "})",
          R"({"id":"---------"})", R"({"id":"一二三四五六七八九"})"}) {
        EXPECT_EQ(idInAnswer(body), std::nullopt) << body;
    }
    EXPECT_EQ(idInAnswer(R"({"id":")" + std::string(65, '1') + "\"}"), std::nullopt);
    EXPECT_EQ(idInAnswer(R"({"id":)" + std::string(500'000, '{')), std::nullopt);
}

TEST(StrangeServer, AnUntrustedCertificateAndOldTlsAreRejectedBeforeAnythingIsSent) {
    EVP_PKEY* key = EVP_EC_gen("P-256");
    X509* certificate = X509_new();
    X509_gmtime_adj(X509_getm_notBefore(certificate), -3600);
    X509_gmtime_adj(X509_getm_notAfter(certificate), 3600);
    X509_set_pubkey(certificate, key);
    X509_sign(certificate, key, EVP_sha256());
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

TEST(StrangeServer, ARedirectIsNotFollowed) {
    const RawServer elsewhere(kFine);
    for (const int status : {301, 302, 303, 307, 308}) {
        const RawServer server("HTTP/1.1 " + std::to_string(status) + " Moved\r\nContent-Length: 0\r\nLocation: " +
                               elsewhere.url() + "\r\nRefresh: 0;url=" + elsewhere.url() + "\r\n\r\n");
        EXPECT_EQ(get(server.url()).status, status);
    }
    EXPECT_EQ(elsewhere.requests(), 0);
}

TEST(StrangeServer, PasswordsThatTheUserHasStoredAreNotSent) {
    const TempFolder home;
    home.write(".netrc", "machine 127.0.0.1 login clerk password private\n");
    const Variable ofUser("HOME", home.path().string());
    const RawServer server(kFine);
    EXPECT_EQ(get(server.url()).status, 200);
    EXPECT_TRUE(server.lastRequest().starts_with("GET / HTTP/1.1")) << server.lastRequest();
    EXPECT_EQ(server.lastRequest().find("Authorization"), std::string::npos);
}

}  // namespace
}  // namespace orv
