#include "store/company_lock.h"

#include <functional>
#include <optional>
#include <string_view>

#include "logging/messages.h"
#include "logging/trap.h"
#include "platform/ascii.h"
#include "platform/machine/clock.h"
#include "platform/machine/machine_facts.h"
#include "platform/machine/running_programs.h"
#include "platform/services.h"
#include "platform/suite/sql_text.h"
#include "store/rows.h"
#include "store/store_session.h"

namespace orv {
namespace {

/// Returns the name under which this computer holds locks, or "" if it is not available.
std::string PF_GetLocalInfo() {
    std::string name = services().facts->GetComputerName();
    std::erase(name, '\0');
    return std::string(trimmed(name));
}

/// Empty if there was no failure.
using LockFailure = std::optional<FailureRecord>;

/// Runs the body of the three routines and reports a failure under the routine's label, with the store's text if any.
/// Does not run without a computer name, because a lock without an owner could never be released.
bool withLocalName(std::string_view label, const std::function<LockFailure(const std::string& localName)>& body) {
    LockFailure failure = FailureRecord();
    const auto raised = caught([&] {
        const std::string localName = PF_GetLocalInfo();
        if (!localName.empty()) {
            failure = body(localName);
        }
    });
    if (raised) {
        failure = services().db->DbError();
    }
    if (failure && failure->text.empty()) {
        failure =
            raised ? FailureRecord{raised->description(), std::to_string(raised->number())} : FailureRecord{"", "0"};
    }
    return !failure || fail(std::string(label) + failure->text, failure->code);
}

std::string firstTwo(const std::string& typeCode) { return typeCode.substr(0, 2); }

std::string selectHolder(const std::string& userId, const std::string& typeCode, const std::string& propertyNo) {
    return "select LOCAL_INFO   from TBL_LOCK  where USER_ID = " + rawSqlText(userId) +
           "   and Left(PROPERTY_TYPE_CODE, 2) = " + rawSqlText(firstTwo(typeCode)) +
           "   and PROPERTY_NO = " + rawSqlText(propertyNo);
}

std::string deleteLock(const std::string& userId, const std::string& typeCode, const std::string& propertyNo,
                       const std::string& localName) {
    return "delete from TBL_LOCK       where USER_ID = " + rawSqlText(userId) +
           "         and left(PROPERTY_TYPE_CODE,2) = " + rawSqlText(firstTwo(typeCode)) +
           "         and PROPERTY_NO = " + rawSqlText(propertyNo) + "         and LOCAL_INFO = " + sqlText(localName);
}

std::string insertLock(const std::string& userId, const std::string& typeCode, const std::string& propertyNo,
                       const std::string& localName) {
    std::string sql =
        "insert into TBL_LOCK ("
        "            USER_ID,"
        "            PROPERTY_TYPE_CODE,"
        "            PROPERTY_NO,"
        "            LOCAL_INFO, "
        "            INSERT_DATE "
        "   ) values (";
    for (const std::string& value : {userId, typeCode, propertyNo}) {
        sql += "            " + rawSqlText(value) + ",";
    }
    sql += "            " + sqlText(localName) + ", ";
    sql += "            " + rawSqlText(formatMoment(services().clock->now(), "yyyy/mm/dd hh:nn:ss")) + " ";
    return sql + "            )";
}

/// Contains the computer's name as its lock does.
std::string claimName(const std::string& userId) { return services().facts->GetComputerName() + "/" + userId; }

bool claimCompany(const std::string& userId) {
    return services().running == nullptr || services().running->claim(claimName(userId));
}

bool unlock(const std::string& userId) { return PF_DataUnlock(userId, kLockType, kLockNumber); }

/// Releases the locks of a crashed run and of the company held so far before it takes the new one.
bool exchangeLocks(const std::string& userId, const std::string& held, bool isLeft) {
    return (!isLeft || unlock(userId)) && (held.empty() || unlock(held)) && PF_DataLock(userId, kLockType, kLockNumber);
}

CompanyLock acquireLock(const std::string& userId, const std::string& held, bool isLeft) {
    if (!claimCompany(userId)) {
        return CompanyLock::Refused;
    }
    const bool taken = exchangeLocks(userId, held, isLeft);
    if (userId != held) {
        giveUpCompany(taken ? held : userId);
    }
    return !taken ? CompanyLock::Failed : isLeft ? CompanyLock::TakenOver : CompanyLock::Taken;
}

}  // namespace

std::int16_t bas_DataLock::PF_DataLockCheck(const std::string& userId, const std::string& typeCode,
                                            const std::string& propertyNo, std::string& holder) {
    holder.clear();
    std::int16_t state = kLockFailed;
    const bool known = withLocalName("[ PF_DataLockCheck ] ", [&](const std::string& localName) {
        const Rows rows(selectHolder(userId, typeCode, propertyNo));
        if (!rows.ok()) {
            return LockFailure(services().db->DbError());
        }
        if (rows->Eof()) {
            state = kNotLocked;
            return LockFailure();
        }
        const std::string found = toText(rows->Fields("LOCAL_INFO"));
        state = found == localName ? kLockedHere : kLockedElsewhere;
        if (state == kLockedElsewhere) {
            holder = trimmed(found);
        }
        return LockFailure();
    });
    return known ? state : kLockFailed;
}

bool bas_DataLock::PF_DataUnlock(const std::string& userId, const std::string& typeCode,
                                 const std::string& propertyNo) {
    return withLocalName("[ PF_DataUnlock ] ", [&](const std::string& localName) {
        return changeOnce(deleteLock(userId, typeCode, propertyNo, localName));
    });
}

/// Removes the old row first. A failure there is reported under this routine's label, too.
bool bas_DataLock::PF_DataLock(const std::string& userId, const std::string& typeCode, const std::string& propertyNo) {
    return withLocalName("[ PF_DataLock ] ", [&](const std::string& localName) {
        const LockFailure failure = changeOnce(deleteLock(userId, typeCode, propertyNo, localName));
        return failure ? failure : changeOnce(insertLock(userId, typeCode, propertyNo, localName));
    });
}

CompanyLock lockCompany(const std::string& userId, const std::string& held) {
    std::string holder;
    switch (PF_DataLockCheck(userId, kLockType, kLockNumber, holder)) {
        case kLockedElsewhere:
            showMessage("COS20003", {userId});
            return CompanyLock::Refused;
        case kLockedHere:
            return acquireLock(userId, held, true);
        case kNotLocked:
            return acquireLock(userId, held, false);
        default:
            return CompanyLock::Failed;
    }
}

void giveUpCompany(const std::string& userId) {
    if (services().running != nullptr && !userId.empty()) {
        services().running->leave(claimName(userId));
    }
}

}  // namespace orv
