#include "pages/handlers/page_handlers.h"

#include "config/settings.h"
#include "core/record/company_record.h"
#include "logging/handled.h"
#include "pages/forms/form_helpers.h"
#include "pages/handlers/frame_handlers.h"
#include "pages/handlers/photo_handlers.h"
#include "pages/handlers/sibling_search.h"
#include "platform/ascii.h"

namespace orv {
namespace {

constexpr Report kTextReport{.id = "UTERR001", .keepPair = true};

void followLinkName(frm_CompInp2& form, const char* label) {
    handled(
        label,
        [&] {
            const bool named = !trimmed(form.txt_Company_URL_Comment.text()).empty();
            const std::string_view address = trimmed(form.txt_Company_URL.text());
            if (named && address.empty()) {
                form.txt_Company_URL.setText(std::string(kUrlPrefix));
            } else if (!named && address == kUrlPrefix) {
                form.txt_Company_URL.setText("");
            }
        },
        kTextReport);
}

PhotoControls photoControls(frm_CompInp2& form, std::size_t slot) {
    return {.picture = form.pic_PhotoFile[slot],
            .path = form.txt_PhotoFilePath[slot],
            .group = form.cbo_pic_PhotoFile[slot],
            .select = form.btm_PhotoSelect[slot]};
}

PhotoSlots photoSlots(frm_CompInp2& form) {
    return {.page = form, .work = form.pic_LeadTmp, .slots = {photoControls(form, 0), photoControls(form, 1)}};
}

void acceptDrops(frm_CompInp2& form) {
    for (std::size_t i = 0; i < form.pic_PhotoFile.size(); ++i) {
        form.pic_PhotoFile[i].setAcceptsDrops(true);
    }
}

void leavePage(frm_CompInp2& form) {
    handled("[ CompInp2 Form_Unload ]", [&form] {
        acceptDrops(form);
        Form_Unload(form);
    });
}

void wirePhotos(frm_CompInp2& form) {
    for (std::size_t i = 0; i < form.pic_PhotoFile.size(); ++i) {
        form.btm_PhotoSelect[i].onClick = [&form, i] { btm_PhotoSelect_Click(photoSlots(form), i); };
        form.btm_PhotoDel[i].onClick = [&form, i] { btm_PhotoDel_Click(photoSlots(form), i); };
        form.pic_PhotoFile[i].onDrop = [&form, i](const std::string& file) {
            pic_PhotoFile_OLEDrop(photoSlots(form), i, file);
        };
        form.cbo_pic_PhotoFile[i].onKeyDown = [&form, i](int key) { cbo_pic_PhotoFile_KeyDown(form, i, key); };
    }
}

}  // namespace

void btn_SelectRail_Click(frm_CompInp2& form) {
    handled("[ CompInp2 btn_SelectRail_Click ]", [&] {
        form.btn_SelectRail.setEnabled(false);
        startSearch(form, {.program = com().BinLineExe(),
                           .known = {},
                           .filled = {&form.txt_Railroad_Code, &form.txt_Station_Code, &form.lbl_Railroad_Name,
                                      &form.lbl_Station_Name},
                           .button = form.btn_SelectRail,
                           .title = "沿線検索"});
    });
}

void btn_SelectRail_KeyDown(frm_CompInp2& form, int& key) {
    handled("[ CompInp2 btn_SelectRail_KeyDown ]", [&] {
        form.setEnabled(true);
        form.btn_SelectRail.setEnabled(true);
        goOnAfterSearch(form.txt_Walk_Minutes, key);
    });
}

void cbo_pic_PhotoFile_KeyDown(frm_CompInp2& form, std::size_t slot, int key) {
    enterMovesOn(form, form.cbo_pic_PhotoFile[slot], key);
}

void txt_Company_URL_Comment_Change(frm_CompInp2& form) { followLinkName(form, "[ txt_Company_URL_Comment_Change ]"); }

void txt_Company_URL_Comment_LostFocus(frm_CompInp2& form) {
    followLinkName(form, "[ txt_Company_URL_Comment_LostFocus ]");
}

void btn_DelRail_Click(frm_CompInp2& form) {
    handled("[ CompInp2 btn_DelRail_Click ]", [&] {
        form.lbl_Railroad_Name.setCaption("");
        form.lbl_Station_Name.setCaption("");
        form.txt_Railroad_Code.setText("");
        form.txt_Station_Code.setText("");
    });
}

void wireCompInp2(frm_CompInp2& form) {
    wireFrame(form);
    form.onLoad = [&form] {
        acceptDrops(form);
        Form_Load(form);
    };
    form.onUnload = [&form] { leavePage(form); };
    form.btn_SelectRail.onClick = [&form] { btn_SelectRail_Click(form); };
    form.btn_SelectRail.onKeyDown = [&form](int& key) { btn_SelectRail_KeyDown(form, key); };
    form.btn_DelRail.onClick = [&form] { btn_DelRail_Click(form); };
    form.txt_Company_URL_Comment.onChange = [&form] { txt_Company_URL_Comment_Change(form); };
    form.txt_Company_URL_Comment.onLostFocus = [&form] { txt_Company_URL_Comment_LostFocus(form); };
    wirePhotos(form);
}

}  // namespace orv
