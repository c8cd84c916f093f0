#include "pages/handlers/page_handlers.h"

#include <algorithm>
#include <array>

#include "config/settings.h"
#include "core/record/globals.h"
#include "logging/handled.h"
#include "logging/trap.h"
#include "pages/forms/control_helpers.h"
#include "pages/forms/form_helpers.h"
#include "pages/forms/page_set.h"
#include "pages/handlers/frame_handlers.h"
#include "pages/handlers/sibling_search.h"
#include "platform/ascii.h"
#include "platform/forms/form_host.h"
#include "platform/scope.h"
#include "platform/services.h"
#include "platform/suite/sql_text.h"
#include "store/rows.h"
#include "store/store_session.h"

namespace orv {
namespace {

constexpr std::size_t kPostCodeDigits = 7;
constexpr std::size_t kPostCodeFront = 3;

/// A field of the site and its colour when enabled.
struct SiteField {
    TextInput frm_CompInp0::*input;
    Colour colour;
};

// The post code and the address are enabled only if addresses are typed.
constexpr std::array<TextInput frm_CompInp0::*, 2> kSearchedFields{&frm_CompInp0::txt_Pc_Post_Code,
                                                                   &frm_CompInp0::txt_Pc_Address};

constexpr std::array<SiteField, 9> kTypedFields{{
    {&frm_CompInp0::txt_Pc_Address_number, kOptionalField},
    {&frm_CompInp0::txt_Pc_Address_Gou, kOptionalField},
    {&frm_CompInp0::txt_Pc_Office_Name, kOptionalField},
    {&frm_CompInp0::txt_Pc_Tanto_Name, kRequiredField},
    {&frm_CompInp0::txt_Pc_Tel_No1, kRequiredField},
    {&frm_CompInp0::txt_Pc_Tel_No2, kOptionalField},
    {&frm_CompInp0::txt_Pc_Fax_No, kOptionalField},
    {&frm_CompInp0::txt_Pc_Mail_Address, kRequiredField},
    {&frm_CompInp0::txt_Pc_Address_Code, kOptionalField},
}};

void closeSite(frm_CompInp0& form) {
    PF_EnableControl(form.txt_Pc_Post_Code, false);
    form.btm_Pc_SearchOfficeAddress.setEnabled(false);
    PF_EnableControl(form.txt_Pc_Address, false);
    for (const SiteField& field : kTypedFields) {
        PF_EnableControl(form.*field.input, false);
    }
}

void openSite(frm_CompInp0& form) {
    for (const auto input : kSearchedFields) {
        PF_EnableControl(form.*input, !gAddressByMaster, kRequiredField);
    }
    form.btm_Pc_SearchOfficeAddress.setEnabled(true);
    for (const SiteField& field : kTypedFields) {
        PF_EnableControl(form.*field.input, true, field.colour);
    }
}

void txt_Address_Code_Change(frm_CompInp0& form) {
    handled("[ CompInp0 txt_Address_Code_Change ]",
            [&] { form.txt_Area_Code.setText(deriveAreaCode(form.txt_Address_Code.text())); });
}

void hyphenate(TextInput& postCode, const char* label) {
    handled(label, [&] {
        const std::string& text = postCode.text();
        const bool digits = std::ranges::all_of(text, isAsciiDigit);
        if (digits && text.size() == kPostCodeDigits) {
            postCode.setText(text.substr(0, kPostCodeFront) + "-" + text.substr(kPostCodeFront));
        }
    });
}

/// Disables the button while its dialog is open, and always unloads the dialog.
class PasswordDialog : NonCopyable {
public:
    explicit PasswordDialog(Button& opener) : opener_(opener) {
        opener_.setEnabled(false);
        wireChangePassword(dialog_);
    }
    ~PasswordDialog() {
        services().forms->unload(dialog_, UnloadMode::Code);
        opener_.setEnabled(true);
    }
    /// False if the dialog could not be opened, which has been reported.
    bool run() {
        services().forms->load(dialog_);
        if (dialog_.ready) {
            services().forms->showModal(dialog_);
        }
        return dialog_.ready;
    }

private:
    Button& opener_;
    frm_ChangePassword& dialog_ = page<frm_ChangePassword>();
};

bool showPublishNumber(frm_CompInp0& form) {
    form.lbl_Pubish_Number_Title.setVisible(false);
    form.lbl_Pubish_Number.setVisible(false);
    StoreSession session;
    if (!session.openFresh()) {
        return false;
    }
    const Rows rows("SELECT CONTRACT_PUBLISHNUMBER FROM TBL_CUSTOMER_INFO WHERE USER_ID = " +
                    rawSqlText(tCustomerInfo.USER_ID));
    if (!rows.ok()) {
        return failFrom(services().db->DbError());
    }
    const Value number = rows->Eof() ? Value() : rows->Fields("CONTRACT_PUBLISHNUMBER");
    if (!number.isNull()) {
        form.lbl_Pubish_Number.setCaption(toText(number));
        form.lbl_Pubish_Number_Title.setVisible(true);
        form.lbl_Pubish_Number.setVisible(true);
    }
    return true;
}

}  // namespace

void chk_EqualData_Click(frm_CompInp0& form) {
    handled("[ CompInp0 chk_EqualData_Click ]", [&] {
        if (form.chk_EqualData.value() == 1) {
            closeSite(form);
        } else {
            openSite(form);
        }
        showTick(form.chk_EqualData);
    });
}

void chk_EqualData_KeyDown(frm_CompInp0& form, int key) { enterMovesOn(form, form.chk_EqualData, key); }

void btm_SearchOfficeAddress_Click(frm_CompInp0& form) {
    handled("[ SS_Base btn_Search_Address_Click ]", [&] {
        form.btm_SearchOfficeAddress.setEnabled(false);
        startSearch(form, {.program = com().BinAddExe(),
                           .known = {&form.txt_Post_Code, &form.txt_Address, &form.txt_Address_Code},
                           .filled = {&form.txt_Post_Code, &form.txt_Address, &form.txt_Address_Code},
                           .button = form.btm_SearchOfficeAddress,
                           .title = "住所検索"});
    });
}

void btm_ChangePW_Click(frm_CompInp0& form) {
    handled("[ CompInp0 btm_ChangePW_Click ]", [&] {
        PasswordDialog dialog(form.btm_ChangePW);
        if (dialog.run()) {
            form.txt_User_Passwd.setText(tCustomerInfo.USER_PASSWD);
        }
    });
}

void btm_SearchOfficeAddress_KeyDown(frm_CompInp0& form, int& key) {
    handled("[ CompInp0 btm_SearchOfficeAddress_KeyDown ]", [&] {
        form.setEnabled(true);
        form.btm_SearchOfficeAddress.setEnabled(true);
        goOnAfterSearch(form.txt_Address_number, key);
    });
}

void btm_Pc_SearchOfficeAddress_Click(frm_CompInp0& form) {
    handled("[ SS_Base btn_Pc_Search_Address_Click ]", [&] {
        startSearch(form, {.program = com().BinAddExe(),
                           .known = {&form.txt_Pc_Post_Code, &form.txt_Pc_Address, &form.txt_Pc_Address_Code},
                           .filled = {&form.txt_Pc_Post_Code, &form.txt_Pc_Address, &form.txt_Pc_Address_Code},
                           .button = form.btm_Pc_SearchOfficeAddress,
                           .title = "住所検索"});
    });
}

void btm_Pc_SearchOfficeAddress_KeyDown(frm_CompInp0& form, int& key) {
    handled("[ CompInp0 btm_Pc_SearchOfficeAddress_KeyDown ]", [&] {
        form.setEnabled(true);
        goOnAfterSearch(form.txt_Pc_Address_number, key);
    });
}

void txt_Post_Code_Validate(frm_CompInp0& form) {
    hyphenate(form.txt_Post_Code, "[ CompInp0 txt_Post_Code_Validate ]");
}

void txt_Pc_Post_Code_Validate(frm_CompInp0& form) {
    hyphenate(form.txt_Pc_Post_Code, "[ CompInp0 txt_Pc_Post_Code_Validate ]");
}

bool F_Check_Pubish_Number(frm_CompInp0& form) {
    static const std::string kLabel = "F_Check_Pubish_Number\r\n";
    return trapped(kLabel, [&] { return showPublishNumber(form) || fail(kLabel + gErrMsg, gErrCode); });
}

void wireCompInp0(frm_CompInp0& form) {
    wireFrame(form);
    form.onLoad = [&form] { Form_Load(form, [&form] { return F_Check_Pubish_Number(form); }); };
    form.chk_EqualData.onClick = [&form] { chk_EqualData_Click(form); };
    form.chk_EqualData.onKeyDown = [&form](int key) { chk_EqualData_KeyDown(form, key); };
    form.btm_ChangePW.onClick = [&form] { btm_ChangePW_Click(form); };
    form.txt_Post_Code.onValidate = [&form] { txt_Post_Code_Validate(form); };
    form.txt_Pc_Post_Code.onValidate = [&form] { txt_Pc_Post_Code_Validate(form); };
    form.txt_Address_Code.onChange = [&form] { txt_Address_Code_Change(form); };
    form.btm_SearchOfficeAddress.onClick = [&form] { btm_SearchOfficeAddress_Click(form); };
    form.btm_SearchOfficeAddress.onKeyDown = [&form](int& key) { btm_SearchOfficeAddress_KeyDown(form, key); };
    form.btm_Pc_SearchOfficeAddress.onClick = [&form] { btm_Pc_SearchOfficeAddress_Click(form); };
    form.btm_Pc_SearchOfficeAddress.onKeyDown = [&form](int& key) { btm_Pc_SearchOfficeAddress_KeyDown(form, key); };
}

}  // namespace orv
