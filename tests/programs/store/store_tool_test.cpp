#include "programs/store/store_tool_fixture.h"

namespace orv {
namespace {

TEST_F(StoreTool, WrongUseIsReportedAndEndsWithTwo) {
    for (const char* arguments : {"", "nonsense", "create", "check", "check office other", "unlock office",
                                  "copy office", "check office --colour", "backup office", "import", "import a b c"}) {
        const Outcome run = tool(arguments);
        EXPECT_EQ(run.ending, 2) << arguments;
        EXPECT_NE(run.err, "") << arguments;
    }
    const Outcome help = tool("--help");
    EXPECT_EQ(help.ending, 0);
    for (const char* command : {"create", "check", "status", "unlock", "backup", "nightly", "restore", "copy",
                                "upgrade", "import", "support"}) {
        EXPECT_TRUE(matches(help, command)) << command;
        EXPECT_EQ(tool(std::string(command) + " --help").ending, 0);
    }
}

TEST_F(StoreTool, AFileThatIsNotAStoreFailsInEveryCommand) {
    writeFile(folder.file("letter"), "Dear all,\n");
    writeFile(folder.file("empty"), "");
    writeFile(folder.file("dead"), "host=" + folder.file("nowhere") + " dbname=x\n");
    std::filesystem::create_directory(folder.file("drawer"));
    writeFile(folder.file("secret"), readFile(office));
    const Unreadable secret = makeUnreadable(folder.file("secret"));
    const auto before = names();
    const std::string good = readFile(office);
    for (const char* bad : {"letter", "empty", "drawer", "dead", "secret", "missing", "no/folder"}) {
        for (const std::string& arguments :
             {std::string("check ") + bad, std::string("unlock ") + bad + " PC --yes",
              std::string("backup ") + bad + " new", std::string("restore office ") + bad + " --yes",
              std::string("copy ") + bad + " new", std::string("import ") + bad + " new", std::string("status ") + bad,
              std::string("nightly ") + bad + " .", std::string("upgrade ") + bad + " new"}) {
            const Outcome run = tool(arguments, secret.before);
            EXPECT_EQ(run.ending, 3) << arguments << run.out;
            EXPECT_TRUE(run.err.starts_with("orv_store: ")) << run.err;
        }
    }
    for (const char* bad : {"letter", "empty", "drawer", "dead", "secret", "no/folder"}) {
        EXPECT_EQ(tool(std::string("create ") + bad, secret.before).ending, 3) << bad;
        EXPECT_EQ(tool(std::string("copy office ") + bad + " --replace", secret.before).ending, 3) << bad;
    }
    for (const auto& [bad, code] : std::map<std::string, std::string>{
             {"missing", "DBFILE01"}, {"drawer", "DBFILE02"}, {"empty", "DBFILE05"}, {"letter", "DBFILE07"}}) {
        EXPECT_EQ(json("check " + bad)["failure"]["code"], code);
    }
    EXPECT_EQ(names(), before);
    EXPECT_EQ(readFile(office), good);
}

TEST_F(StoreTool, ANewStoreHasItsTablesAndListsAndNoCompany) {
    for (const std::string& store : bothKinds("new", "fresh", "template0")) {
        EXPECT_EQ(tool("create " + store).ending, 0) << store;
        const auto report = json("check " + store);
        EXPECT_EQ(report["tables"]["TBL_CUSTOMER_INFO"], 0) << store;
        EXPECT_EQ(report["tables"]["MST_OTHERS"], json("check office")["tables"]["MST_OTHERS"]) << store;
        EXPECT_TRUE(report["findings"].empty()) << report;
        EXPECT_EQ(tool("create " + store).ending, 3) << "it exists already";
        EXPECT_EQ(json("check " + store), report);
    }
    std::filesystem::create_directory(folder.file("shared"));
    openToAllUsers(folder.file("shared"));
    EXPECT_EQ(tool("create shared/new").ending, 0);
    EXPECT_FALSE(isPrivate(folder.file("shared/new"))) << "the users of the folder use the store";
}

TEST_F(StoreTool, AServerGetsAWholeStoreOrNothing) {
    if (!hasServer()) GTEST_SKIP() << "without a server";
    onServer("fresh", "template0");
    ASSERT_EQ(tool("create fresh").ending, 0);
    runOnServer("fresh", "DROP TABLE MST_CORP, TBL_LOCK; DROP COLLATION NOCASE");
    EXPECT_EQ(tool("create fresh").ending, 3);
    EXPECT_EQ(runOnServer("fresh", "SELECT count(*) FROM pg_collation WHERE collname = 'nocase'"), "0\n");
}

TEST_F(StoreTool, TheCheckFindsEveryFault) {
    EXPECT_EQ(tool("check office").ending, 1) << "one company of the sample has no row in TBL_CUSTOMER_ADD";
    EXPECT_TRUE(matches(tool("check office"), "lock: 000004606 by FRONT-PC02 since 2026/11/02 09:14:37, "));
    const std::string faults =
        "DELETE FROM TBL_CUSTOMER_DATE WHERE USER_ID = '000004602';"
        "DELETE FROM TBL_CUSTOMER_INFO WHERE USER_ID = '000004603';"
        "UPDATE TBL_CUSTOMER_INFO SET LICENSE_NO = '江戸町奉行' WHERE USER_ID = '000004604';"
        "UPDATE MST_OTHERS SET DEL_FLAG = TRUE WHERE TYPE_CODE = '003';"
        "UPDATE TBL_LOCK SET USER_ID = '000009999', INSERT_DATE = 'soon';";
    const std::vector<std::string> stores = bothKinds("office", "faulty");
    for (const std::string& store : stores) change(store, faults);
    const auto report = json("check office");
    EXPECT_EQ(json("check " + stores.back()), report) << "both kinds of store are looked at alike";
    std::string found;
    for (const auto& finding : report["findings"]) {
        found += finding["where"].get<std::string>() + ":" + finding["what"].get<std::string>() + "\n";
    }
    for (const char* part :
         {"000004605:no row in TBL_CUSTOMER_ADD", "000004602:no row in TBL_CUSTOMER_DATE",
          "000004603:a row in TBL_CUSTOMER_ADD of no company", "000004603:a row in TBL_CUSTOMER_DATE of no company",
          "000004604:LICENSE_NO is in no list", "003:MST_OTHERS has no word", "000009999:a lock on no company"}) {
        EXPECT_NE(found.find(part), std::string::npos) << part << " in\n" << found;
    }
    EXPECT_EQ(report["locks"][0]["hours"], nullptr);
    runSql(office, "DROP TABLE MST_CORP");
    openToAllUsers(office);
    const Outcome last = tool("check office");
    EXPECT_TRUE(matches(last, "MST_CORP: ")) << "and the check goes on";
    EXPECT_TRUE(matches(last, "office: is open to all users of this computer")) << last.out;
}

TEST_F(StoreTool, DamageIsFoundAndNeitherBackedUpNorRestored) {
    std::string bytes = readFile(office);
    const std::size_t page = bytes.find("あおぞら架空不動産㈱") / 4096 * 4096;
    writeFile(folder.file("damaged"), bytes.replace(page, 4096, std::string(4096, '\xEE')));
    EXPECT_EQ(tool("check damaged").ending, 1);
    EXPECT_TRUE(matches(tool("check damaged"), "damage: "));
    EXPECT_EQ(tool("backup damaged copy").ending, 3);
    EXPECT_EQ(tool("restore office damaged --yes").ending, 3);
    EXPECT_EQ(tool("restore new damaged").ending, 3);
    EXPECT_EQ(names(), (std::vector<std::string>{"damaged", "office"}));
    EXPECT_EQ(tool("backup office copy").ending, 0);
}

TEST_F(StoreTool, ALockIsFreedWhenThePersonAgrees) {
    for (const std::string& store : bothKinds("office", "locked")) {
        EXPECT_EQ(tool("unlock " + store + " OTHER-PC --yes").ending, 1);
        EXPECT_EQ(tool("unlock " + store + " FRONT-PC02").ending, 1) << "no person there";
        EXPECT_EQ(tool("unlock " + store + " FRONT-PC02", "", "n\n").ending, 1);
        EXPECT_EQ(json("check " + store)["locks"].size(), 1U);
        EXPECT_EQ(tool("unlock " + store + " FRONT-PC02", "", "y\n").ending, 0);
        EXPECT_TRUE(json("check " + store)["locks"].empty());
    }
}

TEST_F(StoreTool, AnOfficeMovesToAServerAndBackUnchanged) {
    if (!hasServer()) GTEST_SKIP() << "without a server";
    runSql(office,
           "UPDATE TBL_CUSTOMER_ADD SET SEND_FLAG = TRUE WHERE USER_ID = '000004602';"
           "UPDATE TBL_CUSTOMER_INFO SET COMPANY_NAME = 'O''Hara \\ 髙﨑 ' || char(10) WHERE USER_ID = '000004601'");
    onServer("moved", "template0");
    ASSERT_EQ(tool("create moved").ending, 0);
    const auto there = json("copy office moved");
    EXPECT_EQ(there["tables"][0]["rows"], 6);
    EXPECT_EQ(runOnServer("moved", "SELECT SEND_FLAG FROM TBL_CUSTOMER_ADD WHERE USER_ID = '000004602'"), "t\n");
    EXPECT_EQ(tool("copy office moved").ending, 3) << "it holds companies now";
    EXPECT_EQ(tool("copy office moved --replace").ending, 0);
    const auto back = json("copy moved home");
    EXPECT_EQ(back["tables"], there["tables"]) << "counts and checksums";
    EXPECT_EQ(json("check home")["tables"], json("check office")["tables"]);
    EXPECT_EQ(tool("copy home home --replace").ending, 3);
    runSql(office, "ALTER TABLE TBL_LOCK ADD COLUMN ROOM TEXT");
    EXPECT_EQ(tool("copy office moved --replace").ending, 3) << "a column would be lost";
    EXPECT_EQ(json("copy moved again")["tables"], there["tables"]);
}

TEST_F(StoreTool, ABackupRestoresTheContent) {
    const auto tables = json("check office")["tables"];
    for (const std::string& store : bothKinds("office", "served")) {
        const std::string backup = "控え𠮷-" + store;
        const auto before = json("check " + store);
        ASSERT_EQ(tool("backup " + store + " " + backup).ending, 0);
        EXPECT_TRUE(matches(tool("backup " + store + " " + backup), "orv_store: " + backup + ": ")) << "it exists";
        change(store, "DELETE FROM TBL_CUSTOMER_INFO; DELETE FROM MST_TIKU");
        ASSERT_NE(json("check " + store), before);
        EXPECT_EQ(tool("restore " + store + " " + backup, "", "no\n").ending, 1);
        EXPECT_EQ(tool("restore " + store + " " + backup + " --yes").ending, 0);
        EXPECT_EQ(json("check " + store), before);
        std::filesystem::remove(office);
        EXPECT_EQ(tool("restore office " + backup).ending, 0);
        EXPECT_EQ(json("check office")["tables"], tables);
    }
}

TEST_F(StoreTool, AnUpgradeAddsTheMissingColumnsAndChangesNothingElse) {
    const std::vector<std::string> missing{"TBL_CUSTOMER_INFO.LICENSE_NO", "TBL_CUSTOMER_ADD.SEND_FLAG",
                                           "TBL_LOCK.INSERT_DATE"};
    const auto content = [&](const std::string& store) {  // in the schema's order of columns
        EXPECT_EQ(tool("copy " + store + " copied-" + store).ending, 0);
        return json("copy copied-" + store + " again-" + store)["tables"];
    };
    closeToOthers(makeSampleStore(folder.file("wanted")));
    change("wanted",
           "UPDATE TBL_CUSTOMER_INFO SET LICENSE_NO = NULL; UPDATE TBL_CUSTOMER_ADD SET SEND_FLAG = FALSE;"
           "DELETE FROM TBL_LOCK");
    const auto wanted = content("wanted");
    for (const std::string& store : bothKinds("office", "served")) {
        EXPECT_TRUE(matches(tool("upgrade " + store + " saved"), store + ": nothing to do"));
        for (const std::string& column : missing) {
            const std::size_t dot = column.find('.');
            change(store, "ALTER TABLE " + column.substr(0, dot) + " DROP COLUMN " + column.substr(dot + 1));
        }
        const Outcome check = tool("check " + store);
        EXPECT_TRUE(matches(check, "TBL_CUSTOMER_ADD: no column SEND_FLAG: orv_store upgrade")) << check.out;
        EXPECT_TRUE(matches(check, "[DBCOL01]")) << check.out;
        const auto refused = json("upgrade " + store + " saved");
        EXPECT_EQ(refused["computers"], nlohmann::json::array({"FRONT-PC02"})) << "a terminal is at work";
        EXPECT_EQ(tool("upgrade " + store + " saved").ending, 1);
        EXPECT_EQ(tool("check " + store).out, check.out);
        change(store, "DELETE FROM TBL_LOCK");
        EXPECT_FALSE(std::filesystem::exists(folder.file("saved")));
        EXPECT_EQ(json("upgrade " + store + " saved-" + store)["added"], nlohmann::json(missing));
        EXPECT_EQ(json("check saved-" + store)["tables"], json("check wanted")["tables"]);
        EXPECT_EQ(json("check " + store)["findings"], json("check wanted")["findings"]);
        change(store, "ALTER TABLE TBL_LOCK ADD COLUMN ROOM TEXT");
        const Outcome again = tool("upgrade " + store + " saved");
        EXPECT_EQ(again.ending, 0);
        EXPECT_TRUE(matches(again, store + ": nothing to do")) << again.out;
        EXPECT_TRUE(matches(again, "that the schema does not have; kept")) << again.out;
        change(store, "ALTER TABLE TBL_LOCK DROP COLUMN ROOM");
        EXPECT_EQ(content(store), wanted) << store;
    }
}

TEST_F(StoreTool, AnUpgradeThatFailsAddsNothing) {
    const std::string start = "DELETE FROM TBL_LOCK; ALTER TABLE TBL_CUSTOMER_INFO DROP COLUMN LICENSE_NO";
    change("office", start);
    const std::string older = readFile(office);
    for (const auto& [sql, cause] : std::to_array<std::pair<std::string, std::string>>({
             {"ALTER TABLE TBL_CUSTOMER_DATE RENAME TO DATES; "
              "CREATE VIEW TBL_CUSTOMER_DATE AS SELECT USER_ID, CONTRACT_DATE, BILLING_DATE FROM DATES",
              "TBL_CUSTOMER_DATE.LAST_SEND_DATE: adding"},
             {"ALTER TABLE TBL_LOCK DROP COLUMN PROPERTY_NO", "TBL_LOCK.PROPERTY_NO: is missing and has no default"},
             {"DROP TABLE MST_CORP", "MST_CORP: no such table"},
         })) {
        writeFile(office, older);
        for (const std::string& store : bothKinds("office", "served")) {
            if (store != "office") change(store, start);
            change(store, sql);
            const std::string before = tool("check " + store).out;
            const Outcome run = tool("upgrade " + store);
            EXPECT_EQ(run.ending, 3) << sql;
            EXPECT_TRUE(matches(run, cause)) << run.err;
            EXPECT_EQ(tool("check " + store).out, before);
            EXPECT_NE(before.find("TBL_CUSTOMER_INFO: no column LICENSE_NO: "), std::string::npos) << before;
        }
    }
}

TEST_F(StoreTool, TheNightlyRunKeepsSevenDaysAndFourWeeksAndTheStatusShowsTheLast) {
    const std::vector<std::string> kept{
        "orv-20200901-010000.mdb.old", "orv-20200928-010000.mdb", "orv-20200931-010000.mdb", "orv-20201005-010000.mdb",
        "orv-20201012-010000.mdb",     "orv-20201019-010000.mdb", "orv-20201026-020000.mdb", "orv-20201027-020000.mdb",
        "orv-20201028-020000.mdb",     "orv-20201029-020000.mdb", "orv-20201030-020000.mdb", "orv-20201031-020000.mdb"};
    for (const std::string& store : bothKinds("office", "nightly")) {
        const std::string backups = "of-" + store;
        for (const std::string& name : kept) folder.write(backups + "/" + name, "");
        for (int day = 0; day < 61; ++day) {
            const std::string date = std::to_string(day < 30 ? 20200901 + day : 20201001 + day - 30);
            for (const char* hour : {"01", "02"}) folder.write(backups + "/orv-" + date + "-" + hour + "0000.mdb", "");
        }
        EXPECT_EQ(tool("status " + store + " " + backups).ending, 1) << "no backup of the last days";
        const auto run = json("nightly " + store + " " + backups);
        std::vector<std::string> expected = kept;
        expected.push_back(pathText(filePath(run["backup"].get<std::string>()).filename()));
        EXPECT_EQ(names(backups), expected);
        EXPECT_EQ(run["findings"], json("check " + store)["findings"]);
        EXPECT_EQ(json("check " + run["backup"].get<std::string>())["tables"], json("check " + store)["tables"]);
        const auto status = json("status " + store + " " + backups);
        EXPECT_EQ(status["kind"], store == "office" ? "file" : "server");
        EXPECT_EQ(status["companies"], 6);
        EXPECT_GT(status["bytes"], 50000);
        EXPECT_EQ(status["locks"], json("check " + store)["locks"]);
        EXPECT_EQ(status["backup"]["file"], run["backup"]);
        EXPECT_EQ(tool("status " + store + " " + backups).ending, 0);
    }
    EXPECT_TRUE(matches(tool("nightly office ."), "nightly: FINDINGS, "));
    EXPECT_EQ(json("status office")["backup"], nullptr) << "the office has no folder BKUP";
    EXPECT_EQ(tool("nightly office").ending, 3);
}

}  // namespace
}  // namespace orv
