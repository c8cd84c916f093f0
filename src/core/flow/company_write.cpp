#include "core/flow/company_write.h"

#include <array>

#include "core/flow/statement_values.h"
#include "core/record/globals.h"
#include "logging/error_pair.h"
#include "logging/trap.h"
#include "logging/write_log.h"
#include "platform/services.h"
#include "store/row_count.h"
#include "store/statements.h"
#include "store/transaction.h"

namespace orv {
namespace {

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
    const bool insert = noRowOf(tCustomerInfo.USER_ID, table.probe) && targetId == kNewCompany;
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
