#include "store/company_lock.h"

#include "logging/messages.h"
#include "platform/machine/machine_facts.h"
#include "platform/machine/running_programs.h"
#include "platform/services.h"
#include "store/data_lock.h"

namespace orv {
namespace {

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
