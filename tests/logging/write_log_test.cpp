#include "logging/write_log.h"

#include "support/settings_test.h"

namespace orv {
namespace {

constexpr const char* kRas = "C:\\LOG\\ras.log";
constexpr const char* kRasBackup = "C:\\LOG\\rasbk.log";

class WriteLog : public SettingsTest {
protected:
    WriteLog() {
        logFiles().ras = [] { return std::string(kRas); };
        logFiles().snd = [] { return std::string("C:\\LOG\\snd.log"); };
        logFiles().rcv = [] { return std::string("C:\\LOG\\rcv.log"); };
        logFiles().dwl = [] { return std::string("C:\\LOG\\dwl.log"); };
    }
};

TEST_F(WriteLog, WritesTheRecordOfEachKindIntoItsFile) {
    struct Kind {
        const char* kind;
        const char* file;
        Values args;
        const char* record;
    };
    const DateTime moment{.year = 2026, .month = 1, .day = 2, .hour = 3, .minute = 4, .second = 5};
    const Values rows{Value("a"), Value("b")};
    const std::vector<Kind> kinds{
        {"ERR", kLog, {moment, 13, "型が一致しません。"}, "2026/01/02 03:04:05,13,型が一致しません。\r\n"},
        {"RAS", kRas, {"x", 1.5, true}, "x,1.5,True\r\n"},
        {"DWL", "C:\\LOG\\dwl.log", {"a,b", "", "c", "ignored"}, "a,b,,c\r\n"},
        {"SND", "C:\\LOG\\snd.log", {Values{"a", 2, "ｶﾅ"}}, "a,2,ｶﾅ,\r\n"},
        {"RCV",
         "C:\\LOG\\rcv.log",
         {rows, rows, rows, rows, rows, rows},
         "2026/05/04 09:08:07,a,a,a,a,a,a,\r\n2026/05/04 09:08:07,b,b,b,b,b,b,\r\n\r\n"},
    };
    for (const Kind& kind : kinds) {
        EXPECT_TRUE(PF_WriteLog(kind.kind, kind.args)) << kind.kind << gErrMsg;
        EXPECT_EQ(codePage.decode(files.get(kind.file)), kind.record) << kind.kind;
    }
    EXPECT_EQ(files.count(), kinds.size());
    EXPECT_TRUE(PF_WriteLog("SND", {Value(Values{})}));
    EXPECT_TRUE(files.get("C:\\LOG\\snd.log").ends_with(",\r\n\r\n")) << "an empty list is an empty record";
}

TEST_F(WriteLog, RotatesAboveTheLimitOnly) {
    const std::string atLimit(102400, 'x');
    files.put(kRas, atLimit);
    EXPECT_TRUE(PF_WriteLog("RAS", {"a", "b", "c"}));
    EXPECT_EQ(files.get(kRas), atLimit + "a,b,c\r\n");
    EXPECT_FALSE(files.exists(kRasBackup));

    files.put(kRas, atLimit + "y");
    files.put(kRasBackup, "the backup before");
    EXPECT_TRUE(PF_WriteLog("RAS", {"d", "e", "f"}));
    EXPECT_EQ(files.get(kRas), "d,e,f\r\n");
    EXPECT_EQ(files.get(kRasBackup), atLimit + "y");
}

TEST_F(WriteLog, APathThatFailsToBeToldDoesNotRunInARound) {
    logFiles().err = [] {
        logError("5", "the path's own failure");
        return std::string(kLog);
    };
    logError("1", "a");
    EXPECT_EQ(log(), record("1", "a"));
    logError("2", "b");
    EXPECT_EQ(log(), record("1", "a") + record("2", "b"));
}

}  // namespace
}  // namespace orv
