#include "validation/rules/page_checks.h"

#include <optional>

#include "core/record/globals.h"
#include "logging/messages.h"
#include "logging/trap.h"
#include "pages/forms/control_helpers.h"
#include "pages/forms/page_set.h"
#include "platform/services.h"
#include "validation/text/text_helpers.h"

namespace orv {
namespace {

constexpr const char* kLineBreak = "\r\n";

enum Field : std::size_t { Present, Wanted, Again };

struct Fault {
    const char* id;
    Values args;
    Field field;
};

bool lengthIsRight(const std::string& password) {
    const std::int32_t length = PF_LenB(password);
    return length >= kShortestPassword && length <= kLongestPassword;
}

std::optional<Fault> faultIn(const frm_ChangePassword& dialog) {
    const auto text = [&](Field field) { return dialog.txt_Password[field].text(); };
    const std::string& present = dialog.lbl_Old_Password.caption();
    const std::string& wanted = dialog.lbl_New_Password.caption();
    const std::string& again = dialog.lbl_New_Password_Try.caption();
    if (text(Present).empty()) {
        return Fault{"CHECK001", {present}, Present};
    }
    if (text(Present) != tCustomerInfo.USER_PASSWD) {
        return Fault{"CHECK002", {present, "保存されているパスワード", kLineBreak}, Present};
    }
    if (!lengthIsRight(text(Wanted))) {
        return Fault{"CHECK003", {wanted, kShortestPassword, kLongestPassword}, Wanted};
    }
    if (text(Wanted) != text(Again)) {
        return Fault{"CHECK002", {wanted, again, kLineBreak}, Again};
    }
    return std::nullopt;
}

/// Closes a store that another event might have left open. This check opens none.
void closeStore() {
    bool ignored = false;
    services().db->DbClose(gConn, ignored);
}

/// Always returns false.
bool refuse(const Fault& fault, frm_ChangePassword& dialog) {
    dialog.refused = showOrFail(fault.id, fault.args);
    if (dialog.refused) {
        PF_SetFocusTo(&dialog.txt_Password[fault.field]);
        dialog.txt_Password[fault.field].setFault("入力に誤りがあります。");
    } else {
        closeStore();
    }
    return false;
}

}  // namespace

bool PF_CheckPwd() {
    return trapped("[ PF_CheckPwd ] ", [] {
        auto& dialog = page<frm_ChangePassword>();
        dialog.refused = false;
        if (const std::optional<Fault> fault = faultIn(dialog)) {
            return refuse(*fault, dialog);
        }
        tCustomerInfo.USER_PASSWD = dialog.txt_Password[Wanted].text();
        tCustomerInfo.PWD_CHG_FLG = kPasswordChanged;
        closeStore();
        return true;
    });
}

}  // namespace orv
