#include "adapters/http/curl_session.h"

#include <gtest/gtest.h>

#include <map>
#include <numeric>

#include "adapters/http/curl_http_control.h"
#include "http_fixture.h"
#include "support/variable.h"

namespace orv {
namespace {

TEST(CurlSession, OnlyWholeWebAddressesAreAsked) {
    const RawServer server("HTTP/1.1 200 OK\r\n\r\n");
    const std::string bare = server.url().substr(7);
    for (const std::string& url : {std::string(), bare, "ftp://" + bare, "http:/" + bare, std::string("http://a b/"),
                                   std::string("http://127.0.0.1:1/")}) {
        EXPECT_EQ(raisedBy([&] { get(url); }).number(), 24011) << url;
    }
    EXPECT_EQ(server.requests(), 0);
}

TEST(CurlSession, AProxyOfTheEnvironmentIsNotUsed) {
    const RawServer proxy("HTTP/1.1 204 No Content\r\n\r\n");
    const RawServer server("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
    for (const char* name : {"http_proxy", "all_proxy", "ALL_PROXY"}) {
        const Variable set(name, proxy.url());
        EXPECT_EQ(get(server.url()).status, 200) << name;
    }
    EXPECT_EQ(proxy.requests(), 0);
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
        writeFile(folder.file(name), bytes);
        control.URL(suite.url("/rereceive46/davroot/" + name));
        std::string response;
        control.Upload(folder.file(name), std::nullopt, response, std::nullopt, "kvr73node", "Xk9TRbmW2");
        EXPECT_EQ(control.ResponseCode(), 201) << name;
        EXPECT_EQ(readFile(served.file("photos/" + name)), bytes) << name;
    }
}

}  // namespace
}  // namespace orv
