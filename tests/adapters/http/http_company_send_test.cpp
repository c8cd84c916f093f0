#include "adapters/http/http_company_send.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>

#include "adapters/sqlite/sqlite_db_service.h"
#include "http_fixture.h"

namespace orv {
namespace {

using nlohmann::json;

constexpr const char* kInfo =
    "USER_ID USER_PASSWD GROUP_NAME COMPANY_NAME COMPANY_KANA OFFICE_NAME POST_CODE ADDRESS_CODE ADDRESS "
    "ADDRESS_NUMBER "
    "ADDRESS_GOU ADDRESS_OTHER DAIHYO_NAME DAIHYO_NAME_KANA TAKKEN_SYUNIN_NAME TANTO_NAME TEL_NO1 TEL_NO2 FAX_NO "
    "TIKU_CODE AREA_CODE RAILROAD_CODE RAILROAD_NAME STATION_CODE STATION_NAME WALK_MINUTES BUS_ROUTE BUSSTOP "
    "BUS_MINUTES TEIHO_MINUTES CAR_TARGET CAR_MINUTES CAR_DISTANCE SAME_CHECK PC_OFFICE_NAME PC_POST_CODE "
    "PC_ADDRESS_CODE PC_ADDRESS PC_ADDRESS_NUMBER PC_ADDRESS_GOU PC_TANTO_NAME PC_TEL_NO1 PC_TEL_NO2 PC_FAX_NO "
    "PC_MAIL_ADDRESS MAIL_ADDRESS MAIL_FLG LICENSE_NO LICENSE_NO_DAI LICENSE_NO_GO GET_LICENSE_DATE_YEAR "
    "GET_LICENSE_DATE_MONTH GET_LICENSE_DATE_DAY GET_LICENSE_NENGOU VALID_LICENSE_DATE_YEAR VALID_LICENSE_DATE_MONTH "
    "VALID_LICENSE_DATE_DAY VALID_LICENSE_NENGOU DANTAI_FLG DANTAI_NAME OTHER_DANTAI_NAME KOUTORI_FLG INSERT_DATE "
    "UPDATE_DATE SERVICE_FLG PWD_CHG_FLG CONTRACT_PUBLISHNUMBER";
constexpr const char* kAdd =
    "USER_ID OFFICE_HOURS DAY_OFF COMPANY_COMMENT COMPANY_URL_COMMENT COMPANY_URL PHOTO_FILE1 PHOTO_FILE2 PHOTO_GRP1 "
    "PHOTO_GRP2 SEND_FLAG MANAGEMENT_TYPE_FLG BUSINESS_TYPE_FLG OS_VER OS_MAJOR_VER OS_MINOR_VER OS_BUILD_VER NET_TYPE "
    "IP_ADDRESS SYS_HD_CAP INS_HD_CAP INS_ORV_PATH MEMORY CPU IE_VER PROXY_INFO";

/// A row whose every column holds its own name, so that no two cells are alike.
std::string rowSql(const std::string& table, std::string columns) {
    std::ranges::replace(columns, ' ', ',');
    std::string values;
    std::istringstream names(columns);
    for (std::string name; std::getline(names, name, ',');) {
        values += (values.empty() ? "'" : ",'") + (name == "USER_ID" ? "000004601" : name) + "'";
    }
    return "INSERT INTO " + table + " (" + columns + ") VALUES (" + values + ");";
}

void run(const std::filesystem::path& store, const std::string& sql) {
    sqlite3* database = nullptr;
    sqlite3_open(store.c_str(), &database);
    char* error = nullptr;
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, &error), SQLITE_OK) << error << ": " << sql;
    sqlite3_close(database);
}

class HttpCompanySendTest : public testing::Test {
protected:
    void SetUp() override {
        run(storeFile(), contentOf(std::string(SAMPLE_FOLDER) + "/sql/schema.sql"));
        run(storeFile(), rowSql("TBL_CUSTOMER_INFO", kInfo) + rowSql("TBL_CUSTOMER_ADD", kAdd) +
                             rowSql("TBL_CUSTOMER_DATE", "USER_ID"));
        run(storeFile(),
            "UPDATE TBL_CUSTOMER_ADD SET SEND_FLAG = TRUE; "
            "UPDATE TBL_CUSTOMER_INFO SET CONTRACT_PUBLISHNUMBER = 12");
        useSuite();
    }

