#include <gtest/gtest.h>
#include <httplib.h>

#include <set>

#include "company_desk.h"
#include "http_fixture.h"
#include "misbehaviour.h"
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
    const TemporaryFolder folder;
    EXPECT_EQ(told(*std::make_unique<CompanyDesk>(folder.path)), R"({"id":"000005001"})");
    writeFile(folder.path / "last_number.new", "0000");  // killed in the middle of the next one
    CompanyDesk desk(folder.path);
    EXPECT_EQ(told(desk), R"({"id":"000005002"})");
    EXPECT_EQ(told(desk, "000005003"), R"({"id":"000005003"})");
    EXPECT_EQ(told(desk), R"({"id":"000005004"})");
    EXPECT_EQ(contentOf(folder.path / "last_number"), "000005004\n");
}

TEST(CompanyDesk, ALastNumberThatIsNoneIsNotGuessedAt) {
    for (const char* content : {"", "12", "abcdefghi\n"}) {
        const TemporaryFolder folder;
        writeFile(folder.path / "last_number", content);
        EXPECT_THROW(CompanyDesk{folder.path}, std::runtime_error) << content;
    }
}

TEST(CompanyDesk, OnlyWholeCompaniesAreTaken) {
    const TemporaryFolder folder;
    CompanyDesk desk(folder.path);
    std::string mixed = companyOf("000004601");
    mixed.replace(mixed.rfind("4601"), 4, "4602");
    for (const std::string& document :
         {std::string(), std::string("{}"), std::string("[]"), std::string("{\"TBL_CUSTOMER_INFO\":{}}"),
          companyOf("12345678"), companyOf("../../abc"), companyOf(""), mixed, companyOf("000004601") + "x"}) {
        EXPECT_EQ(desk.registerCompany(document, std::nullopt).status, 400) << document;
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.path / "companies"));
}

TEST(CompanyDesk, ManyAtOnceGetDifferentNumbers) {
    const TemporaryFolder folder;
    RunningSuite suite(folder.path);
    std::mutex guard;
    std::set<std::string> ids;
    std::vector<std::thread> clients;
    for (int i = 0; i < 8; ++i) {
        clients.emplace_back([&] {
            httplib::Client client("127.0.0.1", suite.port());
            for (int n = 0; n < 5; ++n) {
                const auto answer = client.Post("/cussend/register", companyOf("---------"), "application/json");
                const std::lock_guard lock(guard);
                ids.insert(answer ? answer->body : "");
            }
        });
    }
    for (auto& client : clients) {
        client.join();
    }
    EXPECT_EQ(ids.size(), 40U);
    EXPECT_EQ(ids.count(""), 0U);
}

TEST(PhotoDesk, OnlyPlainNamesAreKept) {
    const TemporaryFolder folder;
    const PhotoDesk desk(folder.path / "photos");
    for (const std::string& name : {std::string(), std::string("../a.jpg"), std::string(".."), std::string(".a"),
                                    std::string("a/b.jpg"), std::string("a\\b.jpg"), std::string("C:a.jpg"),
                                    std::string("a\nb"), std::string("a\0b", 3), std::string(201, 'x')}) {
        EXPECT_EQ(desk.put(name, kAgreed, "x").status, 400) << name;
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.path / "photos"));
    EXPECT_EQ(desk.put("a.jpg", kAgreed, "x").status, 201);
    EXPECT_EQ(desk.put("a.jpg", kAgreed, "y").status, 204);
    EXPECT_EQ(contentOf(folder.path / "photos" / "a.jpg"), "y");
}

TEST(PhotoDesk, OnlyTheAgreedCredentialsOpenIt) {
    const TemporaryFolder folder;
    const PhotoDesk desk(folder.path / "photos");
    for (const char* other : {"", "Basic", "Basic a3ZyNzNub2RlOg==", "Bearer a3ZyNzNub2RlOlhrOVRSYm1XMg=="}) {
        EXPECT_EQ(desk.put("a.jpg", other, "x").status, 401) << other;
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.path / "photos"));
}

TEST(MisbehaviourBoard, UnderstandsItsInstructionsAndNoOthers) {
    MisbehaviourBoard board;
    for (const char* good : {"photos:status=503", "photos:delay=20", "photos:cut", "companies:id-length=8",
                             "companies:garbage", "prepare:status=503", "prepare:gone=2"}) {
        EXPECT_TRUE(board.instruct(good)) << good;
    }
    const Misbehaviour photos = board.of(Desk::Photos);
    EXPECT_EQ(photos.status, 503);
    EXPECT_EQ(photos.delay, std::chrono::milliseconds(20));
    EXPECT_TRUE(photos.cut);
    EXPECT_FALSE(photos.garbage);
    for (const char* bad : {"", "photos", "photos:", "photo:cut", "photos:status", "photos:status=", "photos:status=99",
                            "photos:status=2x0", "photos:delay=-1", "companies:id-length=65", "photos:wave"}) {
        EXPECT_FALSE(board.instruct(bad)) << bad;
    }
    EXPECT_EQ(board.arrivedAt(Desk::Prepare).goneAt, 2);
    EXPECT_EQ(board.arrivedAt(Desk::Prepare).goneAt, 1) << "it counts down to the last request";
    EXPECT_TRUE(board.instruct("photos:well"));
    EXPECT_EQ(board.of(Desk::Photos).status, std::nullopt);
    EXPECT_EQ(board.of(Desk::Companies).idLength, 8U);
    EXPECT_TRUE(board.instruct("well"));
    EXPECT_EQ(board.of(Desk::Companies).idLength, std::nullopt);
}

TEST(SuiteServer, TheLogHasALineARequestAndNoSecrets) {
    const TemporaryFolder folder;
    RunningSuite suite(folder.path);
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
    EXPECT_FALSE(std::filesystem::exists(folder.path / "a.jpg"));
}

TEST(SuiteServer, TakesInstructionsWhileItRuns) {
    const TemporaryFolder folder;
    RunningSuite suite(folder.path);
    httplib::Client client("127.0.0.1", suite.port());
    EXPECT_EQ(client.Post("/misbehave", "prepare:status=503\nphotos:cut", "text/plain")->status, 204);
    EXPECT_EQ(client.Get("/cussend/")->status, 503);
    EXPECT_EQ(client.Post("/misbehave", "nonsense", "text/plain")->status, 400);
    EXPECT_EQ(client.Post("/misbehave", "", "text/plain")->status, 204);
    EXPECT_EQ(client.Get("/cussend/")->status, 200);
}

TEST(SuiteServer, TellsItsPortAndHasItAlone) {
    const TemporaryFolder folder;
    const RunningSuite suite(folder.path);
    EXPECT_EQ(contentOf(folder.path / "port"), std::to_string(suite.port()) + "\n");
    const TemporaryFolder other;
    SuiteServer second(other.path);
    EXPECT_EQ(second.bind(suite.port()), -1);
    EXPECT_FALSE(std::filesystem::exists(other.path / "port"));
}

}  // namespace
}  // namespace orv
