#include <new>
#include <stdexcept>

#include "logging/handled.h"
#include "logging/messages.h"
#include "logging/setting_trap.h"
#include "logging/trap.h"
#include "logging/write_log.h"
#include "support/fixture.h"

namespace orv {
namespace {

class Logging : public SystemTest {
protected:
    std::string readText(const std::string& file) const { return codePage.decode(readBytes(file)); }
};

TEST_F(Logging, WritesTheRecordOfEachKindIntoItsFile) {
    struct Kind {
        const char* kind;
        std::string file;
        Values args;
        std::string record;
    };
    const DateTime moment{.year = 2026, .month = 1, .day = 2, .hour = 3, .minute = 4, .second = 5};
    const Values rows{Value("a"), Value("b")};
    const Values more{Value("a"), Value("b"), Value("c")};
    for (const Kind& row : std::vector<Kind>{
             {"ERR", "ERR\\260504_err.log", {moment, 13, "型が。"}, "2026/01/02 03:04:05,13,型が。\r\n"},
             {"RAS", "RAS\\ras.log", {"x", 1.5, true}, "x,1.5,True\r\n"},
             {"DWL", "DWL\\260504_dwl.log", {"a,b", "", "c", "ignored"}, "a,b,,c\r\n"},
             {"SND", "SND\\260504_snd.log", {Values{"a", 2, "ｶﾅ"}}, "a,2,ｶﾅ,\r\n"},
             {"RCV",
              "RCV\\260504_rcv.log",
              {rows, more, more, more, more, more},
              "2026/05/04 09:08:07,a,a,a,a,a,a,\r\n2026/05/04 09:08:07,b,b,b,b,b,b,\r\n\r\n"},
         }) {
        EXPECT_TRUE(PF_WriteLog(row.kind, row.args)) << row.kind << gErrMsg;
        EXPECT_EQ(readText("C:\\ORV\\LOG\\" + row.file), row.record) << row.kind;
    }
    EXPECT_TRUE(PF_WriteLog("SND", {Value(Values{})}));
    EXPECT_TRUE(readText(com().LogSndFile()).ends_with(",\r\n\r\n")) << "an empty list is an empty record";
    EXPECT_FALSE(PF_WriteLog("ABC", {}));
    EXPECT_EQ(gErrMsg + gErrCode, "[ PF_WriteLog ] 指定されたタイプは有りません。ECOM4001");
    EXPECT_FALSE(PF_WriteLog("SND", {"no list"}));
    EXPECT_EQ(gErrMsg + gErrCode, "[ PF_WriteLog ] 型が一致しません。13");
}

TEST_F(Logging, RotatesAboveTheLimitOnly) {
    const std::string file = com().LogRasFile();
    const std::string backup = com().LogRasFolder() + "rasbk.log";
    const std::string atLimit = std::string(102398, 'x') + "\r\n";
    writeFile(files.nativePath(file), atLimit);
    EXPECT_TRUE(PF_WriteLog("RAS", {"a", "b", "c"}));
    EXPECT_EQ(readBytes(file), atLimit + "a,b,c\r\n");
    EXPECT_FALSE(files.exists(backup));

    writeFile(files.nativePath(file), atLimit + "x");
    writeFile(files.nativePath(backup), "the backup before");
    EXPECT_TRUE(PF_WriteLog("RAS", {"d", "e", "f"}));
    EXPECT_EQ(readBytes(file), "d,e,f\r\n");
    EXPECT_EQ(readBytes(backup), atLimit + "x");
}

TEST_F(Logging, AFailedReportOfAPathDoesNotRecurse) {
    logFiles().err = [path = com().LogErrFile()] {
        logError("5", "the path's own failure");
        return path;
    };
    logError("1", "a");
    logError("2", "b");
    EXPECT_EQ(log(), record("1", "a") + record("2", "b"));
}

TEST_F(Logging, AnUnreadableSettingFailsASuccessfulBody) {
    settings.refuse("IMG", "LONG_W");
    for (const auto& [result, code] : {std::pair{true, "75"}, {false, "C1"}}) {
        const bool fine = trapped("", [result] {
            return withSettings([result] { return com().IniImgW() == "0" && (result || fail("its own", "C1")); });
        });
        EXPECT_FALSE(fine);
        EXPECT_EQ(gErrCode, code);
    }
}

TEST_F(Logging, EveryExceptionIsARunTimeFailure) {
    for (const auto& [number, body] : std::map<std::string, std::function<void()>>{
             {"3021", [] { throw RunTimeError(3021, "行がありません。"); }},
             {"9", [] { static_cast<void>(std::vector<int>().at(1)); }},
             {"7", [] { throw std::bad_alloc(); }},
             {"51", [] { throw std::runtime_error("library"); }},
         }) {
        EXPECT_FALSE(trapped("[ Here ] ", [&] {
            body();
            return true;
        }));
        EXPECT_EQ(gErrCode, number);
        EXPECT_TRUE(gErrMsg.starts_with("[ Here ] ") && gErrMsg.size() > 9) << gErrMsg;
        EXPECT_EQ(gErrMsg.find("library"), std::string::npos);
    }
}

TEST_F(Logging, WithoutTheMessageServiceAPlainBoxIsShown) {
    messages.refusal = FailureRecord{"no window", "W1"};
    handled("[ X ]", [] { return fail("text", "C1"); });
    messages.failure = Failure::Internal;
    handled("[ X ]", [] { return fail("text", "C2"); });
    ASSERT_EQ(windows.notices.size(), 2U);
    EXPECT_EQ(windows.notices[0].title + windows.notices[0].text, "C1text");
    EXPECT_EQ(windows.notices[1].title, "C2");
    EXPECT_EQ(log(), record("C1", "text") + record("C2", "text"));
    EXPECT_EQ(gErrMsg + gErrCode, "");
}

}  // namespace
}  // namespace orv
