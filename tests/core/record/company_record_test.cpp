#include "core/record/company_record.h"

#include <gtest/gtest.h>

#include "core/record/globals.h"

namespace orv {
namespace {

TEST(CompanyRecordTest, ClearingPutsEverythingBackButTheServicePack) {
    for (const FieldInfo& field : kFields) {
        if (field.text != nullptr) {
            tCustomerInfo.*field.text = "x";
        }
    }
    tCustomerInfo.SEND_FLAG = true;
    EXPECT_TRUE(PF_SetCompanyDataStructureInis());
    for (const FieldInfo& field : kFields) {
        if (field.text != nullptr) {
            const std::string expected = field.name == "SAME_CHECK" ? "1" : field.name == "CSD_VER" ? "x" : "";
            EXPECT_EQ(tCustomerInfo.*field.text, expected) << field.name;
        }
    }
    EXPECT_FALSE(tCustomerInfo.SEND_FLAG);
    theContext = {};
}

}  // namespace
}  // namespace orv
