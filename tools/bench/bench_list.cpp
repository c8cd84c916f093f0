#include <sqlite3.h>

#include <stdexcept>

#include "bench.h"
#include "bench_office.h"
#include "core/flow/leaving.h"
#include "pages/forms/page_set.h"
#include "pages/frame/page_frame.h"
#include "platform/forms/form_host.h"

namespace bench {

void addCompanies(const ui_driver::Office& office, int count) {
    office.change("with recursive n(i) as (select 1 union all select i + 1 from n where i < " + std::to_string(count) +
                  ") insert into TBL_CUSTOMER_INFO (USER_ID) select printf('1%08d', i) from n");
}

namespace {

void startOnce() {
    if (!orv::startPage(orv::page<orv::frm_CompInp3>())) {
        throw std::runtime_error("the page did not start");
    }
}

/// Reads the same rows through the engine's own interface.
void readRows(const std::string& store) {
    sqlite3* database = nullptr;
    sqlite3_open(store.c_str(), &database);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, "SELECT USER_ID FROM TBL_CUSTOMER_INFO ORDER BY USER_ID", -1, &statement, nullptr);
    std::vector<std::string> rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        rows.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
    }
    sqlite3_finalize(statement);
    sqlite3_close(database);
}

double startTime(const std::string& folder, int companies, int rounds) {
    const ui_driver::Office office(folder, "1");
    addCompanies(office, companies);
    const RunningProgram program(office, "000004601,1,0");
    orv::services().forms->load(orv::page<orv::frm_CompInp3>());
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        times.push_back(timed(startOnce));
    }
    orv::PF_Form_Clean();
    orv::services().forms->sweep();
    return median(times);
}

}  // namespace

Result measureList(const std::string& folder, int companies) {
    const orv::Application application("bench");
    constexpr int kRounds = 15;
    const double few = startTime(folder + "/list-office-few", 10, kRounds);
    const double many = startTime(folder + "/list-office-many", companies, kRounds);
    const ui_driver::Office office = ui_driver::Office::existing(folder + "/list-office-many");
    std::vector<double> peer;
    for (int i = 0; i < kRounds; ++i) {
        peer.push_back(timed([&] { readRows(office.store().string()); }));
    }
    return {many - few, median(peer)};
}

}  // namespace bench
