#include "validation/rules/password_rules.h"

#include "adapters/sqlite/sqlite_db_service.h"
#include "support/store_files.h"
#include "validation/rules/rules_test.h"

namespace orv {
namespace {

constexpr const char* kPresent = "今までのパスワード";
constexpr const char* kWanted = "新しいパスワード";
constexpr const char* kAgain = "新しいパスワードの確認入力";

class PasswordRules : public RulesTest {
protected:
    PasswordRules() {
        services().db = &db;
        tCustomerInfo.USER_PASSWD = "mihon01";
        tCustomerInfo.PWD_CHG_FLG = "1";
        forms.load(page<frm_ChangePassword>());
        bool ok = false;
        db.DbOpen(gConn, store, ok);
        EXPECT_TRUE(ok);
    }
    ~PasswordRules() override { forms.unload(page<frm_ChangePassword>(), UnloadMode::Code); }

    bool check(const std::string& present, const std::string& wanted, const std::string& again) {
        const std::array texts{present, wanted, again};
        for (std::size_t i = 0; i < texts.size(); ++i) {
            page<frm_ChangePassword>().txt_Password[i].setText(texts[i]);
        }
        messages.shown.clear();
        return PF_CheckPwd();
    }
    static std::string active() {
        const Control* control = page<frm_ChangePassword>().activeControl();
        return control == nullptr ? "" : control->objectName();
    }
    bool storeIsOpen() const { return gConn != nullptr; }

    TempFolder folder;
    std::string store = makeSampleStore(folder.file("ORVESTATE.MDB"));
    SqliteDbService db{nativePaths()};
};

TEST_F(PasswordRules, RefuseWithAMessageAndTheFocus) {
    struct Case {
        const char* present;
        const char* wanted;
        const char* again;
        RecordedMessages::Shown shown;
        const char* focus;
    };
    const RecordedMessages::Shown missing{"CHECK001", {kPresent}};
    const RecordedMessages::Shown wrong{"CHECK002", {kPresent, "保存されているパスワード", "\r\n"}};
    const RecordedMessages::Shown length{"CHECK003", {kWanted, 5, 10}};
    const RecordedMessages::Shown different{"CHECK002", {kWanted, kAgain, "\r\n"}};
    for (const Case& row : {
             Case{"", "", "x", missing, "txt_Password(0)"},
             {" ", "", "x", wrong, "txt_Password(0)"},
             {"Mihon01", "abcde", "abcde", wrong, "txt_Password(0)"},
             {"mihon01 ", "", "", wrong, "txt_Password(0)"},
             {"mihon01", "abcd", "x", length, "txt_Password(1)"},
             {"mihon01", "ああ", "ああ", length, "txt_Password(1)"},
             {"mihon01", "abcdefghijk", "x", length, "txt_Password(1)"},
             {"mihon01", "あああああa", "あああああa", length, "txt_Password(1)"},
             {"mihon01", "", "", length, "txt_Password(1)"},
             {"mihon01", "abcde", "abcdE", different, "txt_Password(2)"},
             {"mihon01", "abcde", "", different, "txt_Password(2)"},
         }) {
        SCOPED_TRACE(std::string(row.present) + "/" + row.wanted + "/" + row.again);
        EXPECT_FALSE(check(row.present, row.wanted, row.again));
        EXPECT_EQ(messages.shown, std::vector{row.shown});
        EXPECT_EQ(active(), row.focus);
        EXPECT_EQ(page<frm_ChangePassword>().txt_Password[1].text(), row.wanted) << "the texts stay";
        EXPECT_EQ(tCustomerInfo.USER_PASSWD, "mihon01");
        EXPECT_EQ(tCustomerInfo.PWD_CHG_FLG, "1");
        EXPECT_TRUE(storeIsOpen());
        EXPECT_EQ(gErrMsg + gErrCode, "");
    }
}

TEST_F(PasswordRules, AcceptedPasswordsGoIntoTheRecord) {
    for (const char* wanted : {"abcde", "abcdefghij", "ああa", "あああああ", "あああああ", "$'% \""}) {
        tCustomerInfo.PWD_CHG_FLG = "1";
        EXPECT_TRUE(check(tCustomerInfo.USER_PASSWD, wanted, wanted)) << wanted;
        EXPECT_EQ(tCustomerInfo.USER_PASSWD, wanted);
        EXPECT_EQ(tCustomerInfo.PWD_CHG_FLG, "2");
        EXPECT_TRUE(messages.shown.empty());
    }
    EXPECT_FALSE(storeIsOpen());
}

TEST_F(PasswordRules, AMessageThatCanNotBeShownFillsThePair) {
    messages.refusal = FailureRecord{"画面がありません。", "MSG01"};
    EXPECT_FALSE(check("", "", ""));
    EXPECT_EQ(gErrMsg, "画面がありません。");
    EXPECT_EQ(gErrCode, "MSG01");
    EXPECT_EQ(active(), "");
    EXPECT_FALSE(storeIsOpen());
}

TEST_F(PasswordRules, ARunTimeFailureCarriesTheLabel) {
    messages.failure = Failure::OutOfMemory;
    EXPECT_FALSE(check("", "", ""));
    EXPECT_EQ(gErrMsg, "[ PF_CheckPwd ] " + std::string(descriptionOf(Failure::OutOfMemory)));
    EXPECT_EQ(gErrCode, "7");
    EXPECT_EQ(tCustomerInfo.USER_PASSWD, "mihon01");
}

}  // namespace
}  // namespace orv
