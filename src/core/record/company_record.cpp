#include "core/record/company_record.h"

#include "core/record/globals.h"
#include "platform/utf8.h"

namespace orv {

bool isNew() { return tCustomerInfo.USER_ID == kNewCompany; }

std::string deriveAreaCode(std::string_view addressCode) { return firstCharacters(addressCode, kAreaLength); }

bool bas_Main_Companydata::PF_SetCompanyDataStructureInis() {
    for (const FieldInfo& field : kFields) {
        if (field.table != Table::None && field.text != nullptr) {
            tCustomerInfo.*field.text = field.cleared;
        }
    }
    tCustomerInfo.SEND_FLAG = false;
    return true;
}

}  // namespace orv
