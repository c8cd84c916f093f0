#include "core/flow/start.h"

#include "support/fixture.h"

namespace orv {
namespace {

constexpr const char* kMenu = "C:\\ORV\\BIN\\KELT_MENU.EXE COS";

using Start = SystemTest;

TEST_F(Start, FlagsOfAnArgument) {
    struct Case {
        std::string tail;
        bool multi, master;
    };
    for (const Case& c : {Case{"000004601,0,1", false, false}, Case{"000004601,1,0", true, true},
                          Case{"000004601,2,0.0", true, true}, Case{"000004601,00,-1", false, false},
                          Case{"000004601, 1 ,000,rest,x", true, true}, Case{"000004601,0.5,1E2", true, false}}) {
        start(c.tail);
        EXPECT_EQ(gUserId, kCompany);
        EXPECT_EQ(gMultiCompany, c.multi) << c.tail;
        EXPECT_EQ(gAddressByMaster, c.master) << c.tail;
        EXPECT_EQ(screen().name(), "frm_CompInp0") << c.tail;
        EXPECT_EQ(screen().cbo_User_Id.visible(), c.multi);
        EXPECT_EQ(screen().lbl_UserId.visible(), !c.multi);
        EXPECT_EQ(programs.commandLines, Texts{});
        forms.unload(screen(), UnloadMode::Code);
    }
    EXPECT_EQ(shownIds(), Texts{});
}

TEST_F(Start, AMalformedArgumentIsReportedAndTheCallerIsStarted) {
    struct Case {
        std::string tail, userId, text, code;
    };
    const std::string bounds = "[ COS main ]インデックスが有効範囲にありません。";
    const std::string type = "[ COS main ]型が一致しません。";
    for (const Case& c :
         {Case{"000004601", "000004601", bounds, "9"}, Case{"000004601,1", "000004601", bounds, "9"},
          Case{"000004601,,0", "000004601", type, "13"}, Case{"000004601,x,0", "000004601", type, "13"},
          Case{"000004601,1,１", "000004601", type, "13"}, Case{"000004601,1,0x1", "000004601", type, "13"},
          Case{"\"000004601,1,0\"", "\"000004601", type, "13"}, Case{",,", "", type, "13"},
          Case{std::string(100000, 'a'), std::string(100000, 'a'), bounds, "9"}}) {
        programs.commandLines.clear();
        start(c.tail);
        expectReported(c.code, c.text);
        EXPECT_EQ(gUserId, c.userId) << "it was set before the failure";
        EXPECT_EQ(programs.commandLines, Texts{kMenu});
        EXPECT_TRUE(forms.forms().empty());
    }
    EXPECT_EQ(store.statements, Texts{});
}

TEST_F(Start, AFailedOneReleasesOnlyTheLockThatItHasInserted) {
    for (const std::string broken : {"", "open", "show"}) {
        for (const bool held : {false, true}) {
            const std::string company = broken.empty() ? "000004605" : kCompany;
            sql("delete from TBL_LOCK where LOCAL_INFO = 'DESK01'");
            if (held) {
                sql("insert into TBL_LOCK values ('" + company + "', 'COS', '99999999', 'DESK01', 'second run')");
            }
            windows.broken = broken;
            start(company + ",1,0");
            EXPECT_EQ(shownIds(), Texts{"COSERR01"}) << broken;
            EXPECT_EQ(locks(), held ? Texts{company + " DESK01"} : Texts{}) << broken;
            EXPECT_TRUE(forms.forms().empty());
            messages.shown.clear();
        }
    }
    EXPECT_EQ(programs.commandLines, Texts(6, kMenu));
}

TEST_F(Start, ACallerThatCannotBeStartedIsLogged) {
    programs.failure = Failure::FileNotFound;
    start("000004606,1,0");
    expectShown("COS20003", {"000004606"});
    EXPECT_EQ(log(), record("53", "ファイルが見つかりません。"));
}

}  // namespace
}  // namespace orv
