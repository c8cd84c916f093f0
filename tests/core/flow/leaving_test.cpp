#include "core/flow/leaving.h"

#include "support/fixture.h"

namespace orv {
namespace {

class Leaving : public SystemTest, public testing::WithParamInterface<std::tuple<int, bool>> {
protected:
    int page() const { return std::get<0>(GetParam()); }
    bool byButton() const { return std::get<1>(GetParam()); }
    void out() { byButton() ? leave() : pressCloseBox(); }
    std::string tag() const {
        return byButton() ? "[ CompInp" + std::to_string(page()) + " btm_Back_Menu_Click ]" : "[ Form_QueryUnload ]";
    }
    void expectStillThere(const Texts& locksHeld) {
        EXPECT_EQ(forms.forms().size(), 1u);
        EXPECT_TRUE(screen().visible());
        EXPECT_EQ(screen().number, page());
        EXPECT_EQ(locks(), locksHeld);
        EXPECT_EQ(programs.commandLines, Texts{});
        EXPECT_EQ(store.open, 0);
    }
};

TEST_P(Leaving, AMessageThatCannotBeShownKeepsThePage) {
    startOn(page());
    messages.refusal = FailureRecord{"窓がない", "MSG:1"};
    out();
    expectStillThere({"000004601 DESK01"});
}

TEST_P(Leaving, AFailureOfTheStoreKeepsThePageAndCanBeTriedAgain) {
    startOn(page());
    for (const Call call : {Call::Open, Call::Begin, Call::Execute, Call::Commit}) {
        gSaved = true;
        store.fail(call);
        out();
        expectReported("DB:77", std::string(call == Call::Open ? "" : "[ PF_DataUnlock ] ") + "ストアの故障");
        expectStillThere({"000004601 DESK01"});
        store.repair();
    }
    out();
    EXPECT_TRUE(forms.forms().empty());
    EXPECT_EQ(std::ranges::count(windows.calls, "close frm_CompInp" + std::to_string(page())), 1);
}

TEST_P(Leaving, ACallerThatCannotBeStartedIsReported) {
    startOn(page());
    gSaved = true;
    programs.failure = Failure::FileNotFound;
    out();
    expectReported("53", tag() + "ファイルが見つかりません。");
    expectStillThere({});
}

INSTANTIATE_TEST_SUITE_P(Pages, Leaving, testing::Combine(testing::Range(0, 5), testing::Bool()), [](const auto& one) {
    return "Page" + std::to_string(std::get<0>(one.param)) + (std::get<1>(one.param) ? "Button" : "CloseBox");
});

}  // namespace
}  // namespace orv