    void useSuite() { url = suite.url("/"); }
    void useMarker() {
        for (const char* table : {"INFO", "ADD", "DATE"}) {
            run(storeFile(), std::string("UPDATE TBL_CUSTOMER_") + table + " SET USER_ID = '---------'");
        }
    }
    std::filesystem::path storeFile() const { return folder.path / "ORVESTATE.MDB"; }
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
        return json::parse(contentOf(served.path / "companies" / (number + ".json")), nullptr, false);
    }

    TemporaryFolder folder;
    TemporaryFolder served;
    RunningSuite suite{served.path};
    FolderFiles files{folder.path};
    SqliteDbService db{files};
    std::string url, cusSendService = "cussend/", sendCus = "cussend/register", timeOut = "5000";
    std::string store = "C:\\ORVESTATE.MDB";
    HttpCompanySend send{db,
                         {[this] { return url; }, [this] { return cusSendService; }, [this] { return sendCus; },
                          [this] { return timeOut; }, [this] { return store; }}};
    std::string id = "before";
};

TEST_F(HttpCompanySendTest, AMissingSettingIsToldBeforeAnythingIsAsked) {
    struct Case {
        std::string& setting;
        const char* code;
    };
    for (const auto& [setting, code] :
         {Case{url, "SEND0001"}, Case{cusSendService, "SEND0002"}, Case{sendCus, "SEND0003"}}) {
        for (const char* blank : {"", " "}) {
            const std::string before = std::exchange(setting, blank);
            EXPECT_FALSE(prepare()) << code;
            EXPECT_EQ(send.SendError().code, code);
            EXPECT_FALSE(send.SendError().text.empty());
            setting = before;
        }
    }
    EXPECT_EQ(suite.log(), "");
    EXPECT_TRUE(prepare());
    EXPECT_EQ(send.SendError(), FailureRecord{});
}

TEST_F(HttpCompanySendTest, TheTimeOutMustBeANumber) {
    for (const char* number : {"5000", " 5000 ", "0", "-5", "4999.5", "1e3"}) {
        timeOut = number;
        EXPECT_TRUE(prepare()) << number;
    }
    for (const char* none : {"", "abc", "5000ms", "1e99", "99999999999", "nan", "inf", "0x10"}) {
        timeOut = none;
        EXPECT_FALSE(prepare()) << none;
        EXPECT_EQ(send.SendError().code, "SEND0004") << none;
        EXPECT_FALSE(sendCompany()) << none;
        EXPECT_EQ(send.SendError().code, "SEND0004") << none;
    }
}

TEST_F(HttpCompanySendTest, PreparedIsWhatAnswersWithSuccess) {
    struct Case {
        int status;
        bool ok;
    };
    for (const auto& [status, ok] : {Case{200, true}, Case{204, true}, Case{299, true}, Case{302, false},
                                     Case{401, false}, Case{404, false}, Case{503, false}}) {
        suite.misbehave("prepare:status=" + std::to_string(status));
        EXPECT_EQ(prepare(), ok) << status;
        EXPECT_EQ(send.SendError().code, ok ? "" : std::to_string(status));
    }
    EXPECT_NE(send.SendError().text.find("503 Service Unavailable"), std::string::npos);
    url = deafUrl();
    EXPECT_FALSE(prepare());
    EXPECT_EQ(send.SendError().code, "24011");
}

TEST_F(HttpCompanySendTest, TheDocumentHoldsEveryColumnOfTheCompany) {
    run(storeFile(),
        "UPDATE TBL_CUSTOMER_INFO SET MAIL_FLG = NULL, GROUP_NAME = '', COMPANY_NAME = '㈱髙\"\\島', "
        "OFFICE_NAME = CAST(x'41FF42' AS TEXT)");
    ASSERT_TRUE(sendCompany()) << send.SendError().text;
    EXPECT_EQ(id, "000004601");

    const json document = kept("000004601");
    EXPECT_EQ(document.size(), 3U);
    for (const auto& [table, columns] : {std::pair{"TBL_CUSTOMER_INFO", kInfo}, std::pair{"TBL_CUSTOMER_ADD", kAdd},
                                         std::pair{"TBL_CUSTOMER_DATE", "USER_ID"}}) {
        json expected = json::object();
        std::istringstream names(columns);
        for (std::string name; names >> name;) {
            expected[name] = name;
        }
        expected["USER_ID"] = "000004601";
        if (table == std::string("TBL_CUSTOMER_ADD")) {
            expected["SEND_FLAG"] = true;
        } else if (table == std::string("TBL_CUSTOMER_INFO")) {
            expected["CONTRACT_PUBLISHNUMBER"] = 12;
            expected["MAIL_FLG"] = nullptr;
            expected["GROUP_NAME"] = "";
            expected["COMPANY_NAME"] = "㈱髙\"\\島";
            expected["OFFICE_NAME"] = "A\uFFFDB";
        }
        EXPECT_EQ(document[table], expected);
    }
}

