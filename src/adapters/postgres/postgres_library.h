#pragma once

#include <libpq-fe.h>

namespace orv {

/// The functions of libpq that the store on a server needs. The library depends on some thirty others. If it were
/// linked, all of them would be loaded before the first page appears, even if the store is a file. So it is loaded with
/// the first connection.
struct PostgresLibrary {
    /// The address of a function; converts to a pointer to it.
    struct Function {
        void* address = nullptr;
        template <class Signature>
        operator Signature*() const {  // NOLINT(google-explicit-constructor)
            return reinterpret_cast<Signature*>(address);
        }
    };
    /// Failure 51 if the machine does not have the library or the library does not have the function.
    static Function function(const char* name);

    decltype(&PQclear) clear = function("PQclear");
    decltype(&PQcmdStatus) cmdStatus = function("PQcmdStatus");
    decltype(&PQcmdTuples) cmdTuples = function("PQcmdTuples");
    decltype(&PQconnectPoll) connectPoll = function("PQconnectPoll");
    decltype(&PQconnectStartParams) connectStartParams = function("PQconnectStartParams");
    decltype(&PQconnectionNeedsPassword) connectionNeedsPassword = function("PQconnectionNeedsPassword");
    decltype(&PQconninfo) conninfo = function("PQconninfo");
    decltype(&PQconninfoFree) conninfoFree = function("PQconninfoFree");
    decltype(&PQconninfoParse) conninfoParse = function("PQconninfoParse");
    decltype(&PQconsumeInput) consumeInput = function("PQconsumeInput");
    decltype(&PQerrorMessage) errorMessage = function("PQerrorMessage");
    decltype(&PQfinish) finish = function("PQfinish");
    decltype(&PQflush) flush = function("PQflush");
    decltype(&PQfname) fname = function("PQfname");
    decltype(&PQfreemem) freemem = function("PQfreemem");
    decltype(&PQftype) ftype = function("PQftype");
    decltype(&PQgetResult) getResult = function("PQgetResult");
    decltype(&PQgetisnull) getisnull = function("PQgetisnull");
    decltype(&PQgetlength) getlength = function("PQgetlength");
    decltype(&PQgetvalue) getvalue = function("PQgetvalue");
    decltype(&PQisBusy) isBusy = function("PQisBusy");
    decltype(&PQnfields) nfields = function("PQnfields");
    decltype(&PQntuples) ntuples = function("PQntuples");
    decltype(&PQparameterStatus) parameterStatus = function("PQparameterStatus");
    decltype(&PQpass) pass = function("PQpass");
    decltype(&PQresultErrorField) resultErrorField = function("PQresultErrorField");
    decltype(&PQresultStatus) resultStatus = function("PQresultStatus");
    decltype(&PQsendQuery) sendQuery = function("PQsendQuery");
    decltype(&PQsendQueryParams) sendQueryParams = function("PQsendQueryParams");
    decltype(&PQsetErrorVerbosity) setErrorVerbosity = function("PQsetErrorVerbosity");
    decltype(&PQsetNoticeProcessor) setNoticeProcessor = function("PQsetNoticeProcessor");
    decltype(&PQsetnonblocking) setnonblocking = function("PQsetnonblocking");
    decltype(&PQsocket) socket = function("PQsocket");
    decltype(&PQstatus) status = function("PQstatus");
    decltype(&PQtransactionStatus) transactionStatus = function("PQtransactionStatus");
};

/// Loads the library at the first call.
const PostgresLibrary& pq();

}  // namespace orv
