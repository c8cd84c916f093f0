#include "adapters/http/curl_session.h"

#include <gtest/gtest.h>

#include <map>
#include <numeric>

#include "adapters/http/curl_http_control.h"
#include "http_fixture.h"
#include "support/native_files.h"

namespace orv {
namespace {

TEST(CurlSession, AnAnswerThatIsNotWholeIsAFailureWhateverItsStatus) {
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

TEST(CurlSession, OnlyWholeWebAddressesAreAsked) {
    const RawServer server("HTTP/1.1 200 OK\r\n\r\n");
    const std::string bare = server.url().substr(7);
    for (const std::string& url : {std::string(), bare, "ftp://" + bare, "http:/" + bare, std::string("http://a b/"),
                                   std::string("http://127.0.0.1:1/")}) {
        EXPECT_EQ(raisedBy([&] { get(url); }).number(), 24011) << url;
    }
    EXPECT_EQ(server.requests(), 0);
}

TEST(CurlSession, StatusAndReasonComeAsReadableText) {
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

TEST(CurlSession, TheNameAtTheEndOfAUrlIsEncodedAndNothingElse) {
    const std::map<std::string, std::string> cases{
        {"http://h/d/50%#1?.jpg", "http://h/d/50%25%231%3F.jpg"},
        {"http://h/d/外観.jpg", "http://h/d/%E5%A4%96%E8%A6%B3.jpg"},
        {"http://h/a%20b/~x", "http://h/a%20b/~x"},
        {"http://h:80", "http://h:80"},
    };
    for (const auto& [url, encoded] : cases) EXPECT_EQ(withEncodedName(url), encoded);
}

TEST(CurlHttpControl, FilesArriveByteForByteUnderTheirNames) {
    const TempFolder folder;
    const TempFolder served;
    const RunningSuite suite{served.path()};
    const NativeFiles files;
    CurlHttpControl control{files};
    control.Version("HTTP/1.1");
    control.Timeout(180000);
    std::string everyByte(256 * 4096, '\0');
    std::iota(everyByte.begin(), everyByte.end(), '\0');
    const std::map<std::string, std::string> photos{{"---------COS00000000_02.jpg", everyByte},
                                                    {"外観㈱髙 b+c&d.jpg", "kanji"}};
    for (const auto& [name, bytes] : photos) {
        writeFile(folder.path() / name, bytes);
        control.URL(suite.url("/rereceive46/davroot/" + name));
        std::string response;
        control.Upload(folder.file(name), std::nullopt, response, std::nullopt, "kvr73node", "Xk9TRbmW2");
        EXPECT_EQ(control.ResponseCode(), 201) << name;
        EXPECT_EQ(readFile(served.path() / "photos" / name), bytes) << name;
    }
}

}  // namespace
}  // namespace orv
