#include <new>
#include <stdexcept>

#include "logging/error_pair.h"
#include "logging/handled.h"
#include "logging/messages.h"
#include "logging/setting_trap.h"
#include "logging/trap.h"
#include "platform/machine/window_system.h"
#include "support/settings_test.h"

namespace orv {
namespace {

/// Keeps the plain boxes; nothing else is asked of a screen here.
class PlainBoxes : public WindowSystem {
public:
    std::vector<Notice> notices;

    void open(Form&) override {}
    void show(Form&) override {}
    void close(Form&) override {}
    void centre(Form&) override {}
    void runModal(Form&) override {}
    std::size_t showNotice(const Notice& notice) override {
        notices.push_back(notice);
        return 0;
    }
    void commitComposition() override {}
    void pointer(bool) override {}
    void repaint() override {}
};

class Wrappers : public SettingsTest {
protected:
    Wrappers() { services().windows = &windows; }

    void expectPair(const std::string& text, const std::string& code) {
        EXPECT_EQ(gErrMsg, text);
        EXPECT_EQ(gErrCode, code);
    }

    PlainBoxes windows;
};

TEST_F(Wrappers, EveryExceptionIsARunTimeFailure) {
    struct Case {
        std::function<void()> body;
        const char* number;
    };
    const std::vector<Case> cases{
        {[] { throw RunTimeError(Failure::DiskFull); }, "61"},
        {[] { throw RunTimeError(3021, "行がありません。"); }, "3021"},
        {[] { static_cast<void>(std::vector<int>().at(1)); }, "9"},
        {[] { throw std::bad_alloc(); }, "7"},
        {[] { throw std::runtime_error("library"); }, "51"},
    };
    for (const Case& row : cases) {
        EXPECT_FALSE(trapped("[ Here ] ", [&] {
            row.body();
            return true;
        }));
        EXPECT_EQ(gErrCode, row.number);
        EXPECT_TRUE(gErrMsg.starts_with("[ Here ] ") && gErrMsg.size() > 9) << gErrMsg;
        EXPECT_EQ(gErrMsg.find("library"), std::string::npos);
    }
}

TEST_F(Wrappers, APairThatTheBodySetStays) {
    EXPECT_FALSE(
        trapped("[ Outer ] ", [] { return trapped("[ Inner ] ", [] { return fail("own text", "OWN:01"); }); }));
    expectPair("own text", "OWN:01");
    EXPECT_FALSE(trapped("[ Outer ] ", [] { return failFrom({"service", "S1"}); }));
    expectPair("service", "S1");
}

TEST_F(Wrappers, SuccessLeavesAnOlderPair) {
    gErrMsg = "older";
    EXPECT_TRUE(trapped("[ Here ] ", [] { return true; }));
    EXPECT_EQ(gErrMsg, "older");
}

TEST_F(Wrappers, OtherResultsHaveTheirOwnFailureValue) {
    EXPECT_EQ(trappedOr<int>("[ Here ] ", -1, [] { return 5; }), 5);
    EXPECT_EQ(trappedOr<int>("[ Here ] ", -1, []() -> int { throw RunTimeError(Failure::Overflow); }), -1);
    EXPECT_EQ(gErrCode, "6");
}

TEST_F(Wrappers, ASettingLogsWithoutLabelAndLeavesThePair) {
    gErrMsg = "pending";
    gErrCode = "P";
    EXPECT_EQ(setting([] { return "read"; }), "read");
    EXPECT_EQ(log(), "");
    EXPECT_EQ(setting([]() -> std::string { throw RunTimeError(Failure::FileNotFound); }, "0"), "0");
    EXPECT_EQ(setting([]() -> std::optional<std::string> { return std::nullopt; }), "");
    EXPECT_EQ(log(), record("53", std::string(descriptionOf(Failure::FileNotFound))) + record("0", ""));
    expectPair("pending", "P");
}

TEST_F(Wrappers, AHandlerShowsLogsAndClears) {
    handled("[ X_Click ]", [] { return true; });
    EXPECT_TRUE(messages.shown.empty());

    const std::string text = "[ X_Click ]" + std::string(descriptionOf(Failure::TypeMismatch));
    handled("[ X_Click ]", []() -> bool { throw RunTimeError(Failure::TypeMismatch); });
    EXPECT_EQ(messages.shown, (std::vector<RecordedMessages::Shown>{{"COSERR01", {"13", text}}}));
    EXPECT_EQ(log(), record("13", text));
    expectPair("", "");
}

TEST_F(Wrappers, AHandlerCanNameAnotherMessageAndKeepThePair) {
    handled("[ X ]", [] { return fail("text", "C1"); }, {.id = "UTERR001", .keepPair = true});
    EXPECT_EQ(messages.shown, (std::vector<RecordedMessages::Shown>{{"UTERR001", {"C1", "text"}}}));
    expectPair("text", "C1");
}

TEST_F(Wrappers, WithoutTheMessageServiceAPlainBoxTells) {
    messages.refusal = FailureRecord{"no window", "W1"};
    handled("[ X ]", [] { return fail("text", "C1"); });
    messages.failure = Failure::Internal;
    handled("[ X ]", [] { return fail("text", "C2"); });
    ASSERT_EQ(windows.notices.size(), 2U);
    EXPECT_EQ(windows.notices[0].title, "C1");
    EXPECT_EQ(windows.notices[0].text, "text");
    EXPECT_EQ(windows.notices[1].title, "C2");
    EXPECT_EQ(log(), record("C1", "text") + record("C2", "text"));
    expectPair("", "");
}

TEST_F(Wrappers, QuestionsAndNoticesReadTheService) {
    messages.answers = {1, 2};
    EXPECT_TRUE(staysAfter("ADD00010"));
    EXPECT_FALSE(staysAfter("ADD00010"));
    EXPECT_TRUE(showOrFail("COS05574", {"a"}));
    EXPECT_EQ(messages.shown.back(), (RecordedMessages::Shown{"COS05574", {"a"}}));
    messages.refusal = FailureRecord{"no window", "W1"};
    EXPECT_FALSE(showOrFail("COS05574", {"a"}));
    expectPair("no window", "W1");
}

}  // namespace
}  // namespace orv
