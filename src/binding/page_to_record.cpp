#include "binding/page_to_record.h"

#include "binding/binding_row.h"
#include "core/record/globals.h"
#include "logging/trap.h"
#include "platform/services.h"
#include "platform/suite/string_check_service.h"
#include "validation/text/text_helpers.h"

namespace orv {
namespace {

std::string normalised(const std::string& text) {
    std::string cleaned;
    services().stringCheck->Normalize(text, cleaned);
    return cleaned;
}

std::string readField(const BindingRow& row) {
    const Value content = row.control().content();
    switch (row.readAs) {
        case ReadAs::NullToStr:
            return PF_NullToStr(content, "");
        case ReadAs::AsShown:
            return toText(content);
        case ReadAs::Normalised:
            break;
    }
    return normalised(toText(content));
}

bool readPage(const PageBinding& binding) {
    for (const Step& place : binding.toRecord()) {
        if (place.named != nullptr) {
            if (!place.named()) {
                return false;
            }
        } else {
            const TextField field = place.fields[0];
            tCustomerInfo.*field = readField(findRow(binding.rows(), field));
        }
    }
    return true;
}

bool readPage(int pageNumber) {
    return trapped("[ PF_SetData_tCustomerInfo" + std::to_string(pageNumber) + " ] ",
                   [&] { return readPage(*pageEntry(pageNumber).binding); });
}

}  // namespace

bool PF_SetData_tCustomerInfo0() { return readPage(0); }
bool PF_SetData_tCustomerInfo1() { return readPage(1); }
bool PF_SetData_tCustomerInfo2() { return readPage(2); }
bool PF_SetData_tCustomerInfo3() { return readPage(3); }
bool PF_SetData_tCustomerInfo4() { return readPage(4); }

bool PF_SetData_tCustomerInfo(const std::string& formName) {
    return trapped("[ PF_SetData_tCustomerInfo ] ", [&] {
        for (const PageEntry& page : pageEntries()) {
            if (formName == pageFormName(page.number)) {
                return !page.form().ready || page.read();
            }
        }
        return true;
    });
}

}  // namespace orv
