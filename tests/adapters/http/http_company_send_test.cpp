#include "adapters/http/http_company_send.h"

#include <gtest/gtest.h>

#include <map>
#include <nlohmann/json.hpp>

#include "adapters/sqlite/sqlite_store.h"
#include "adapters/store/store_service.h"
#include "app/sent_tables.h"
#include "http_fixture.h"
#include "support/store_files.h"

namespace orv {
namespace {

using nlohmann::json;

constexpr const char* kTables[] = {"TBL_CUSTOMER_INFO", "TBL_CUSTOMER_ADD", "TBL_CUSTOMER_DATE"};

class HttpCompanySendTest : public testing::Test {
protected:
    void run(const std::string& sql) const { runSql(storeFile, sql); }
    /// The columns of a table that are sent. The dates but for their key are another program's.
    std::vector<std::string> listColumns(const std::string& table) {
        std::vector<std::string> columns = readRows(storeFile, "SELECT name FROM pragma_table_info('" + table + "')");
        columns.resize(table == "TBL_CUSTOMER_DATE" ? 1 : columns.size());
        return columns;
    }
    bool prepare() {
        bool ok = false;
        send.SendPrepare(ok);
        return ok;
    }
    bool sendCompany(const std::string& userId = "000004601") {
        bool ok = false;
        send.SendCompany(userId, id, ok);
        return ok;
    }
    json kept(const std::string& number) const {
        return json::parse(readFile(served.path() / "companies" / (number + ".json")), nullptr, false);
    }

    TempFolder folder;
    TempFolder served;
    RunningSuite suite{served.path()};
    const std::string storeFile = makeSampleStore(folder.file("ORVESTATE.MDB"));
    StoreService db{nativePaths(), sqliteStore()};
    std::string url = suite.url("/"), cusSendService = "cussend/", sendCus = "cussend/register", timeOut = "180000";
    std::string store = storeFile;
    HttpCompanySend send{db,
                         sentTables(),
                         {[this] { return url; }, [this] { return cusSendService; }, [this] { return sendCus; },
                          [this] { return timeOut; }, [this] { return store; }}};
    std::string id = "before";
};

TEST_F(HttpCompanySendTest, AMissingSettingIsReportedBeforeAnyRequest) {
    for (const auto& [setting, code] : std::vector<std::pair<std::string*, const char*>>{
             {&url, "SEND0001"}, {&cusSendService, "SEND0002"}, {&sendCus, "SEND0003"}, {&timeOut, "SEND0004"}}) {
        const std::string before = std::exchange(*setting, " ");
        EXPECT_FALSE(prepare()) << code;
        EXPECT_EQ(send.SendError().code, code);
        EXPECT_TRUE(send.SendError().text.starts_with("会社情報は保存しましたが、")) << send.SendError().text;
        *setting = before;
    }
    timeOut = "5000ms";
    EXPECT_FALSE(sendCompany());
    EXPECT_EQ(send.SendError().code, "SEND0004");
    EXPECT_EQ(suite.log(), "");
    for (const char* number : {" 180000 ", "0", "-5", "179999.5"}) {
        timeOut = number;
        EXPECT_TRUE(prepare()) << number;
    }
    EXPECT_EQ(send.SendError(), FailureRecord{});
}

TEST_F(HttpCompanySendTest, TheDocumentHoldsEveryColumnOfTheCompany) {
    json expected;
    for (const std::string table : kTables) {
        // Every column contains its own name, so that all cells differ.
        for (const std::string& column : listColumns(table)) {
            expected[table][column] = column == "USER_ID" ? "000004601" : column;
            run("UPDATE " + table + " SET " + column + " = '" + expected[table][column].get<std::string>() +
                "' WHERE USER_ID = '000004601'");
        }
    }
    run("UPDATE TBL_CUSTOMER_ADD SET SEND_FLAG = TRUE WHERE USER_ID = '000004601'");
    run("UPDATE TBL_CUSTOMER_INFO SET CONTRACT_PUBLISHNUMBER = 12, MAIL_FLG = NULL, GROUP_NAME = '', "
        "COMPANY_NAME = '㈱髙\"\\島', OFFICE_NAME = CAST(x'41FF42' AS TEXT) WHERE USER_ID = '000004601'");
    expected["TBL_CUSTOMER_ADD"]["SEND_FLAG"] = true;
    expected["TBL_CUSTOMER_INFO"].update(json{{"CONTRACT_PUBLISHNUMBER", 12},
                                              {"MAIL_FLG", nullptr},
                                              {"GROUP_NAME", ""},
                                              {"COMPANY_NAME", "㈱髙\"\\島"},
                                              {"OFFICE_NAME", "A\uFFFDB"}});
    ASSERT_TRUE(sendCompany()) << send.SendError().text;
    EXPECT_EQ(id, "000004601");
    EXPECT_EQ(kept("000004601"), expected);
}

TEST_F(HttpCompanySendTest, ANewCompanyGetsItsNumber) {
    for (const std::string table : kTables) {
        run("UPDATE " + table + " SET USER_ID = '---------' WHERE USER_ID = '000004601'");
    }
    ASSERT_TRUE(sendCompany("---------")) << send.SendError().text;
    EXPECT_EQ(id, "000005001");
    EXPECT_EQ(kept("000005001")["TBL_CUSTOMER_DATE"]["USER_ID"], "000005001");
}

TEST_F(HttpCompanySendTest, AnUnreadableCompanyIsNotSent) {
    EXPECT_FALSE(sendCompany("000009999"));
    EXPECT_NE(send.SendError().text.find("TBL_CUSTOMER_INFO"), std::string::npos);
    run("DELETE FROM TBL_CUSTOMER_DATE");
    EXPECT_FALSE(sendCompany());
    EXPECT_NE(send.SendError().text.find("TBL_CUSTOMER_DATE"), std::string::npos);
    store = "C:\\NONE.MDB";
    EXPECT_FALSE(sendCompany());
    EXPECT_EQ(send.SendError().code, "51");
    EXPECT_FALSE(send.SendError().text.empty());
    EXPECT_EQ(suite.log(), "");
}

TEST(IdInAnswer, AnObjectWithAnIdTextIsAnAnswer) {
    for (const auto& [body, id] : std::map<std::string, std::string>{
             {" {\"id\" : \"12345678\", \"more\": [1, {\"id\": 2}]}\r\n", "12345678"},
             {R"({"id":"\u0041bz9"})", "Abz9"},
             {R"({"id":")" + std::string(64, '1') + "\"}", std::string(64, '1')},
         }) {
        EXPECT_EQ(idInAnswer(body), id) << body;
    }
}

}  // namespace
}  // namespace orv
