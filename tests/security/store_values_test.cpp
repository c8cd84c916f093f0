#include <gtest/gtest.h>

#include "adapters/postgres/postgres_store.h"
#include "adapters/sqlite/sqlite_store.h"
#include "app/office_store.h"
#include "core/flow/company_write.h"
#include "core/flow/save_test.h"
#include "private_server.h"
#include "store_code.h"
#include "support/store_files.h"

namespace orv {
namespace {

/// The same rows, in a file and on a server.
class BothStores : public ::testing::Test {
protected:
    BothStores() { writeFile(folder.file("server"), server().text("sample")); }

    static PrivateServer& server() {
        static PrivateServer shared;
        return shared;
    }

    const TempFolder folder;
    const std::string file = makeSampleStore(folder.file("file"));
};

TEST_F(BothStores, AValueThatEndsItsLiteralReadsNoOtherRow) {
    const std::string other = "USER_PASSWD from TBL_CUSTOMER_INFO where USER_ID = '000004602'";
    const auto update = [](const std::string& value) {
        return "update TBL_CUSTOMER_INFO set USER_ID ='000004601', GROUP_NAME ='" + value +
               "'     where  USER_ID = '000004601'";
    };
    for (const auto& [path, code] : {std::pair(file, "DB23"), std::pair(folder.file("server"), "DBSQL06")}) {
        const auto store = officeStore()(path, StoreAccess::ReadWrite);
        const std::string before = toText(store->select("select " + other, {})->Fields(0));
        ASSERT_NE(before, "");
        for (const std::string& sql : std::to_array<std::string>(
                 {update("', GROUP_NAME =(select " + other + "), OFFICE_NAME ='"),
                  update("'||(\tSelect " + other + ")||'"),
                  update("', OFFICE_NAME = B.USER_PASSWD from TBL_CUSTOMER_INFO AS B where B.USER_ID = '000004602' --"),
                  "insert into TBL_CUSTOMER_DATE (USER_ID) select USER_PASSWD from TBL_CUSTOMER_INFO",
                  "delete from TBL_LOCK where USER_ID in (select " + other + ")"})) {
            EXPECT_EQ(catchCode([&] { store->change(sql, {}); }), code) << sql;
        }
        EXPECT_EQ(catchCode([&] {
                      store->change(update("'; delete from TBL_LOCK; update TBL_LOCK set LOCAL_INFO = '"), {});
                  }),
                  code == std::string("DB23") ? "DBSQL03" : "DB42601");
        EXPECT_EQ(catchCode([&] {
                      store->change(update("(select 1) from -- /* $$ \" E\\"), {});
                      store->change("update TBL_LOCK set LOCAL_INFO = $1 where Left(USER_ID, 2) in ('00')", {"select"});
                      store->change("insert into TBL_CUSTOMER_DATE (USER_ID) values ('000004699')", {});
                      store->change("delete from TBL_CUSTOMER_DATE where USER_ID = '000004699'", {});
                  }),
                  "")
            << "the content of a literal is only text";
    }
    const auto embedded = officeStore()(file, StoreAccess::ReadWrite);
    EXPECT_EQ(catchCode([&] { embedded->change(update("'||('x' in TBL_CUSTOMER_DATE)||'"), {}); }), "DB23");
    // Texts that another engine would parse in another way.
    const auto store = officeStore()(folder.file("server"), StoreAccess::ReadWrite);
    for (const std::string value : {"'||E'\\'||(select USER_PASSWD from TBL_CUSTOMER_INFO limit 1)||'", "'||$a$'$a$||'",
                                    "'/*'*/||'", "'--'\n||'", "'||query_to_xml('x', true, true, '')||'",
                                    "'||\"query_to_xml\"('x', true, true, '')||'", "'||(table TBL_LOCK)||'"}) {
        EXPECT_EQ(catchCode([&] { store->change(update(value), {}); }), "DBSQL06") << value;
    }
}

/// A store whose schema is a tree of 15 levels, each of which refers 30 times to the next one.
std::string endlessTree(const std::string& store) {
    constexpr std::size_t kPage = 512;
    constexpr char kLast = 18;
    const auto level = [](std::size_t head, char next) {
        std::string page(kPage, '\0');
        const std::string child{0, 0, 0, next};
        for (int entry = 1; entry <= 30; ++entry) {
            const std::size_t place = kPage - 5 * static_cast<std::size_t>(entry);
            page.replace(place, 5, child + static_cast<char>(entry));
            page[head + 10 + 2 * static_cast<std::size_t>(entry)] = static_cast<char>(place / 256);
            page[head + 11 + 2 * static_cast<std::size_t>(entry)] = static_cast<char>(place % 256);
        }
        return page.replace(head, 12, std::string{5, 0, 0, 0, 30, 1, 106, 0} + child);
    };
    std::string bytes = level(100, 3).replace(0, 100, store, 0, 100) + store.substr(kPage, kPage);
    for (char page = 3; page < kLast; ++page) {
        bytes += level(0, static_cast<char>(page + 1));
    }
    bytes[31] = kLast;  // the number of pages
    return bytes + store.substr(0, kPage).replace(0, 12, store, 100, 12);
}

TEST_F(BothStores, NoAnswerIsEndless) {
    runSql(
        file,
        "CREATE VIEW ENDLESS AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT max(i) FROM n;"
        "CREATE VIEW LONG AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT 300)"
        " SELECT sum(length(hex(zeroblob(4000000 + i)))) FROM n;"
        "CREATE VIEW UNSAFE AS SELECT * FROM pragma_table_info('TBL_LOCK');"
        "CREATE TRIGGER LATE AFTER UPDATE ON TBL_LOCK BEGIN INSERT INTO TBL_LOCK (USER_ID) SELECT * FROM ENDLESS; END;"
        "UPDATE TBL_CUSTOMER_INFO SET GROUP_NAME = replace(hex(zeroblob(10000)), '0', 'x')");
    using std::chrono::milliseconds;
    const auto store = sqliteStore({.statement = milliseconds(300), .answer = 40000})(file, StoreAccess::ReadWrite);
    const auto expect = [](StoreConnection& asked, const std::vector<std::pair<std::string, std::string>>& cases) {
        for (const auto& [sql, code] : cases) {
            EXPECT_EQ(catchCode([&] { asked.select("select " + sql, {}); }), code) << sql;
        }
    };
    expect(*store, {{"* from ENDLESS", "DB9"},
                    {"* from LONG", "DB9"},
                    {"GROUP_NAME from TBL_CUSTOMER_INFO", "DBSQL07"},
                    {"* from UNSAFE", "DB1"},
                    {"hex(zeroblob(9000000))", "DB18"},
                    {"GROUP_NAME from TBL_CUSTOMER_INFO limit 1", ""}});
    EXPECT_EQ(catchCode([&] { store->change("update TBL_LOCK set LOCAL_INFO = 'x'", {}); }), "DB9");

    const std::string tree = folder.file("tree");
    runSql(tree, "PRAGMA page_size = 512; CREATE TABLE A (X)");
    writeFile(tree, endlessTree(readFile(tree)));
    EXPECT_EQ(catchCode([&] { sqliteStore({.statement = milliseconds(300)})(tree, StoreAccess::ReadWrite); }), "DB9");

    ServerLimits limits;
    limits.patience.bytes = 100000;
    const auto remote = postgresStore(limits)(folder.file("server"), StoreAccess::ReadWrite);
    // The last answer ends the connection.
    expect(*remote, {{"repeat('x', 90000)", ""},
                     {"null, null, null, null, null, null from generate_series(1, 2000)", "DBSQL07"},
                     {"1", ""},
                     {"repeat('x', 5000) from generate_series(1, 1000)", "DBSQL07"}});
}

using SavedValues = SaveTest;

TEST_F(SavedValues, ARecordThatCouldChangeAStatementIsNotWritten) {
    const std::string theft = "1', USER_PASSWD = 'stolen', GROUP_NAME = 'x";
    struct Case {
        TextField field;
        std::string value, place;
    };
    for (const Case& row :
         {Case{&CompanyRecord::PWD_CHG_FLG, theft, "項目「PWD_CHG_FLG」は、ほかのプログラムが"},
          Case{&CompanyRecord::SERVICE_FLG, std::string("\0", 1), "項目「SERVICE_FLG」は、ほかのプログラムが"},
          Case{&CompanyRecord::PROXY_INFO, "x'", "「動作環境」の画面の「Proxy設定」は、この端末の設定から"},
          Case{&CompanyRecord::CAR_MINUTES, "5'", "「交通・会社ＰＲ」の画面の「車の時間」を開いて"}}) {
        startOn(3);
        tCustomerInfo.*row.field = row.value;
        const Texts before = everything();
        EXPECT_FALSE(valuesFitStatements(PhotoFields::Chosen));
        EXPECT_NE(gErrMsg.find("があります。" + row.place), std::string::npos) << gErrMsg;
        save();
        EXPECT_TRUE(everything() == before) << row.value;
        messages.shown.clear();
    }
    startOn(3);
    sql("update TBL_CUSTOMER_INFO set PWD_CHG_FLG = '1'', USER_PASSWD = ''stolen' where USER_ID = '000004601'");
    startOn(3);
    messages.shown.clear();
    save();
    EXPECT_EQ(info("USER_PASSWD"), "mihon01");
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].id, "COSERR01");
    EXPECT_EQ(toText(messages.shown[0].args.at(0)), "SAVE0003");
}

}  // namespace
}  // namespace orv
