#include "core/flow/save_company.h"

#include "core/flow/save_test.h"

namespace orv {
namespace {

using Save = SaveTest;

TEST_F(Save, ACompleteSave) {
    sql("update TBL_CUSTOMER_ADD set SEND_FLAG = TRUE, CPU = 'old' where USER_ID = '000004601'");
    sql("update TBL_CUSTOMER_INFO set PWD_CHG_FLG = '2' where USER_ID = '000004601'");
    startOn(0);
    edit("変更後");
    store.statements.clear();
    store.watch = [&](const std::string& sql) { EXPECT_FALSE(form().enabled() && server.sent.empty()) << sql; };
    server.meanwhile = [&] {
        EXPECT_FALSE(form().enabled());
        EXPECT_EQ(forms.pointer(), kPointerHourglass);
        EXPECT_EQ(stored(), "変更後21") << "the first write is kept for any answer of the server";
    };
    server.id = "000009999";
    save();
    expectShown("COS05574", {});
    EXPECT_EQ(stored(), "変更後10") << "a known company keeps its number whatever the server answers";
    EXPECT_EQ(server.sent, Texts{kCompany});
    EXPECT_EQ(info("UPDATE_DATE || INSERT_DATE || MAIL_FLG"), "20260504 09:08:0720190401 10:05:001");
    EXPECT_EQ(info("substr(SERVICE_FLG, 26, 1) || CONTRACT_PUBLISHNUMBER"), "212") << "left as they were";
    EXPECT_EQ(add("CPU || '|' || MEMORY || '|' || NET_TYPE"), "|2048MB|LAN");
    EXPECT_EQ(one("select CONTRACT_DATE from TBL_CUSTOMER_DATE where USER_ID = '000004601'"), "20190401");
    EXPECT_TRUE(gSaved);
    EXPECT_EQ(add("PHOTO_FILE1 || PHOTO_FILE2"), "000004601COS00000000_01.jpg000004601COS00000000_02.jpg");
    EXPECT_EQ(tCustomerInfo.PHOTO_FILE1 + tCustomerInfo.PHOTO_FILE2, "C:\\ORV\\TMP\\TmpImg_1C:\\ORV\\TMP\\TmpImg_2");
    EXPECT_EQ(windows.calls.back(), "show frm_CompInp0") << "in front again after the send";
    expectAtRest();
    EXPECT_EQ(log(), "");
}

TEST_F(Save, ARefusedStatementIsWrittenOut) {
    startOn(0);
    store.fail(Call::Execute, "UPDATE TBL_CUSTOMER_DATE");
    save();
    const std::string failed = record("DB:77", "ストアの故障");
    EXPECT_EQ(log(), failed +
                         record("SQL",
                                "UPDATE TBL_CUSTOMER_DATE        SET             USER_ID  ='000004601'     WHERE  "
                                "USER_ID = '000004601'") +
                         failed)
        << "the write logs its failure and its statement, the button its message";
}

TEST_F(Save, AMissingRowIsNeverCreated) {
    startOn(0);
    // Starts with the table that is written last.
    for (const auto& [table, text, code] : std::to_array<std::array<std::string, 3>>(
             {{"TBL_CUSTOMER_DATE", "会社情報日付DB登録に失敗しました。", "ESSX0645"},
              {"TBL_CUSTOMER_ADD", "会社情報付加DB登録に失敗しました。", "ESSX0645"},
              {"TBL_CUSTOMER_INFO", "会社情報基本DB登録に失敗しました。", "ESSX0644"}})) {
        sql("delete from " + table + " where USER_ID = '000004601'");
        const Texts before = everything();
        save();
        EXPECT_EQ(messages.shown.back(), (RecordedMessages::Shown{"COSERR01", {code, text}}));
        EXPECT_EQ(everything(), before);
        EXPECT_TRUE(server.sent.empty());
        EXPECT_EQ(tCustomerInfo.USER_ID, kCompany);
    }
}

TEST_F(Save, AListThatCannotBeReadAgainKeepsTheCompany) {
    startOn(0);
    edit("変更後");
    store.fail(Call::Select, "ORDER BY USER_ID");
    save();
    expectShown("COS05574", {});
    ComboBox& list = form().cbo_User_Id;
    ASSERT_EQ(list.listCount(), 2);
    EXPECT_EQ(list.list(0) + " " + list.list(1) + " " + list.text(), "000004601 --------- 000004601");
    EXPECT_TRUE(gSaved);
    EXPECT_EQ(gErrMsg, "");
    save();
    EXPECT_EQ(list.listCount(), 7);
    EXPECT_EQ(info("COMPANY_NAME"), "変更後");
}

TEST_F(Save, NothingInAnUploadFailsIt) {
    services().http = []() -> std::unique_ptr<HttpControl> { throw RunTimeError(Failure::OutOfMemory); };
    startOn(0);
    save();
    expectShown("COS05574", {});
    EXPECT_EQ(log(), record("7", "メモリが足りません。"));
    EXPECT_EQ(forms.forms(), std::vector<Form*>{&form()});
}

TEST_F(Save, APageThatHasLostItsChoiceSavesItsOwnCompany) {
    startOn(0);
    form().cbo_User_Id.clear();
    edit("変更後");
    save();
    expectShown("COS05574", {});
    EXPECT_EQ(info("COMPANY_NAME"), "変更後");
    EXPECT_EQ(form().cbo_User_Id.text(), kCompany);
}

}  // namespace
}  // namespace orv
