#include "pages/handlers/frame_handlers.h"

#include "platform/machine/running_programs.h"
#include "support/fixture.h"

namespace orv {
namespace {

constexpr const char* kOther = "000004602";

class Switch : public SystemTest {
protected:
    frm_CompInp0& form() { return page<frm_CompInp0>(); }
};

TEST_F(Switch, MovesLockRecordAndPage) {
    startOn(0);
    gSaved = true;
    EXPECT_FALSE(form().hasUnsavedChanges());
    form().txt_Company_Name.setText("捨てられる");
    turnTo(1);
    EXPECT_TRUE(screen().hasUnsavedChanges()) << "also of a page that has been left";
    turnTo(0);
    choose(kOther);
    EXPECT_FALSE(form().hasUnsavedChanges());
    expectShown("COS20001", {});
    EXPECT_EQ(locks(), Texts{"000004602 DESK01"});
    EXPECT_EQ(form().txt_Company_Name.text(), "㈲さくら見本管理");
    EXPECT_EQ(form().txt_Pc_Office_Name.text(), "管理センター");
    EXPECT_EQ(form().lbl_TitleCompany.caption(), "㈲さくら見本管理　");
    EXPECT_EQ(form().caption(), "000004602 ㈲さくら見本管理 - 会社情報");
    EXPECT_FALSE(gSaved);
    EXPECT_EQ(info("COMPANY_NAME"), "あおぞら架空不動産㈱");
    EXPECT_EQ(log(), "");
    EXPECT_EQ(store.open, 0);
    form().txt_Tanto_Name.setText("変更　太郎");
    EXPECT_TRUE(form().hasUnsavedChanges());
    save();
    EXPECT_FALSE(form().hasUnsavedChanges());
    EXPECT_EQ(info("COMPANY_NAME", kOther), "㈲さくら見本管理");
}

struct SecondRun : RunningPrograms {
    bool claim(const std::string& name) override { return !name.ends_with(kOther) && ours.insert(name).second; }
    void leave(const std::string& name) override { ours.erase(name); }

