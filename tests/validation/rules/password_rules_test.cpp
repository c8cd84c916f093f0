#include "validation/rules/password_rules.h"

#include "adapters/sqlite/sqlite_db_service.h"
#include "support/store_files.h"
#include "validation/rules/rules_test.h"

namespace orv {
namespace {

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

/// What the field lets nobody type, but a password may be longer in bytes than in characters.
TEST_F(PasswordRules, BytesCount) {
    for (const char* wanted : {"ああ", "abcdefghijk", "あああああa"}) {
        EXPECT_FALSE(check("mihon01", wanted, wanted));
        EXPECT_EQ(messages.shown, (std::vector{RecordedMessages::Shown{"CHECK003", {"新しいパスワード", 5, 10}}}));
        EXPECT_TRUE(storeIsOpen());
        EXPECT_EQ(gErrMsg + gErrCode + tCustomerInfo.USER_PASSWD, "mihon01");
    }
    EXPECT_FALSE(check("mihon01 ", "", ""));
    EXPECT_EQ(messages.shown.front().id, "CHECK002");
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
