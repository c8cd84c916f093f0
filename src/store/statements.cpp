#include "store/statements.h"

#include <span>
#include <string_view>

#include "core/record/globals.h"
#include "logging/trap.h"
#include "platform/machine/clock.h"
#include "platform/services.h"
#include "platform/suite/sql_text.h"
#include "platform/value.h"
#include "store/statement_columns.h"

namespace orv {
namespace {

constexpr std::string_view kIndent = "            ";

std::string present() { return formatMoment(services().clock->now(), "yyyymmdd hh:nn:ss"); }

std::string sendFlag() { return toText(Value(tCustomerInfo.SEND_FLAG)); }

const std::string& fieldText(const Column& column) { return tCustomerInfo.*column.field; }

/// Returns the value of a column in an INSERT, with the blanks before it.
std::string insertedValue(const Column& column) {
    if (column.name == "SEND_FLAG") return " " + sendFlag();
    if (column.name == "INSERT_DATE") return rawSqlText(present());
    if (column.name == "SERVICE_FLG") return rawSqlText(PF_RepeatZero(50));
    return rawSqlText(fieldText(column));
}

std::string insertInto(std::string_view table, std::span<const Column> columns) {
    std::string names;
    std::string values;
    for (const Column& column : columns) {
        const bool last = &column == &columns.back();
        names += std::string(kIndent) + std::string(column.name) + (last ? " " : " ,");
        values += std::string(kIndent) + insertedValue(column) + (last ? "" : ",");
    }
    return "insert into " + std::string(table) + " (" + names + "   ) values (" + values + std::string(kIndent) + ")";
}

/// Returns an assignment of an UPDATE, with the blanks before it. `name` ends with the blanks before the equals sign.
std::string assign(std::string_view name, std::string_view value) {
    return std::string(kIndent).append(name).append("=").append(value);
}

std::string assignment(const Column& column) {
    return assign(std::string(column.name) + "  ",
                  column.field == nullptr ? sendFlag() : rawSqlText(fieldText(column)));
}

std::string assignKey(const std::string& newUserId) { return assign("USER_ID  ", rawSqlText(newUserId)); }

bool made(std::string_view label, std::string& sql, const std::function<std::string()>& text) {
    sql.clear();
    return trapped(label, [&] { sql = text(); });
}

/// Returns the columns of the pages: from the one after the key up to the associations and councils.
std::span<const Column> infoPageColumns() {
    const auto end = std::find_if(kInfoColumns.begin(), kInfoColumns.end(),
                                  [](const Column& column) { return column.name == "INSERT_DATE"; });
    return {kInfoColumns.begin() + 1, end};
}

std::string updateInfo(const std::string& newUserId) {
    std::string sql = "update TBL_CUSTOMER_INFO        set " + assignKey(newUserId) + ",";
    for (const Column& column : infoPageColumns()) {
        sql += assignment(column) + ",";
    }
    sql += assign("UPDATE_DATE ", rawSqlText(present())) + ",";
    sql += assign("PWD_CHG_FLG ", rawSqlText(tCustomerInfo.PWD_CHG_FLG));
    return sql + "     where  USER_ID = " + rawSqlText(tCustomerInfo.USER_ID);
}

std::string updateAdd(const std::string& newUserId) {
    std::string sql = "UPDATE TBL_CUSTOMER_ADD        SET " + assignKey(newUserId);
    for (const Column& column : std::span(kAddColumns).subspan(1)) {
        sql += "," + assignment(column);
    }
    return sql + "     WHERE  USER_ID = " + rawSqlText(tCustomerInfo.USER_ID);
}

}  // namespace

bool bas_Main_Companydata::P_MakeInsertSQL_Info(std::string& sql) {
    return made("[ P_MakeInsertSQL_Info ] ", sql, [] { return insertInto("TBL_CUSTOMER_INFO", kInfoColumns); });
}

bool bas_Main_Companydata::P_MakeInsertSQL_Add(std::string& sql) {
    return made("[ P_MakeInsertSQL_Add ] ", sql, [] { return insertInto("TBL_CUSTOMER_ADD", kAddColumns); });
}

bool bas_Main_Companydata::P_MakeInsertSQL_Date(std::string& sql) {
    return made("[ P_MakeInsertSQL_Date ] ", sql,
                [] { return insertInto("TBL_CUSTOMER_DATE", std::span(kInfoColumns).first(1)); });
}

bool bas_Main_Companydata::P_MakeUpdateSQL_Date(std::string& sql, const std::string& newUserId) {
    return made("[ P_MakeUpdateSQL_Date ] ", sql, [&] {
        return "UPDATE TBL_CUSTOMER_DATE        SET " + assignKey(newUserId) +
               "     WHERE  USER_ID = " + rawSqlText(tCustomerInfo.USER_ID);
    });
}

bool bas_Main_Companydata::P_MakeUpdateSQL_Info(std::string& sql, const std::string& newUserId) {
    return made("[ P_MakeUpdateSQL_Info ] ", sql, [&] { return updateInfo(newUserId); });
}

bool bas_Main_Companydata::P_MakeUpdateSQL_Add(std::string& sql, const std::string& newUserId) {
    return made("[ P_MakeUpdateSQL_Add ] ", sql, [&] { return updateAdd(newUserId); });
}

std::string bas_Main_Companydata::PF_RepeatZero(std::int16_t count) {
    return std::string(static_cast<std::size_t>(std::max<std::int16_t>(count, 0)), '0');
}

std::string companyJoin(const std::string& userId) {
    return "   select *     from TBL_CUSTOMER_INFO AS A LEFT JOIN TBL_CUSTOMER_ADD AS B "
           "       ON A.USER_ID = B.USER_ID    where A.USER_ID = " +
           rawSqlText(userId);
}

}  // namespace orv
