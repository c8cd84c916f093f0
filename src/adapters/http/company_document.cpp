#include "adapters/http/company_document.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <sstream>

#include "platform/ascii.h"
#include "platform/run_time_error.h"
#include "platform/scope.h"
#include "platform/suite/db_service.h"
#include "platform/suite/sql_text.h"

namespace orv {
namespace {

using Document = nlohmann::ordered_json;

constexpr std::size_t kLongestId = 64;
constexpr std::string_view kFlagColumn = "SEND_FLAG";

constexpr std::string_view kInfoColumns =
    "USER_ID, USER_PASSWD, GROUP_NAME, COMPANY_NAME, COMPANY_KANA, OFFICE_NAME, POST_CODE, ADDRESS_CODE, ADDRESS, "
    "ADDRESS_NUMBER, ADDRESS_GOU, ADDRESS_OTHER, DAIHYO_NAME, DAIHYO_NAME_KANA, TAKKEN_SYUNIN_NAME, TANTO_NAME, "
    "TEL_NO1, TEL_NO2, FAX_NO, TIKU_CODE, AREA_CODE, RAILROAD_CODE, RAILROAD_NAME, STATION_CODE, STATION_NAME, "
    "WALK_MINUTES, BUS_ROUTE, BUSSTOP, BUS_MINUTES, TEIHO_MINUTES, CAR_TARGET, CAR_MINUTES, CAR_DISTANCE, "
    "SAME_CHECK, PC_OFFICE_NAME, PC_POST_CODE, PC_ADDRESS_CODE, PC_ADDRESS, PC_ADDRESS_NUMBER, PC_ADDRESS_GOU, "
    "PC_TANTO_NAME, PC_TEL_NO1, PC_TEL_NO2, PC_FAX_NO, PC_MAIL_ADDRESS, MAIL_ADDRESS, MAIL_FLG, LICENSE_NO, "
    "LICENSE_NO_DAI, LICENSE_NO_GO, GET_LICENSE_DATE_YEAR, GET_LICENSE_DATE_MONTH, GET_LICENSE_DATE_DAY, "
    "GET_LICENSE_NENGOU, VALID_LICENSE_DATE_YEAR, VALID_LICENSE_DATE_MONTH, VALID_LICENSE_DATE_DAY, "
    "VALID_LICENSE_NENGOU, DANTAI_FLG, DANTAI_NAME, OTHER_DANTAI_NAME, KOUTORI_FLG, INSERT_DATE, UPDATE_DATE, "
    "SERVICE_FLG, PWD_CHG_FLG, CONTRACT_PUBLISHNUMBER";

constexpr std::string_view kAddColumns =
    "USER_ID, OFFICE_HOURS, DAY_OFF, COMPANY_COMMENT, COMPANY_URL_COMMENT, COMPANY_URL, PHOTO_FILE1, PHOTO_FILE2, "
    "PHOTO_GRP1, PHOTO_GRP2, SEND_FLAG, MANAGEMENT_TYPE_FLG, BUSINESS_TYPE_FLG, OS_VER, OS_MAJOR_VER, "
    "OS_MINOR_VER, OS_BUILD_VER, NET_TYPE, IP_ADDRESS, SYS_HD_CAP, INS_HD_CAP, INS_ORV_PATH, MEMORY, CPU, IE_VER, "
    "PROXY_INFO";

/// A table and its columns, as a select names them.
struct TableColumns {
    std::string_view name;
    std::string_view columns;
};

constexpr auto kTables = std::to_array<TableColumns>({
    {"TBL_CUSTOMER_INFO", kInfoColumns},
    {"TBL_CUSTOMER_ADD", kAddColumns},
    {"TBL_CUSTOMER_DATE", "USER_ID"},
});

[[noreturn]] void raiseFrom(const DbService& db) {
    const FailureRecord why = db.DbError();
    throw RunTimeError(Failure::Internal, why.text + "（" + why.code + "）");
}

class ReadOnlyVisit : NonCopyable {
public:
    ReadOnlyVisit(DbService& db, const std::string& path) : db_(db) {
        bool ok = false;
        db_.DbOpen(connection_, path, ok);
        if (!ok) {
            raiseFrom(db_);
        }
    }
    ~ReadOnlyVisit() {
        bool ok = false;
        db_.DbClose(connection_, ok);
    }

    RecordsetPtr select(const std::string& sql) {
        bool ok = false;
        RecordsetPtr rows;
        db_.DbOpenRs(connection_, rows, sql, ok);
        if (!ok) {
            raiseFrom(db_);
        }
        return rows;
    }

private:
    DbService& db_;
    ConnectionPtr connection_;
};

std::string makeSelect(const TableColumns& table, const std::string& userId) {
    std::string sql = "SELECT ";
    sql.append(table.columns).append(" FROM ").append(table.name).append(" WHERE USER_ID = ");
    return sql + sqlText(userId);
}

/// Stores return a boolean in different forms: as a boolean, a number or a word.
bool toFlag(const Value& value) {
    const std::string text = toText(value);
    return text != "0" && text != "False" && text != "false" && text != "FALSE" && !text.empty();
}

Document toCell(std::string_view column, const Value& value) {
    if (value.isNull()) {
        return nullptr;
    }
    if (column == kFlagColumn) {
        return toFlag(value);
    }
    const auto* number = std::get_if<std::int64_t>(&value.content());
    return number ? Document(*number) : Document(toText(value));
}

Document readRow(ReadOnlyVisit& store, const TableColumns& table, const std::string& userId) {
    const RecordsetPtr rows = store.select(makeSelect(table, userId));
    if (rows->RecordCount() != 1) {
        throw RunTimeError(Failure::Internal,
                           "送信する会社のデータが1件ではありません。（" + std::string(table.name) + "）");
    }
    Document row = Document::object();
    std::istringstream names{std::string(table.columns)};
    for (std::string column; std::getline(names >> std::ws, column, ',');) {
        row[column] = toCell(column, rows->Fields(column));
    }
    return row;
}

/// The id becomes part of statements, of file names and of an argument string.
bool isPlain(std::string_view id) { return std::ranges::all_of(id, isAsciiAlphanumeric); }

}  // namespace

std::string companyDocument(DbService& db, const std::string& storePath, const std::string& userId) {
    ReadOnlyVisit store(db, storePath);
    Document document;
    for (const auto& table : kTables) {
        document[std::string(table.name)] = readRow(store, table, userId);
    }
    return document.dump(-1, ' ', false, Document::error_handler_t::replace);
}

std::optional<std::string> idInAnswer(std::string_view body) {
    const auto answer = nlohmann::json::parse(body, nullptr, false);
    if (!answer.is_object() || !answer.contains("id") || !answer["id"].is_string()) {
        return std::nullopt;
    }
    auto id = answer["id"].get<std::string>();
    if (id.empty() || id.size() > kLongestId || !isPlain(id)) {
        return std::nullopt;
    }
    return id;
}

}  // namespace orv
