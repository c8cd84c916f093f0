#include <cstdlib>

#include "adapters/win32/wide_text.h"
#include "adapters/win32/windows_api.h"
#include "programs/store/tool_system.h"

namespace orv {
namespace {

/// The settings that name a server of another system, if there is one.
const std::string kServer = environmentValue(L"ORV_TEST_SERVER");

template <typename Result, typename... Arguments>
Result call(const char* name, Arguments... arguments) {
    static const HMODULE library = ::LoadLibraryW(L"libpq.dll");
    return reinterpret_cast<Result (*)(Arguments...)>(reinterpret_cast<void*>(::GetProcAddress(library, name)))(
        arguments...);
}

}  // namespace

bool hasServer() { return !kServer.empty(); }

std::string serverText(const std::string& database) { return kServer + " dbname=" + database; }

std::string runOnServer(const std::string& database, const std::string& sql) {
    void* const connection = call<void*>("PQconnectdb", serverText(database).c_str());
    void* const result = call<void*>("PQexec", connection, sql.c_str());
    std::string rows = call<const char*>("PQresultErrorMessage", result);
    for (int row = 0; row < call<int>("PQntuples", result); ++row) {
        for (int column = 0; column < call<int>("PQnfields", result); ++column) {
            rows += std::string(column > 0 ? "|" : "") + call<const char*>("PQgetvalue", result, row, column);
        }
        rows += "\n";
    }
    call<void>("PQclear", result);
    call<void>("PQfinish", connection);
    return rows;
}

}  // namespace orv
