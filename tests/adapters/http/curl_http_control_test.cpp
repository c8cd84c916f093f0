#include "adapters/http/curl_http_control.h"

#include <gtest/gtest.h>

#include <map>
#include <numeric>

#include "http_fixture.h"

namespace orv {
namespace {

constexpr const char* kUser = "kvr73node";
constexpr const char* kPassword = "Xk9TRbmW2";

class CurlHttpControlTest : public testing::Test {
protected:
    void SetUp() override {
        writeFile(folder.path() / "a.jpg", "picture");
        control.Version("HTTP/1.1");
        control.Timeout(5000);
        control.URL(photoUrl("a.jpg"));
    }

    std::string photoUrl(const std::string& name) const { return suite.url("/rereceive46/davroot/" + name); }
    void upload(const std::string& file = "C:\\a.jpg", const std::string& password = kPassword) {
        control.Upload(file, std::nullopt, response, std::nullopt, kUser, password);
    }

    TempFolder folder;
    TempFolder served;
    RunningSuite suite{served.path()};
    FolderFiles files{folder.path()};
    CurlHttpControl control{files};
    std::string response;
};

TEST_F(CurlHttpControlTest, FilesArriveByteForByteUnderTheirNames) {
    std::string everyByte(256 * 4096, '\0');
    std::iota(everyByte.begin(), everyByte.end(), '\0');
    const std::map<std::string, std::string> photos{{"---------COS00000000_02.jpg", everyByte},
                                                    {"外観㈱髙 b+c&d.jpg", "kanji"}};
    for (const auto& [name, bytes] : photos) {
        writeFile(folder.path() / name, bytes);
        control.URL(photoUrl(name));
        upload("C:\\" + name);
        EXPECT_EQ(control.ResponseCode(), 201) << name;
        EXPECT_EQ(readFile(served.path() / "photos" / name), bytes) << name;
    }
}

TEST_F(CurlHttpControlTest, AFileThatCannotBeReadIsNotSent) {
    EXPECT_EQ(raisedBy([&] { upload("C:\\none.jpg"); }).number(), 53);
    EXPECT_EQ(suite.log(), "");
}

TEST_F(CurlHttpControlTest, AFailureLeavesItIdleWithoutAnAnswer) {
    upload("C:\\a.jpg", "wrong");
    ASSERT_EQ(control.ResponseCode(), 401);
    EXPECT_EQ(control.ResponseText(), "Unauthorized");
    for (const auto& [misbehaviour, number] :
         std::map<std::string, int>{{"photos:cut", 24011}, {"photos:delay=1000", 24012}}) {
        suite.misbehave("well");
        suite.misbehave(misbehaviour);
        control.Timeout(300);
        EXPECT_EQ(raisedBy([&] { upload(); }).number(), number) << misbehaviour;
        EXPECT_EQ(control.State(), 0);
        EXPECT_EQ(control.ResponseCode(), 0);
        EXPECT_EQ(control.ResponseText(), "");
    }
}

}  // namespace
}  // namespace orv
