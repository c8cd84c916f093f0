#include "core/record/company_record.h"

#include "core/record/globals.h"

namespace orv {

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
