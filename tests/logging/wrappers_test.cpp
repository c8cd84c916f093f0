#include <functional>
#include <map>
#include <new>
#include <stdexcept>

#include "logging/error_pair.h"
#include "logging/handled.h"
#include "logging/messages.h"
#include "logging/setting_trap.h"
#include "logging/trap.h"
#include "support/no_windows.h"
#include "support/settings_test.h"

namespace orv {
namespace {

/// Keeps the plain boxes.
struct PlainBoxes : NoWindows {
    std::vector<Notice> notices;

    std::size_t showNotice(const Notice& notice) override {
        notices.push_back(notice);
        return 0;
    }
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
    const std::map<std::string, std::function<void()>> bodies{
        {"61", [] { throw RunTimeError(Failure::DiskFull); }},
        {"3021", [] { throw RunTimeError(3021, "行がありません。"); }},
        {"9", [] { static_cast<void>(std::vector<int>().at(1)); }},
        {"7", [] { throw std::bad_alloc(); }},
        {"51", [] { throw std::runtime_error("library"); }},
    };
    for (const auto& [number, body] : bodies) {
        EXPECT_FALSE(trapped("[ Here ] ", [&] {
            body();
            return true;
        }));
        EXPECT_EQ(gErrCode, number);
        EXPECT_TRUE(gErrMsg.starts_with("[ Here ] ") && gErrMsg.size() > 9) << gErrMsg;
        EXPECT_EQ(gErrMsg.find("library"), std::string::npos);
    }
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

}  // namespace
}  // namespace orv