    std::set<std::string> ours;
};

TEST_F(Switch, ACompanyOfASecondRunOnThisComputerIsLeftToIt) {
    SecondRun second;
    services().running = &second;
    sql("insert into TBL_LOCK values ('000004602', 'COS', '99999999', 'DESK01', '20261125 09:00:00')");
    startOn(0);
    choose(kOther);
    EXPECT_EQ(shownIds(), Texts{"COS20001"}) << "its window is answer enough";
    EXPECT_EQ(screen().cbo_User_Id.text(), kCompany);
    EXPECT_EQ(locks(), (Texts{"000004601 DESK01", "000004602 DESK01"}));
    choose("000004603");
    EXPECT_EQ(second.ours, std::set<std::string>{"DESK01/000004603"});
    leave();
    EXPECT_TRUE(second.ours.empty());
    start("000004602,1,0");
    EXPECT_TRUE(forms.forms().empty());
    EXPECT_EQ(locks(), Texts{"000004602 DESK01"});
    services().running = nullptr;
}

TEST_F(Switch, TheOperatorMayStay) {
    for (const char* wish : {kOther, kMarker}) {
        startOn(0);
        gSaved = true;
        answer(1);
        choose(wish);
        EXPECT_EQ(shownIds(), Texts{wish == kOther ? "COS20001" : "COS20002"});
        EXPECT_EQ(screen().cbo_User_Id.text(), kCompany);
        EXPECT_EQ(tCustomerInfo.USER_ID, kCompany);
        EXPECT_EQ(tCustomerInfo.COMPANY_NAME, "あおぞら架空不動産㈱");
        EXPECT_EQ(store.open, 0);
        EXPECT_TRUE(gSaved);
        EXPECT_EQ(locks(), Texts{"000004601 DESK01"});
        leave();
    }
}

/// A failure during the switch, the resulting list, and this computer's locks afterwards.
struct Step {
    const char* name;
    Call call;
    const char* part;
    int nth;
    const char* text;
    bool back, holdsOld, holdsNew;
    /// A run that died has left a lock on the new company.
    bool leftOver = false;
    /// The store throws, which no store should.
    bool raised = false;
    /// The failure occurs while the page is filled, not in the store.
    bool fill = false;
};

void breaks() { throw RunTimeError(Failure::OutOfMemory); }

constexpr auto kSteps = std::to_array<Step>(
    {{"open", Call::Open, "", 1, "ストアの故障", true, true, false},
     {"open, raised", Call::Open, "", 1, "cbo_User_Id_Click ]メモリが足りません。", true, true, false, false, true},
     {"look", Call::Select, "select LOCAL_INFO", 1, "[ PF_DataLockCheck ] ストアの故障", true, true, false},
     {"left over", Call::Execute, "delete from TBL_LOCK", 1, "[ PF_DataUnlock ] ストアの故障", true, true, true, true},
     {"release", Call::Execute, "delete from TBL_LOCK", 1, "[ PF_DataUnlock ] ストアの故障", true, true, false},
     {"clear", Call::Execute, "delete from TBL_LOCK", 2, "[ PF_DataLock ] ストアの故障", true, false, false},
     {"take", Call::Execute, "insert into TBL_LOCK", 1, "[ PF_DataLock ] ストアの故障", true, false, false},
     {"load", Call::Select, "LEFT JOIN", 1, "ストアの故障", false, false, true},
     {"fill", Call::Select, "", 0, " ] メモリが足りません。", false, false, true, false, false, true}});

/// Switches from each page, by the operator and by a save that gives a new company its number.
class SwitchFrom : public Switch, public testing::WithParamInterface<std::tuple<int, bool>> {
protected:
    int number() const { return std::get<0>(GetParam()); }
    bool bySave() const { return std::get<1>(GetParam()); }
    std::string oldId() const { return bySave() ? kMarker : kCompany; }
    std::string newId() const { return bySave() ? "000004700" : kOther; }
    void startThere() {
        if (bySave()) {
            renumber(kOther, kMarker);
            server.id = newId();
        }
        startOn(number(), oldId() + ",1,0");
        gSaved = true;
    }
    void expectEnd(bool back) {
        EXPECT_EQ(screen().number, number());
        EXPECT_EQ(screen().cbo_User_Id.text(), back ? oldId() : newId());
        EXPECT_EQ(tCustomerInfo.USER_ID, back ? oldId() : newId());
        EXPECT_FALSE(gSaved);
        EXPECT_FALSE(gSaving);
        EXPECT_TRUE(screen().enabled());
        EXPECT_EQ(store.open, 0);
    }
    Texts held(bool old, bool fresh) const {
        std::set<std::string> rows;
        for (const auto& [isHeld, id] : {std::pair{old, oldId()}, {fresh, newId()}}) {
            if (isHeld) rows.insert(id + " DESK01");
        }
        return {rows.begin(), rows.end()};
    }
};

TEST_P(SwitchFrom, AFailedStepChangesNothing) {
    for (const Step& step : kSteps) {
        SCOPED_TRACE(step.name);
        startThere();
        if (step.leftOver) {
            sql("insert into TBL_LOCK values ('" + newId() + "', 'COS', '99999999', 'DESK01', 'old')");
        }
        // A save has already opened the store before the switch.
        store.fail(step.call, step.part, step.nth + (step.call == Call::Open && bySave() ? 1 : 0));
        store.raised = step.raised ? std::optional(Failure::OutOfMemory) : std::nullopt;
        screen().lbl_UserId.observe(step.fill ? breaks : std::function<void()>());
        bySave() ? save() : choose(kOther);
        store.repair();
        EXPECT_EQ(shownIds(), bySave() ? (Texts{"COS63212", "COS05574", "COSERR01"}) : (Texts{"COS20001", "COSERR01"}));
        const std::string expected = toText(messages.shown.back().args.at(1));
        EXPECT_TRUE(expected.ends_with(step.text)) << expected;
        EXPECT_EQ(step.raised, expected.starts_with("[ CompInp" + std::to_string(number()) + " cbo_User_Id_Click ]"));
        EXPECT_TRUE(log().ends_with(record(toText(messages.shown.back().args.at(0)), expected)));
        expectEnd(step.back);
        EXPECT_EQ(locks(), held(step.holdsOld, step.holdsNew));
        if (!step.back) {
            screen().lbl_UserId.observe({});
            answer(1);
            choose(newId());
            EXPECT_EQ(shownIds().back(), "COS20001") << "choosing it again asks";
            EXPECT_FALSE(screen().ready);
            choose(newId());
            EXPECT_TRUE(screen().ready) << "and is another try";
            EXPECT_EQ(tCustomerInfo.MANAGEMENT_TYPE_FLG.size(), 64U);
        }
        leave();
        EXPECT_EQ(locks(), held(false, step.leftOver)) << "the company in force is released, however little was read";
        sql("delete from TBL_LOCK where LOCAL_INFO = 'DESK01'");
        messages.shown.clear();
        theContext = {};
        renumber("000004700", kOther);
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, SwitchFrom, testing::Combine(testing::Range(0, 5), testing::Bool()),
                         [](const auto& at) {
                             return "Page" + std::to_string(std::get<0>(at.param)) +
                                    (std::get<1>(at.param) ? "BySave" : "ByHand");
                         });

/// A failed load, on each page.
class BrokenSwitch : public Switch, public testing::WithParamInterface<int> {};

TEST_P(BrokenSwitch, ChangesNothingInTheStoreForAnyButtonAfterwards) {
    startOn(GetParam());
    const Texts before = everything();
    choose("000004605");
    EXPECT_EQ(shownIds(), (Texts{"COS20001", "COSERR01"}));
    const Values expected{"94", "[ PF_SetCompanyDataStructureChng ] 値のない項目を値として使いました。"};
    EXPECT_EQ(messages.shown.back().args, expected);
    EXPECT_EQ(screen().cbo_User_Id.text(), "000004605") << "the list is not put back";
    EXPECT_EQ(locks(), Texts{"000004605 DESK01"});

    for (int page = 0; page < kPageCount; ++page) {
        messages.shown.clear();
        save();
        expectShown("COSERR01", expected);
        turnTo(page);
        messages.shown.clear();
        save();
        expectShown("COSERR01", expected);
    }
    EXPECT_EQ(everything(), before);
    EXPECT_TRUE(server.sent.empty());

    choose(kCompany);
    messages.shown.clear();
    EXPECT_EQ(locks(), Texts{"000004601 DESK01"});
    save();
    EXPECT_EQ(shownIds(), Texts{"COS05574"}) << "a switch that works cleans up";
}

INSTANTIATE_TEST_SUITE_P(Pages, BrokenSwitch, testing::Range(0, 5),
                         [](const auto& at) { return "Page" + std::to_string(at.param); });

TEST_F(Switch, APageWhoseListsFailedMakesUpForThemBeforeItIsFilled) {
    start();
    store.fail(Call::Select, "TYPE_CODE = '002'", 1, true);
    turnTo(1);
    EXPECT_EQ(shownIds(), Texts{"COSERR01"});
    choose("000004604");
    EXPECT_FALSE(screen().ready);
    turnTo(0);
    EXPECT_EQ(tCustomerInfo.LICENSE_NO, "国土交通大臣") << "an empty list changes nothing in the record";
    turnTo(1);
    store.repair();
    choose(kCompany);
    EXPECT_TRUE(screen().ready);
    EXPECT_EQ(page<frm_CompInp1>().cbo_License_No.text(), "東京都知事");
    EXPECT_EQ(screen().cbo_User_Id.text(), kCompany);
    turnTo(0);
    EXPECT_EQ(tCustomerInfo.LICENSE_NO, "東京都知事");
}

}  // namespace
}  // namespace orv
