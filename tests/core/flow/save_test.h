#pragma once

#include "support/fixture.h"

namespace orv {

/// Checks the results of a save from page 0.
class SaveTest : public SystemTest {
protected:
    frm_CompInp0& form() { return page<frm_CompInp0>(); }
    void edit(const std::string& name) { form().txt_Company_Name.setText(name); }
    /// Returns the company's two tables and its send flag.
    std::string stored() { return info("COMPANY_NAME || PWD_CHG_FLG") + add("SEND_FLAG"); }
    void expectAtRest() {
        EXPECT_TRUE(screen().enabled());
        EXPECT_EQ(forms.pointer(), kPointerDefault);
        EXPECT_FALSE(gSaving);
        EXPECT_EQ(store.open, 0);
        EXPECT_EQ(forms.forms().size(), 1u) << "the upload's form has gone again";
    }
};

}  // namespace orv
