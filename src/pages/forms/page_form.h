#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/record/globals.h"
#include "pages/forms/page_entry.h"
#include "platform/controls/captions.h"
#include "platform/controls/check_box.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/image_control.h"
#include "platform/controls/number_input.h"
#include "platform/controls/text_input.h"
#include "platform/design.h"
#include "platform/forms/form.h"
#include "platform/suite/failure_record.h"

namespace orv {

// Tab order on every page: the company, the fields from top to bottom, the buttons that end the work, the other pages.
// Fields after an array whose elements are not adjacent use a rank in between.
inline constexpr int kTabCompany = -1;
inline constexpr int kTabFields = 0;
inline constexpr int kTabSave = 10;
inline constexpr int kTabLeave = 11;
inline constexpr int kTabPages = 12;

/// Returns a button for each page.
inline std::array<ButtonDesign, kPageCount> pageButtons() {
    std::array<ButtonDesign, kPageCount> buttons;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        buttons[i] = {.caption = pageEntries()[i].name, .look = ButtonLook::Page, .tabRank = kTabPages};
    }
    return buttons;
}

/// Returns boxes that start unticked, with the colours for that, one for each caption.
template <std::size_t N>
constexpr std::array<CheckDesign, N> tickBoxes(const std::array<std::string_view, N>& captions, int tabRank = 0) {
    std::array<CheckDesign, N> designs{};
    for (std::size_t i = 0; i < N; ++i) {
        designs[i] = {.caption = captions[i], .back = kTickOff, .fore = kTickOffText, .tabRank = tabRank};
    }
    return designs;
}

/// The common controls of all pages, and the page's number.
struct PageForm : Form {
    explicit PageForm(int page)
        : Form(pageFormName(page), "お客様情報設定 - " + std::string(pageEntry(page).name), {kPageWidth, kPageHeight}),
          number(page) {
        for (std::size_t i = 0; i < btm_ChangePage.size(); ++i) {
            btm_ChangePage[i].addShortcut("Alt+" + std::to_string(i + 1));
        }
        const auto own = static_cast<std::size_t>(page);
        btm_ChangePage[own].setMarked(true);
        restAt(btm_ChangePage[own]);
        if (own > 0) {
            btm_ChangePage[own - 1].addShortcut("Ctrl+PgUp");
        }
        if (own + 1 < btm_ChangePage.size()) {
            btm_ChangePage[own + 1].addShortcut("Ctrl+PgDown");
        }
    }

    /// Returns the page's name on its button.
    std::string_view pageName() const { return pageEntry(number).name; }
    /// Returns the page's name in failure texts: "CompInp0".
    std::string tag() const { return "CompInp" + std::to_string(number); }

    void contentChanged(const Control& control) override {
        if (ready && !theContext.unsavedChanges && &control != &cbo_User_Id) {
            theContext.unsavedChanges = true;
            setCaption(caption());
        }
    }
    bool hasUnsavedChanges() const override { return theContext.unsavedChanges; }

    const int number;
    /// True if the lists and the fill succeeded. A page that is not ready does not change the record, and a save on it
    /// reports `failure`, the reason.
    bool ready = false;
    FailureRecord failure;
    /// True while the program itself sets the company list, so that its click starts no switch.
    bool companySetByCode = false;

    // clang-format off
    Label lbl_User_Id{*this, "lbl_User_Id", {.caption = "ユーザーID：", .look = LabelLook::Title}};
    ComboBox cbo_User_Id{*this, "cbo_User_Id", {.tabRank = kTabCompany, .spokenName = lbl_User_Id.labelDesign().caption}};
    Label lbl_UserId{*this, "lbl_UserId", {.look = LabelLook::Panel, .visible = false, .spokenName = lbl_User_Id.labelDesign().caption}};
    Label lbl_TitleCompany{*this, "lbl_TitleCompany", {.look = LabelLook::Title, .fontSize = 15, .spokenName = "会社"}};
    Label lbl_TitleRyutuKaiin{*this, "lbl_TitleRyutuKaiin", {.look = LabelLook::Title}};
    ControlArray<Button, kPageCount> btm_ChangePage{*this, "btm_ChangePage", pageButtons()};
    Button btm_Save{*this, "btm_Save", {.caption = "保存", .look = ButtonLook::Action, .tabRank = kTabSave, .accessKey = U'S', .shortcut = "Ctrl+S"}};
    Button btm_Back_Menu{*this, "btm_Back_Menu", {.caption = "メニューへ戻る", .look = ButtonLook::Action, .tabRank = kTabLeave, .accessKey = U'M'}};
    Label pic_Logo{*this, "pic_Logo", {.caption = "不動産業務", .look = LabelLook::Title, .fontSize = 12}};
    /// A sunken line between the page buttons and the page.
    Label pic_LeftLine{*this, "pic_LeftLine", {.look = LabelLook::Panel}};
    // clang-format on
};

}  // namespace orv
