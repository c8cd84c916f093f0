#include "binding/record_to_page.h"
#include "core/flow/save_test.h"

namespace orv {
namespace {

/// A company without a number, filled like the sample's first one.
class NewCompany : public SaveTest {
protected:
    NewCompany() {
        load();
        CompanyRecord filled = tCustomerInfo;
        sql("delete from TBL_LOCK");
        start("---------,1,0");
        for (TextField field : {&CompanyRecord::PHOTO_FILE1, &CompanyRecord::PHOTO_FILE2, &CompanyRecord::PHOTO_GRP1,
                                &CompanyRecord::PHOTO_GRP2, &CompanyRecord::UPDATE_DATE, &CompanyRecord::INSERT_DATE}) {
            (filled.*field).clear();
        }
        filled.USER_ID = kMarker;
        filled.PWD_CHG_FLG.clear();
        tCustomerInfo = filled;
        EXPECT_TRUE(PF_SetData_Frm_CompInp0());
        server.id = "000004700";
    }
    /// Returns the number of rows of the company in each table.
    std::string readRows(const std::string& userId) {
        std::string counts;
        for (const std::string table : kTables) {
            counts += one("select count(*) from " + table + " where USER_ID = '" + userId + "'");
        }
        return counts;
    }
};

TEST_F(NewCompany, IsInsertedSentNumberedAndMoved) {
    server.meanwhile = [&] {
        EXPECT_EQ(readRows(kMarker), "111");
        EXPECT_EQ(info("PWD_CHG_FLG || '|' || UPDATE_DATE || '|' || INSERT_DATE", kMarker), "2||20260504 09:08:07");
        EXPECT_EQ(info("SERVICE_FLG", kMarker), std::string(50, '0')) << "whatever the record holds";
    };
    save();
    expectShown("COS05574", {});
    EXPECT_EQ(server.sent, Texts{kMarker});
    EXPECT_EQ(readRows(kMarker) + readRows("000004700"), "000111");
    EXPECT_EQ(info("PWD_CHG_FLG || '|' || UPDATE_DATE", "000004700"), "1|20260504 09:08:07");
    EXPECT_EQ(tCustomerInfo.USER_ID, "000004700");
    EXPECT_EQ(form().cbo_User_Id.text() + form().lbl_UserId.caption(), "000004700000004700");
    EXPECT_EQ(form().cbo_User_Id.list(form().cbo_User_Id.listCount() - 1), kMarker);
    EXPECT_FALSE(form().txt_User_Passwd.enabled());
    EXPECT_EQ(locks(), Texts{"000004700 DESK01"});
    EXPECT_FALSE(gSaved) << "the silent switch clears it";
    expectAtRest();
    EXPECT_EQ(log(), "");
    edit("次の変更");
    server.meanwhile = {};
    save();
    EXPECT_EQ(info("COMPANY_NAME", "000004700"), "次の変更");
    EXPECT_EQ(readRows("000004700"), "111");
}

TEST_F(NewCompany, AnAnswerOfAnotherLengthIsPassedOver) {
    for (const char* id : {"00004700", "0000047000", "番号１", ""}) {
        server.id = id;
        save();
        expectShown("COS05574", {});
        EXPECT_EQ(readRows(kMarker), "111") << id;
        EXPECT_EQ(form().cbo_User_Id.text(), kMarker);
        EXPECT_EQ(locks(), Texts{"--------- DESK01"});
        EXPECT_TRUE(gSaved);
    }
    EXPECT_EQ(everything().size(), 6u + 5u + 6u + 3u);
}

TEST_F(NewCompany, AFailedSendLeavesOneRowInEachTableHoweverOftenItIsTried) {
    server.takes = false;
    save();
    save();
    EXPECT_EQ(shownIds(), (Texts{"COSERR01", "COSERR01"}));
    EXPECT_EQ(readRows(kMarker), "111");
    EXPECT_EQ(info("PWD_CHG_FLG", kMarker), "2");
    EXPECT_EQ(form().cbo_User_Id.text(), kMarker);
    int markers = 0;
    for (int i = 0; i < form().cbo_User_Id.listCount(); ++i) {
        markers += form().cbo_User_Id.list(i) == kMarker ? 1 : 0;
    }
    EXPECT_EQ(markers, 1);
    server.takes = true;
    save();
    EXPECT_EQ(readRows(kMarker) + readRows("000004700"), "000111");
}

TEST_F(NewCompany, ItsNumberThatCannotBeOpenedMakesNoSecondCompanyOfIt) {
    store.fail(Call::Select, "select LOCAL_INFO");
    save();
    EXPECT_EQ(shownIds(), (Texts{"COS05574", "COSERR01"}));
    server.id = "000004701";
    messages.shown.clear();
    save();
    EXPECT_EQ(toText(messages.shown.at(0).args.at(0)), "SAVE0001");
    EXPECT_TRUE(toText(messages.shown.at(0).args.at(1)).ends_with("メニューへ戻って開き直してください。"));
    EXPECT_EQ(server.sent.size() + everything().size(), 1u + 20u);
    choose("000004700");
    save();
    EXPECT_EQ(messages.shown.back().id, "COS05574");
    EXPECT_EQ(readRows("000004700"), "111");
}

TEST_F(NewCompany, ANumberThatTheStoreKnowsLeavesItOnItsMarker) {
    sql("insert into TBL_CUSTOMER_DATE (USER_ID) values ('000004699')");
    for (const std::string taken : {"000004602", "000004699"}) {
        server.id = taken;
        save();
        EXPECT_EQ(shownIds(), (Texts{"COS05574", "COSERR01"}));
        EXPECT_EQ(messages.shown.back().args.at(0), Value("SAVE0002"));
        EXPECT_NE(toText(messages.shown.back().args.at(1)).find(taken), std::string::npos);
        EXPECT_EQ(readRows(kMarker) + info("PWD_CHG_FLG", kMarker), "1112");
        EXPECT_EQ(form().cbo_User_Id.text() + form().txt_Company_Name.text(), "---------あおぞら架空不動産㈱");
        EXPECT_EQ(locks(), Texts{"--------- DESK01"});
        messages.shown.clear();
    }
    EXPECT_EQ(info("COMPANY_NAME", "000004602"), "㈲さくら見本管理");
    server.id = "000004700";
    save();
    EXPECT_EQ(readRows("000004700") + form().cbo_User_Id.text(), "111000004700");
}

TEST_F(NewCompany, TheSavesOwnFailureIsReportedThoughTheSwitchToTheNumberFailsToo) {
    // The photo's target cannot be written after the second write, nor during the load of the number.
    server.meanwhile = [] { tCustomerInfo.PHOTO_FILE1 = "C:\\ORV\\IMG\\1\\000004603COS00000000_01.jpg"; };
    files.refuse("C:\\ORV\\TMP\\TmpImg_1", Failure::DiskFull);
    save();
    EXPECT_EQ(shownIds(), (Texts{"COS05574", "COSERR01", "COSERR01"}));
    messages.shown.erase(messages.shown.begin(), messages.shown.end() - 1);
    expectReported("61", "[ PF_SndCos ]ディスクの空き容量が足りません。");
}

TEST_F(NewCompany, ASecondWriteThatWasDoneThoughItFailedMakesNoSecondCompany) {
    // The second write's transaction is committed although its answer is lost.
    store.fail(Call::Execute, "UPDATE TBL_CUSTOMER_DATE");
    save();
    ASSERT_EQ(readRows(kMarker), "111");
    renumber(kMarker, "000004700");
    messages.shown.clear();
    store.fail(Call::Select, "SELECT COUNT(*)     FROM TBL_CUSTOMER_INFO");
    save();
    expectReported("DB:77", "ストアの故障");
    save();
    EXPECT_EQ(toText(messages.shown.back().args.at(0)), "SAVE0001");
    choose("000004700");
    save();
    EXPECT_EQ(messages.shown.back().id, "COS05574");
    EXPECT_EQ(readRows("000004700") + readRows(kMarker), "111000");
}

}  // namespace
}  // namespace orv
