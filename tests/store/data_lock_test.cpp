#include "store/company_lock.h"

#include "support/fixture.h"

namespace orv {
namespace {

class Lock : public SystemTest {
protected:
    Lock() {
        openStore();
        store.statements.clear();
    }
    ~Lock() override { closeStore(); }

    std::int16_t check(const std::string& userId) { return PF_DataLockCheck(userId, kLockType, kLockNumber, holder); }
    void lockFor(const std::string& userId, const std::string& type, const std::string& computer) {
        sql("insert into TBL_LOCK values ('" + userId + "', '" + type + "', '99999999', '" + computer + "', 'old')");
    }

    std::string holder = "left over";
};

TEST_F(Lock, AComputersNameMayHoldAnApostrophe) {
    facts.computerName = "O'DESK";
    EXPECT_TRUE(PF_DataLock("U", kLockType, kLockNumber));
    EXPECT_EQ(locks(), (std::vector<std::string>{"U O'DESK"}));
    EXPECT_EQ(check("U"), kLockedHere);
    EXPECT_TRUE(PF_DataUnlock("U", kLockType, kLockNumber));
    EXPECT_EQ(check("U"), kNotLocked);
    EXPECT_EQ(check("U'; delete from TBL_LOCK; --"), kLockFailed) << "only one statement runs";
}

TEST_F(Lock, ARefusedCommitIsUndoneAndNamesTheFailure) {
    store.ofRollback = {"取り消しの故障", "DB:78"};
    store.fail(Call::Commit);
    store.fail(Call::Rollback);
    EXPECT_FALSE(PF_DataLock("U", kLockType, kLockNumber));
    EXPECT_EQ(gErrMsg + gErrCode, "[ PF_DataLock ] ストアの故障DB:77");
    EXPECT_TRUE(PF_DataLock("U", kLockType, kLockNumber)) << gErrMsg;
}

TEST_F(Lock, WhoHoldsACompany) {
    struct Case {
        std::string type, computer;
        std::int16_t state;
        std::string holder;
    };
    for (const Case& c :
         {Case{"COS", "DESK01", kLockedHere, ""}, Case{"COS", "DESK02", kLockedElsewhere, "DESK02"},
          Case{"COS", " DESK02 ", kLockedElsewhere, "DESK02"}, Case{"COS", "DESK01 ", kLockedElsewhere, "DESK01"},
          Case{"COS", "desk01", kLockedElsewhere, "desk01"}, Case{"COX", "DESK02", kLockedElsewhere, "DESK02"},
          Case{"CO", "DESK01", kLockedHere, ""}, Case{"CX", "DESK02", kNotLocked, ""}}) {
        sql("delete from TBL_LOCK");
        lockFor("U", c.type, c.computer);
        EXPECT_EQ(check("U"), c.state) << c.type << c.computer;
        EXPECT_EQ(holder, c.holder) << c.type << c.computer;
    }
    EXPECT_EQ(check("another"), kNotLocked);
    sql("update TBL_LOCK set PROPERTY_TYPE_CODE = 'COS', PROPERTY_NO = '1'");
    EXPECT_EQ(check("U"), kNotLocked) << "of a property";
    EXPECT_EQ(gErrMsg, "");
}

TEST_F(Lock, TakingOverReplacesTheOwnRowAndLeavesThoseOfOthers) {
    lockFor("U", "COS", "DESK01");
    lockFor("U", "RH", "DESK01");
    sql("insert into TBL_LOCK values ('U', 'COS', '1', 'DESK01', 'of a property')");
    lockFor("U", "COS", "DESK02");
    EXPECT_TRUE(PF_DataLock("U", kLockType, kLockNumber));
    EXPECT_EQ(
        rows("select PROPERTY_TYPE_CODE, LOCAL_INFO, INSERT_DATE from TBL_LOCK where USER_ID = 'U' order by 1, 2, 3"),
        (std::vector<std::string>{"COS|DESK01|2026/05/04 09:08:07", "COS|DESK01|of a property", "COS|DESK02|old",
                                  "RH|DESK01|old"}));
    EXPECT_TRUE(PF_DataUnlock("U", kLockType, kLockNumber));
    EXPECT_TRUE(PF_DataUnlock("U", kLockType, kLockNumber)) << "a missing lock is not a failure";
    EXPECT_EQ(one("select count(*) from TBL_LOCK where USER_ID = 'U'"), "3");
}

TEST_F(Lock, WithoutAComputerNameNoStatementRuns) {
    facts.computerName = std::string(" \0\0", 3);
    EXPECT_EQ(check("U"), kLockFailed);
    EXPECT_EQ(gErrMsg, "[ PF_DataLockCheck ] ");
    EXPECT_EQ(gErrCode, "0");
    EXPECT_FALSE(PF_DataUnlock("U", kLockType, kLockNumber));
    EXPECT_EQ(gErrMsg, "[ PF_DataUnlock ] ");
    EXPECT_FALSE(PF_DataLock("U", kLockType, kLockNumber));
    EXPECT_EQ(gErrMsg, "[ PF_DataLock ] ");
    EXPECT_EQ(store.statements, std::vector<std::string>{});
    facts.computerName = std::string("DESK09\0\0\0", 9);
    EXPECT_TRUE(PF_DataLock("U", kLockType, kLockNumber));
    EXPECT_EQ(one("select LOCAL_INFO from TBL_LOCK where USER_ID = 'U'"), "DESK09") << "the buffer ends in NULs";
}

}  // namespace
}  // namespace orv
