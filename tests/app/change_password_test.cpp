#include "support/window_test.h"

namespace orv {
namespace {

class ChangePassword : public WindowTest {
protected:
    frm_CompInp0& form() { return page<frm_CompInp0>(); }
    frm_ChangePassword& dialog() { return page<frm_ChangePassword>(); }
    static void typeThree(const std::string& present, const std::string& wanted, const std::string& again) {
        for (const std::string& text : {present, wanted, again}) {
            typeKeys(text);
            press(Qt::Key_Tab);
        }
    }
    /// Opens the dialog by mouse and runs `work` in it. The dialog must be closed at the end.
    void runInDialog(const std::function<void()>& work) {
        bool worked = false;
        QTimer operatorAtWork;
        QObject::connect(&operatorAtWork, &QTimer::timeout, [&] {
            const QWidget* modal = QApplication::activeModalWidget();
            if (modal == nullptr || QApplication::activeWindow() != modal) return;
            operatorAtWork.stop();
            worked = true;
            EXPECT_FALSE(form().btm_ChangePW.enabled());
            work();
            EXPECT_EQ(forms.activeForm(), &form()) << "the dialog is still open";
            forms.unload(dialog(), UnloadMode::Code);
        });
        operatorAtWork.start(5);
        click(form().btm_ChangePW);
        EXPECT_TRUE(worked);
        EXPECT_TRUE(form().btm_ChangePW.enabled());
        EXPECT_EQ(focused(), "btm_ChangePW");
        EXPECT_EQ(forms.forms(), std::vector<Form*>{&form()});
    }
};

TEST_F(ChangePassword, IsTakenOverByEnterAndStoredByTheSave) {
    startOn(0);
    runInDialog([&] {
        EXPECT_EQ(focused(), "txt_Password(0)");
        EXPECT_EQ(findWindow(dialog())->windowTitle(), "パスワード変更[*]");
        EXPECT_EQ(dialog().canvas().back(), kPageBack);
        ASSERT_EQ(dialog().canvas().shapes().size(), 1U);
        const auto& edge = std::get<DrawnBox>(dialog().canvas().shapes().front());
        EXPECT_EQ(edge.box, (Box{0, 0, dialog().scaleWidth(), dialog().scaleHeight()}));
        EXPECT_FALSE(edge.filled);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(findWidget<QLineEdit>(dialog().txt_Password[i])->echoMode(), QLineEdit::Password);
        }
        typeThree("mihon01", "himitsu1", "himitsu1");
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        press(Qt::Key_Return);
    });
    EXPECT_EQ(tCustomerInfo.USER_PASSWD + tCustomerInfo.PWD_CHG_FLG, "himitsu12");
    EXPECT_EQ(form().txt_User_Passwd.text(), "himitsu1");
    EXPECT_EQ(info("USER_PASSWD"), "mihon01") << "not before the save";
    EXPECT_EQ(shownIds(), Texts{});
    click(form().btm_Save);
    expectShown("COS05574", {});
    EXPECT_EQ(info("USER_PASSWD || PWD_CHG_FLG"), "himitsu11");
    EXPECT_EQ(log(), "");
}

TEST_F(ChangePassword, ARefusalLeavesTheDialogOpenAndShowsNoPassword) {
    struct Case {
        const char *present, *wanted, *again;
        RecordedMessages::Shown shown;
        const char* focus;
    };
    constexpr const char* kPresent = "今までのパスワード";
    constexpr const char* kWanted = "新しいパスワード";
    constexpr const char* kAgain = "新しいパスワードの確認入力";
    const RecordedMessages::Shown missing{"CHECK001", {kPresent}};
    const RecordedMessages::Shown wrong{"CHECK002", {kPresent, "保存されているパスワード", "\r\n"}};
    const RecordedMessages::Shown length{"CHECK003", {kWanted, 5, 10}};
    const RecordedMessages::Shown different{"CHECK002", {kWanted, kAgain, "\r\n"}};
    startOn(0);
    static_cast<void>(fail("older", "IMGERR:20150"));  // as after a cancelled photo
    for (const Case& row : {
             Case{"", "", "x", missing, "txt_Password(0)"},
             {"Mihon01", "abcde", "abcde", wrong, "txt_Password(0)"},
             {"mihon01", "abcd", "x", length, "txt_Password(1)"},
             {"mihon01", "abcde", "abcdE", different, "txt_Password(2)"},
         }) {
        SCOPED_TRACE(std::string(row.present) + "/" + row.wanted + "/" + row.again);
        messages.shown.clear();
        runInDialog([&] {
            typeThree(row.present, row.wanted, row.again);
            click(dialog().btm_Entry);
            EXPECT_EQ(messages.shown, std::vector{row.shown});
            EXPECT_EQ(focused(), row.focus);
            EXPECT_EQ(dialog().txt_Password[1].text(), row.wanted) << "the texts stay";
            press(Qt::Key_Escape);
        });
        EXPECT_EQ(tCustomerInfo.USER_PASSWD + tCustomerInfo.PWD_CHG_FLG + form().txt_User_Passwd.text(),
                  "mihon011mihon01");
    }
    EXPECT_EQ(log(), "");
}

TEST_F(ChangePassword, AFailureOfTheCheckIsReported) {
    startOn(0);
    runInDialog([&] {
        typeThree("mihon01", "abcde", "abcde");
        store.fail(Call::Close);
        store.raised = Failure::OutOfMemory;
        click(dialog().btm_Entry);
        store.repair();
        expectReported("7", "[ PF_CheckPwd ] メモリが足りません。");
        press(Qt::Key_Escape);
    });
}

}  // namespace
}  // namespace orv
