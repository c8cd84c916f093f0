#pragma once

#include "pages/forms/page_form.h"

namespace orv {

// Element i belongs to character i + 1 of the record's flag string. Two captions occur twice: once for selling and once
// for buying.
constexpr std::array<CheckDesign, 28> managementTypes() {
    return tickBoxes<28>({"居住用賃貸",
                          "マンスリー物件",
                          "事業用賃貸",
                          "駐車場",
                          "貸土地",
                          "新築分譲マンション",
                          "新築分譲戸建",
                          "中古マンション",
                          "中古一戸建",
                          "公団・公社",
                          "売土地",
                          "事業用物件",
                          "リゾート物件",
                          "中古マンション",
                          "中古一戸建",
                          "土地",
                          "引越取次",
                          "損害保険取扱",
                          "保証人不要対応可",
                          "入居ローン可",
                          "リロケーション（期間貸）",
                          "不動産管理業務",
                          "提携ローン有",
                          "つなぎ融資可",
                          "競売物件取得代行",
                          "不動産コンサルティング・資産運用",
                          "不動産証券化",
                          "投資用物件"});
}

constexpr std::array<CheckDesign, 12> businessTypes() {
    return tickBoxes<12>({"司法書士", "税理士", "弁護士", "行政書士", "公認会計士", "設計・建築業務(注文住宅)",
                          "不動産鑑定士", "土地家屋調査士", "測量士・計測・地盤調査・構造調査", "建物メンテナンス",
                          "リフォーム", "外国語（英語）"});
}

inline constexpr std::array<LabelDesign, 4> kManagementGroups{
    {{.caption = "賃貸："}, {.caption = "売買："}, {.caption = "買取："}, {.caption = "その他："}}};
inline constexpr std::array<LabelDesign, 3> kBusinessGroups{
    {{.caption = "職種："}, {.caption = "建築関連："}, {.caption = "その他："}}};

/// The agency's kinds of business, and its related businesses.
struct frm_CompInp3 : PageForm {
    static constexpr int kNumber = 3;

    frm_CompInp3() : PageForm(kNumber) {
        nameBlocks<4>(lbl_Management_Type_Table, chk_Management_Type_Flg, {5, 8, 3, 12});
        nameBlocks<3>(lbl_Business_Type_Table, chk_Business_Type_Flg, {5, 6, 1});
    }

    // clang-format off
    ControlArray<Label, 4> lbl_Management_Type_Table{*this, "lbl_Management_Type_Table", kManagementGroups};
    ControlArray<CheckBox, 28> chk_Management_Type_Flg{*this, "chk_Management_Type_Flg", managementTypes()};
    ControlArray<Label, 3> lbl_Business_Type_Table{*this, "lbl_Business_Type_Table", kBusinessGroups};
    ControlArray<CheckBox, 12> chk_Business_Type_Flg{*this, "chk_Business_Type_Flg", businessTypes()};
    // clang-format on

private:
    /// Gives each label's block as many boxes as `counts` says, in order.
    template <std::size_t N, class Boxes>
    static void nameBlocks(const ControlArray<Label, N>& labels, Boxes& boxes,
                           const std::array<std::size_t, N>& counts) {
        std::size_t box = 0;
        for (std::size_t label = 0; label < N; ++label) {
            for (std::size_t i = 0; i < counts[label]; ++i) {
                boxes[box++].setBlock(labels[label].labelDesign().caption);
            }
        }
    }
};

}  // namespace orv
