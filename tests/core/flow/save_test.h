#pragma once

#include <string>

#include "support/fixture.h"

namespace orv {

/// What a save leaves behind, seen from page 0.
class SaveTest : public SystemTest {
protected:
    static constexpr const char* kWorking1 = "C:\\ORV\\TMP\\TmpImg_1";
    static constexpr const char* kWorking2 = "C:\\ORV\\TMP\\TmpImg_2";
    static constexpr const char* kStored1 = "000004601COS00000000_01.jpg";
    static constexpr const char* kStored2 = "000004601COS00000000_02.jpg";

    frm_CompInp0& form() { return page<frm_CompInp0>(); }
    void edit(const std::string& name) { form().txt_Company_Name.setText(name); }
    /// Both tables of the company and the state of its sending.
    std::string stored() { return info("COMPANY_NAME || PWD_CHG_FLG") + add("SEND_FLAG"); }
    void expectPhotosAtHand() {
        EXPECT_EQ(tCustomerInfo.PHOTO_FILE1, kWorking1);
        EXPECT_EQ(tCustomerInfo.PHOTO_FILE2, kWorking2);
        EXPECT_TRUE(files.exists(kWorking1));
        EXPECT_TRUE(files.exists(kWorking2));
    }
    void expectPhotosInTheRow() {
        EXPECT_EQ(add("PHOTO_FILE1"), kStored1);
        EXPECT_EQ(add("PHOTO_FILE2"), kStored2);
        EXPECT_TRUE(files.exists(std::string("C:\\ORV\\IMG\\1\\") + kStored1));
        EXPECT_TRUE(files.exists(std::string("C:\\ORV\\IMG\\2\\") + kStored2));
    }
    void expectAtRest() {
        EXPECT_TRUE(screen().enabled());
        EXPECT_EQ(forms.pointer(), kPointerDefault);
        EXPECT_FALSE(gSaving);
        EXPECT_EQ(store.open, 0);
        EXPECT_EQ(forms.forms().size(), 1u) << "the upload's form has gone again";
    }
};

}  // namespace orv
