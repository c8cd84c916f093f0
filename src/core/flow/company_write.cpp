#include "core/flow/company_write.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "binding/binding_row.h"
#include "core/record/globals.h"
#include "logging/trap.h"
#include "logging/write_log.h"
#include "pages/forms/control_helpers.h"
#include "pages/forms/page_form.h"
#include "platform/services.h"
#include "store/rows.h"
#include "store/statements.h"
#include "store/store_session.h"

namespace orv {
namespace {

constexpr std::string_view kEndsLiteral("'\0", 2);

bool isPhoto(TextField field) {
    return std::ranges::any_of(kPhotoSlots, [&](const PhotoSlot& slot) { return slot.file == field; });
}

std::string displayName(const BindingRow& row) {
    std::string control = row.control().name();
    return P_ChgControl(control);
}

/// Returns where the field is shown, or which program sets it.
std::string describePlace(const FieldInfo& field) {
    for (const PageEntry& page : pageEntries()) {
        const std::span<const BindingRow> rows = page.binding->rows();
        const auto row = std::ranges::find(rows, field.text, &BindingRow::field);
        if (row != rows.end()) {
            const std::string place = "「" + std::string(page.name) + "」の画面の「" + displayName(*row) + "」";
            return place + (page.number == frm_CompInp4::kNumber
                                ? "は、この端末の設定から読まれています。設定を直してから、"
                                : "を開いて直してから、");
        }
    }
    return "項目「" + std::string(field.name) +
           "」は、ほかのプログラムが書いたものです。システムの管理者が直してから、";
}

bool endsLiteral(const FieldInfo& field) {
    return field.text != nullptr && field.table != Table::None &&
           (tCustomerInfo.*field.text).find_first_of(kEndsLiteral) != std::string::npos;
}

/// One of the three tables, in the order of the transaction: its probe, its statements and the failure for a missing
/// row.
struct SavedTable {
    std::int16_t probe;
    bool (*insert)(std::string& sql);
    bool (*update)(std::string& sql, const std::string& newUserId);
    const char* refusal;
    const char* code;
};

constexpr std::array<SavedTable, 3> kTables{{
    {kCountInfo, P_MakeInsertSQL_Info, P_MakeUpdateSQL_Info, "会社情報基本DB登録に失敗しました。", "ESSX0644"},
    {kCountAdd, P_MakeInsertSQL_Add, P_MakeUpdateSQL_Add, "会社情報付加DB登録に失敗しました。", "ESSX0645"},
    {kCountDate, P_MakeInsertSQL_Date, P_MakeUpdateSQL_Date, "会社情報日付DB登録に失敗しました。", "ESSX0645"},
}};

bool makeStatement(const SavedTable& table, const std::string& targetId, std::string& sql) {
    const bool insert = isRowMissing(tCustomerInfo.USER_ID, table.probe) && targetId == kNewCompany;
    return insert ? table.insert(sql) : table.update(sql, targetId);
}

bool execute(const SavedTable& table, const std::string& sql) {
    std::int32_t rows = -1;
    services().db->DbExecute(gConn, sql, rows);
    if (rows < 0) {
        return failFrom(services().db->DbError());
    }
    return rows == 1 || fail(table.refusal, table.code);
}

/// `sql` receives the last statement that was built.
bool writeTables(Transaction& transaction, const std::string& targetId, std::string& sql) {
    if (!valuesFitStatements(PhotoFields::Stored)) {
        return false;
    }
    for (const SavedTable& table : kTables) {
        if (!makeStatement(table, targetId, sql)) {
            return false;
        }
        if (&table == kTables.data() && !transaction.begin()) {
            return failFrom(services().db->DbError());
        }
        if (!execute(table, sql)) {
            return false;
        }
    }
    return transaction.commit() || failFrom(services().db->DbError());
}

}  // namespace

bool valuesFitStatements(PhotoFields photos) {
    const auto found = std::ranges::find_if(kFields, [&](const FieldInfo& field) {
        return endsLiteral(field) && !(photos == PhotoFields::Chosen && isPhoto(field.text));
    });
    return found == kFields.end() || fail("保存できない文字（「'」または NUL）があります。" + describePlace(*found) +
                                              "もう一度保存してください。",
                                          "SAVE0003");
}

bool bas_Main_Companydata::PF_SetCompanyDataSave(const std::string& targetId) {
    Transaction transaction;
    std::string sql;
    if (trapped("[ PF_SetCompanyDataSave ] ", [&] { return writeTables(transaction, targetId, sql); })) {
        return true;
    }
    if (!transaction.rollback()) {
        setPair(services().db->DbError());
    }
    logPair();
    logError("SQL", sql);
    return false;
}

}  // namespace orv
