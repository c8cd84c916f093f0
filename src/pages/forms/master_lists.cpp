#include "pages/forms/master_lists.h"

#include <array>
#include <string_view>
#include <vector>

#include "core/record/globals.h"
#include "logging/trap.h"
#include "platform/services.h"
#include "platform/suite/sql_text.h"
#include "store/rows.h"

namespace orv {
inline namespace bas_FromCommon {
namespace {

/// `beforeCode` and `afterCode` enclose the code if the list is restricted to one.
struct MasterList {
    std::string_view beforeCode;
    bool narrowed;
    std::string_view afterCode;
    bool mayBeEmpty;
};

constexpr std::array<MasterList, 5> kLists{{
    {"  SELECT ITEM_NAME     FROM MST_OTHERS    WHERE TYPE_CODE = ", true,
     "      AND DEL_FLAG = FALSE ORDER BY SORT_KEY", false},
    {"  SELECT PROPERTY_TYPE_NAME     FROM MST_PROPERTY_TYPE    WHERE Left(PROPERTY_TYPE_CODE,2) = ", true,
     "      AND DEL_FLAG = FALSE ORDER BY SORT_KEY", false},
    {"  SELECT USER_ID     FROM TBL_CUSTOMER_INFO ORDER BY USER_ID", false, "", true},
    {"  SELECT TIKU_NAME     FROM MST_TIKU    WHERE DEL_FLG = FALSE ORDER BY SORT_KEY", false, "", false},
    {"  SELECT CORP_NAME, CORP_CODE     FROM MST_CORP ORDER BY CORP_CODE ", false, "", true},
}};

const MasterList* findList(std::int16_t kind) {
    return kind >= 0 && static_cast<std::size_t>(kind) < kLists.size() ? &kLists[static_cast<std::size_t>(kind)]
                                                                       : nullptr;
}

/// Returns "" for an unknown kind, which the store then rejects.
std::string makeStatement(std::int16_t kind, const std::string& code) {
    const MasterList* list = findList(kind);
    if (list == nullptr) {
        return {};
    }
    const std::string text(list->beforeCode);
    return list->narrowed ? text + rawSqlText(code) + std::string(list->afterCode) : text;
}

bool addRows(ComboBox& combo, const Rows& rows, bool addBlank, std::int16_t kind) {
    if (!rows.ok()) {
        return failFrom(services().db->DbError());
    }
    const MasterList* list = findList(kind);
    if (rows->Eof() && (list == nullptr || !list->mayBeEmpty)) {
        return fail("コンボボックスデータ取得に失敗しました。", "ECBO0001");
    }
    std::vector<std::string> items;
    items.reserve(static_cast<std::size_t>(rows->RecordCount()) + 1);
    if (addBlank) {
        items.emplace_back();
    }
    for (; !rows->Eof(); rows->MoveNext()) {
        items.push_back(toText(rows->Fields(0)));
    }
    combo.clear();
    combo.addItems(std::move(items));
    return true;
}

}  // namespace

bool PF_MakeComboBox(ComboBox& combo, const std::string& code, bool addBlank, std::int16_t kind) {
    combo.clear();
    bool ignored = false;
    services().db->DbCloseRs(gRs, ignored);
    Rows rows(makeStatement(kind, code));
    const bool result = trapped("", [&] { return addRows(combo, rows, addBlank, kind); });
    if (!rows.close()) {
        setPair(services().db->DbError());
    }
    return result;
}

bool fillCompanies(ComboBox& combo) {
    if (!PF_MakeComboBox(combo, "", false, kListCompanies)) {
        return false;
    }
    if (isRowMissing(std::string(kNewCompany), kCountInfo)) {
        combo.addItem(std::string(kNewCompany));
    }
    return true;
}

}  // namespace bas_FromCommon
}  // namespace orv