TEST_F(HttpCompanySendTest, TheSendFlagIsABooleanHoweverTheStoreKeepsIt) {
    struct Case {
        const char* kept;
        json sent;
    };
    for (const auto& [kept_, sent] :
         {Case{"1", true}, Case{"-1", true}, Case{"0", false}, Case{"'True'", true}, Case{"'False'", false}}) {
        run(storeFile(), std::string("UPDATE TBL_CUSTOMER_ADD SET SEND_FLAG = ") + kept_);
        ASSERT_TRUE(sendCompany()) << kept_;
        EXPECT_EQ(kept("000004601")["TBL_CUSTOMER_ADD"]["SEND_FLAG"], sent) << kept_;
    }
}

TEST_F(HttpCompanySendTest, TheDocumentGoesAsUtf8Json) {
    const RawServer raw(R"(HTTP/1.1 201 Created)"
                        "\r\n\r\n"
                        R"({"id":"000005001"})");
    url = raw.url();
    ASSERT_TRUE(sendCompany());
    const std::string& sent = raw.requests().at(0);
    EXPECT_TRUE(sent.starts_with("POST /cussend/register HTTP/1.1\r\n")) << sent;
    EXPECT_NE(sent.find("\r\nContent-Type: application/json; charset=utf-8\r\n"), std::string::npos);
    EXPECT_EQ(sent.find("Authorization"), std::string::npos);
}

TEST_F(HttpCompanySendTest, ANewCompanyGetsItsNumberAndAnotherLengthComesBackAsItStands) {
    useMarker();
    ASSERT_TRUE(sendCompany("---------")) << send.SendError().text;
    EXPECT_EQ(id, "000005001");
    EXPECT_EQ(kept("000005001")["TBL_CUSTOMER_DATE"]["USER_ID"], "000005001");
    suite.misbehave("companies:id-length=8");
    ASSERT_TRUE(sendCompany("---------"));
    EXPECT_EQ(id, "00000500");
}

TEST_F(HttpCompanySendTest, ItReadsBesideTheConnectionThatTheProgramHoldsOpen) {
    ConnectionPtr open;
    bool ok = false;
    db.DbOpen(open, store, ok);
    ASSERT_TRUE(ok);
    EXPECT_TRUE(sendCompany());
    std::int32_t rows = 0;
    db.DbExecute(open, "UPDATE TBL_CUSTOMER_ADD SET SEND_FLAG = False", rows);
    EXPECT_EQ(rows, 1);
}

TEST_F(HttpCompanySendTest, AnAnswerThatIsNoneIsAFailureWithTextAndCode) {
    struct Case {
        const char* misbehaviour;
        const char* code;
    };
    for (const auto& [misbehaviour, code] :
         {Case{"companies:garbage", "SEND0005"}, Case{"companies:cut", "24011"}, Case{"companies:delay=2000", "24012"},
          Case{"companies:status=200", "SEND0005"}, Case{"companies:status=302", "302"},
          Case{"companies:status=400", "400"}, Case{"companies:status=500", "500"},
          Case{"companies:id-length=0", "SEND0005"}}) {
        timeOut = "300";
        suite.misbehave("well");
        suite.misbehave(misbehaviour);
        id = "before";
        EXPECT_FALSE(sendCompany()) << misbehaviour;
        EXPECT_EQ(id, "") << misbehaviour;
        EXPECT_EQ(send.SendError().code, code) << misbehaviour;
        EXPECT_FALSE(send.SendError().text.empty()) << misbehaviour;
    }
    url = deafUrl();
    EXPECT_FALSE(sendCompany());
    EXPECT_EQ(send.SendError().code, "24011");
    useSuite();
    suite.misbehave("well");
    EXPECT_TRUE(sendCompany());
    EXPECT_EQ(send.SendError(), FailureRecord{});
}

TEST_F(HttpCompanySendTest, WhatTheStoreCannotGiveIsNotSent) {
    EXPECT_FALSE(sendCompany("000009999"));
    EXPECT_NE(send.SendError().text.find("TBL_CUSTOMER_INFO"), std::string::npos);
    EXPECT_FALSE(sendCompany("' OR ''='"));
    run(storeFile(), "DELETE FROM TBL_CUSTOMER_DATE");
    EXPECT_FALSE(sendCompany());
    EXPECT_NE(send.SendError().text.find("TBL_CUSTOMER_DATE"), std::string::npos);
    run(storeFile(), "DROP TABLE TBL_CUSTOMER_DATE");
    EXPECT_FALSE(sendCompany());
    store = "C:\\NONE.MDB";
    EXPECT_FALSE(sendCompany());
    EXPECT_EQ(send.SendError().code, "51");
    EXPECT_FALSE(send.SendError().text.empty());
    EXPECT_EQ(suite.log(), "");
}

}  // namespace
}  // namespace orv
