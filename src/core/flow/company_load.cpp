#include "core/flow/company_load.h"

#include <algorithm>
#include <optional>

#include "config/settings.h"
#include "core/flow/environment_probe.h"
#include "core/flow/photo_files.h"
#include "core/record/globals.h"
#include "logging/messages.h"
#include "logging/setting_trap.h"
#include "logging/trap.h"
#include "platform/ascii.h"
#include "platform/machine/file_system.h"
#include "platform/services.h"
#include "platform/suite/missing_column.h"
#include "platform/utf8.h"
#include "store/company_lock.h"
#include "store/rows.h"
#include "store/statements.h"
#include "store/store_session.h"
#include "validation/text/conversions.h"
#include "validation/text/text_helpers.h"

namespace orv {
namespace {

using R = CompanyRecord;

/// The pair is blank after a refusal, which the operator has already seen.
bool lockForStart(const std::string& userId) {
    const CompanyLock lock = lockCompany(userId);
    gLockTakenOver = lock == CompanyLock::TakenOver;
    if (lock == CompanyLock::Refused) {
        clearPair();
    }
    return lock == CompanyLock::Taken || lock == CompanyLock::TakenOver;
}

/// Ticks the association of the edition. A flag string that is too short is extended.
void applyAssociationRule() {
    const std::optional<std::size_t> association = findEditionAssociation();
    if (!association) {
        return;
    }
    std::u32string flags = toCharacters(tCustomerInfo.DANTAI_FLG);
    flags.replace(std::min(*association, flags.size()), 1, U"1");
    tCustomerInfo.DANTAI_FLG = toUtf8(flags);
}

void fillWithZeros(const FieldInfo& field) {
    std::string& flags = tCustomerInfo.*field.text;
    if (field.zeros > 0 && flags.empty()) {
        flags.assign(field.zeros, '0');
    }
}

void beginNewCompany() {
    tCustomerInfo.USER_ID = kNewCompany;
    for (const FieldInfo& field : kFields) {
        if (field.zeros > 0) {
            (tCustomerInfo.*field.text).assign(field.zeros, '0');
        }
    }
    applyAssociationRule();
}

void completeAreaCode() {
    if (trimmed(tCustomerInfo.AREA_CODE).empty() && !trimmed(tCustomerInfo.ADDRESS_CODE).empty()) {
        tCustomerInfo.AREA_CODE = deriveAreaCode(tCustomerInfo.ADDRESS_CODE);
    }
}

void readText(const Recordset& row, const FieldInfo& field) {
    const bool isKey = field.text == &R::USER_ID;
    const Value value = row.Fields(isKey ? "A.USER_ID" : std::string(field.name));
    tCustomerInfo.*field.text = PF_NullToStr(value, std::string(field.cleared));
    fillWithZeros(field);
}

void readField(const Recordset& row, const FieldInfo& field) {
    if (field.source != Source::Stored) {
        return;
    }
    if (field.text == nullptr) {
        tCustomerInfo.SEND_FLAG = toBoolean(row.Fields(std::string(field.name)));
        return;
    }
    readText(row, field);
    if (field.text == &R::AREA_CODE) {
        completeAreaCode();
    } else if (field.text == &R::DANTAI_FLG) {
        applyAssociationRule();
    }
    for (const PhotoSlot& slot : kPhotoSlots) {
        if (field.text == slot.file) {
            makeWorkingCopy(slot);
        }
    }
}

/// Before the first field is read, so that nothing of an older store's row is used.
bool requireColumns(const Recordset& row) {
    const auto missing = std::ranges::find_if(kFields, [&](const FieldInfo& field) {
        return field.source == Source::Stored && !row.Has(std::string(field.name));
    });
    return missing == kFields.end() || failFrom(missingColumn(missing->name));
}

bool readCompany(const std::string& userId) {
    Rows rows(companyJoin(userId));
    if (!rows.ok()) {
        return failFrom(services().db->DbError());
    }
    if (rows->RecordCount() != 1) {
        return fail(userId + "がDBに存在しないか、\r\n複数存在します。", "DBERR:02");
    }
    if (!requireColumns(*rows)) {
        return false;
    }
    for (const FieldInfo& field : kFields) {
        readField(*rows, field);
    }
    return rows.close() || failFrom(services().db->DbError());
}

bool fillRecord(const std::string& userId) {
    services().fileSystem->workIn(com().TmpFolder());
    if (!isRowMissing(userId, kCountInfo)) {
        return readCompany(userId);
    }
    if (userId != kNewCompany) {
        return fail("DBデータ取得にしっぱいしました。", "ECOS5120");
    }
    beginNewCompany();
    return true;
}

}  // namespace

bool bas_Main_Companydata::PF_GetCompanyData(const std::string& userId) {
    StoreSession session;
    return trapped("[ PF_GetCompanyData ] ", [&] {
        if (!PF_SetCompanyDataStructureInis() || !session.open() || !lockForStart(userId)) {
            return false;
        }
        if (!PF_SetCompanyDataStructureChng(userId)) {
            releaseAfterFailedStart(userId);
            return false;
        }
        return true;
    });
}

void bas_Main_Companydata::releaseAfterFailedStart(const std::string& userId) {
    giveUpCompany(userId);
    if (gLockTakenOver) {
        return;
    }
    const PairKeeper firstFailure;
    StoreSession session;
    static_cast<void>(session.openFresh() && PF_DataUnlock(userId, kLockType, kLockNumber));
}

bool bas_Main_Companydata::PF_SetCompanyDataStructureChng(const std::string& userId) {
    return trapped("[ PF_SetCompanyDataStructureChng ] ", [&] {
        if (!withSettings([&] { return fillRecord(userId); })) {
            return false;
        }
        probeEnvironment();
        return true;
    });
}

}  // namespace orv
