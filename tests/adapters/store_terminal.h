#pragma once

// A store as a terminal uses it: the calls, and shared statements like the program's.

#include <gtest/gtest.h>

#include <vector>

#include "platform/suite/db_service.h"

namespace orv {

/// One terminal: a connection with the recordset that was opened last.
class Terminal {
public:
    Terminal(DbService& service, const std::string& path) : service_(service) {
        bool ok = false;
        service_.DbOpen(connection, path, ok);
        EXPECT_TRUE(ok) << service_.DbError().text;
    }

    bool select(const std::string& sql) {
        bool ok = false;
        service_.DbOpenRs(connection, rs, sql, ok);
        return ok;
    }

    std::int32_t execute(const std::string& sql) {
        std::int32_t rows = 0;
        service_.DbExecute(connection, sql, rows);
        return rows;
    }

    bool begin() { return call(&DbService::DbBeginTrans); }
    bool commit() { return call(&DbService::DbCommit); }
    bool rollback() { return call(&DbService::DbRollback); }

    /// Returns the first field of every row.
    std::vector<std::string> list(const std::string& sql) {
        std::vector<std::string> items;
        EXPECT_TRUE(select(sql)) << service_.DbError().text;
        for (; rs != nullptr && !rs->Eof(); rs->MoveNext()) items.push_back(toText(rs->Fields(0)));
        return items;
    }

    std::string one(const std::string& sql) {
        const std::vector<std::string> items = list(sql);
        return items.size() == 1 ? items.front() : "rows: " + std::to_string(items.size());
    }

    ConnectionPtr connection;
    RecordsetPtr rs;

private:
    bool call(void (DbService::*operation)(ConnectionPtr&, bool&)) {
        bool ok = false;
        (service_.*operation)(connection, ok);
        return ok;
    }

    DbService& service_;
};

inline std::string companyJoin(const std::string& userId) {
    return "   select * from TBL_CUSTOMER_INFO AS A LEFT JOIN TBL_CUSTOMER_ADD AS B  ON A.USER_ID = B.USER_ID"
           "    where A.USER_ID = '" +
           userId + "'";
}

inline std::string lockSelect(const std::string& userId) {
    return "select LOCAL_INFO   from TBL_LOCK  where USER_ID = '" + userId +
           "'   and Left(PROPERTY_TYPE_CODE, 2) = 'CO'   and PROPERTY_NO = '99999999'";
}

inline std::string lockInsert(const std::string& userId, const std::string& computer) {
    return "insert into TBL_LOCK (USER_ID, PROPERTY_TYPE_CODE, PROPERTY_NO, LOCAL_INFO) values ('" + userId +
           "', 'COS', '99999999', '" + computer + "')";
}

inline std::string nameUpdate(const std::string& userId, const std::string& newId, const std::string& name) {
    return "update TBL_CUSTOMER_INFO        set             USER_ID  ='" + newId + "',            COMPANY_NAME  ='" +
           name + "'     where  USER_ID = '" + userId + "'";
}

inline std::string claimName(const std::string& userId) {
    return "select COMPANY_NAME from TBL_CUSTOMER_INFO where USER_ID = '" + userId + "'";
}

}  // namespace orv
