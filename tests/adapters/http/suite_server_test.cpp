#include <gtest/gtest.h>
#include <httplib.h>

#include "company_desk.h"
#include "http_fixture.h"
#include "photo_desk.h"

namespace orv {
namespace {

constexpr const char* kAgreed = "Basic a3ZyNzNub2RlOlhrOVRSYm1XMg==";

std::string companyOf(const std::string& id) {
    const std::string row = R"({"USER_ID":")" + id + R"("})";
    return R"({"TBL_CUSTOMER_INFO":)" + row + R"(,"TBL_CUSTOMER_ADD":)" + row + R"(,"TBL_CUSTOMER_DATE":)" + row + "}";
}

std::string told(CompanyDesk& desk, const std::string& id = "---------") {
    return desk.registerCompany(companyOf(id), std::nullopt).body;
}

TEST(CompanyDesk, NumbersGoOnAfterARestartAndSkipWhatIsTaken) {
    const TempFolder folder;
    EXPECT_EQ(told(*std::make_unique<CompanyDesk>(folder.path())), R"({"id":"000005001"})");
    writeFile(folder.path() / "last_number.new", "0000");  // killed in the middle of the next one
    CompanyDesk desk(folder.path());
    EXPECT_EQ(told(desk), R"({"id":"000005002"})");
    EXPECT_EQ(told(desk, "000005003"), R"({"id":"000005003"})");
    EXPECT_EQ(told(desk), R"({"id":"000005004"})");
    EXPECT_EQ(readFile(folder.path() / "last_number"), "000005004\n");
}

TEST(PhotoDesk, OnlyPlainNamesWithTheAgreedCredentialsAreKept) {
    const TempFolder folder;
    const PhotoDesk desk(folder.path() / "photos");
    for (const std::string& name : {std::string(), std::string("../a.jpg"), std::string(".."), std::string(".a"),
                                    std::string("a/b.jpg"), std::string("a\\b.jpg"), std::string("C:a.jpg"),
                                    std::string("a\nb"), std::string("a\0b", 3), std::string(201, 'x')}) {
        EXPECT_EQ(desk.put(name, kAgreed, "x").status, 400) << name;
    }
    EXPECT_EQ(desk.put("a.jpg", "Basic a3ZyNzNub2RlOg==", "x").status, 401);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path() / "photos"));
    EXPECT_EQ(desk.put("a.jpg", kAgreed, "x").status, 201);
    EXPECT_EQ(desk.put("a.jpg", kAgreed, "y").status, 204);
    EXPECT_EQ(readFile(folder.path() / "photos" / "a.jpg"), "y");
}

TEST(SuiteServer, TheLogHasALineARequestAndNoSecrets) {
    const TempFolder folder;
    RunningSuite suite(folder.path());
    httplib::Client client("127.0.0.1", suite.port());
    client.set_basic_auth("kvr73node", "Xk9TRbmW2");
    client.Get("/cussend/?USER_PASSWD=secret");
    client.Put("/rereceive46/davroot/a%20b.jpg", "picture", "image/jpeg");
    client.Put("/rereceive46/davroot/..%2F..%2Fa.jpg", "picture", "image/jpeg");
    client.Post("/cussend/register", companyOf("000004601"), "application/json");
    client.Get("/x%0AGET%20/forged");
    const std::string log = suite.log();
    EXPECT_EQ(std::ranges::count(log, '\n'), 5);
    for (const char* line : {" GET /cussend/ 200 0\n", " PUT /rereceive46/davroot/a?b.jpg 201 7\n",
                             " PUT /rereceive46/davroot/../../a.jpg 400 7\n", " GET /x?GET?/forged 404 0\n",
                             " POST /cussend/register 200 "}) {
        EXPECT_NE(log.find(line), std::string::npos) << line << log;
    }
    for (const char* secret : {"secret", "Xk9TRbmW2", "a3ZyNzNub2Rl"}) {
        EXPECT_EQ(log.find(secret), std::string::npos);
    }
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "a.jpg"));
}

}  // namespace
}  // namespace orv
